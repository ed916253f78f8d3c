// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/CheckWatch.h"

#include <QElapsedTimer>

namespace tavrel {

namespace {

// A whole check that nobody asked for, as long as nobody can feel it.
class UnfeltProgress : public Progress
{
public:
    UnfeltProgress() { m_watch.start(); }

    bool show(std::size_t /*done*/, std::size_t /*total*/) override
    {
        constexpr qint64 patience = 100;
        return m_watch.elapsed() < patience;
    }

private:
    QElapsedTimer m_watch;
};

} // namespace

CheckWatch::CheckWatch(Look look) : m_look(std::move(look))
{
    constexpr int moment = 400;
    m_soon.setSingleShot(true);
    m_soon.setInterval(moment);
    connect(&m_soon, &QTimer::timeout, this, &CheckWatch::checkNow);
}

void CheckWatch::restart()
{
    m_isTooSlow = false;
    m_marks = {};
    Q_EMIT marksChanged();
    refresh();
}

void CheckWatch::refresh()
{
    if (!m_isTooSlow) {
        m_soon.start();
    }
}

void CheckWatch::checkNow()
{
    UnfeltProgress progress;
    const CheckReport report = m_look(progress);
    m_isTooSlow = report.cancelled;
    take(report);
}

void CheckWatch::take(const CheckReport& report)
{
    if (!report.cancelled) {
        m_marks = marksOf(report);
        Q_EMIT marksChanged();
    }
}

} // namespace tavrel
