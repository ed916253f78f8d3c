// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QCursor>

#include <vector>

namespace tavrel {

// The hourglass, for as long as this lives.
class BusyPointer
{
public:
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
};

// The usual pointer in the middle of something busy: a box wants an answer.
class CalmPointer
{
public:
    CalmPointer()
    {
        while (const QCursor* const busy = QApplication::overrideCursor()) {
            m_busy.push_back(*busy);
            QApplication::restoreOverrideCursor();
        }
    }
    CalmPointer(const CalmPointer&) = delete;
    CalmPointer& operator=(const CalmPointer&) = delete;
    ~CalmPointer()
    {
        for (; !m_busy.empty(); m_busy.pop_back()) {
            QApplication::setOverrideCursor(m_busy.back());
        }
    }

private:
    std::vector<QCursor> m_busy;
};

} // namespace tavrel
