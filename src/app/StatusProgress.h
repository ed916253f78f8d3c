// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/StatusRow.h"
#include "base/Progress.h"
#include "ui/BusyPointer.h"

#include <QElapsedTimer>
#include <QPointer>

#include <optional>

namespace tavrel {

// A long command in the status row of the main window: the hourglass, what it is at, and how far. All of it
// goes with this object.
class StatusProgress : public Progress
{
public:
    StatusProgress(QWidget& window, StatusRow& row, Language language);
    StatusProgress(const StatusProgress&) = delete;
    StatusProgress& operator=(const StatusProgress&) = delete;
    ~StatusProgress() override;

    bool show(std::size_t done, std::size_t total) override;
    void say(const BilingualText& text) override;

    // It failed: the text turns red, and the pointer is the usual one again.
    void alarm();
    // Nothing is left but to wait. The window takes no input.
    void wait(const BilingualText& what);

private:
    void begin();

    QWidget& m_window;
    StatusRow& m_row;
    Language m_language;
    QPointer<QWidget> m_focus; // gets it back
    std::optional<BusyPointer> m_pointer;
    bool m_begun = false;
    QElapsedTimer m_painted;
};

} // namespace tavrel
