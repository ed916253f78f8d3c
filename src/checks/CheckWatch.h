// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"
#include "checks/FindingMarks.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace tavrel {

// Keeps the marks of the lists: looks at the project a moment after it has changed. Where a look would be
// felt (many lines, a slow disk) it gives up, and the marks are those of the last whole check.
class CheckWatch : public QObject
{
    Q_OBJECT

public:
    using Look = std::function<CheckReport(Progress&)>;

    explicit CheckWatch(Look look);

    // Another file has been loaded: nothing is known, and it may be quicker.
    void restart();
    // Something has changed.
    void refresh();
    // Somebody has looked.
    void take(const CheckReport& report);

    const FindingMarks& marks() const { return m_marks; }

Q_SIGNALS:
    void marksChanged();

private:
    void checkNow();

    Look m_look;
    QTimer m_soon;
    bool m_isTooSlow = false;
    FindingMarks m_marks;
};

} // namespace tavrel
