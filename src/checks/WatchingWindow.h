// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "ui/TitledWindow.h"

#include <QTimer>

#include <chrono>

class QTreeWidget;

namespace tavrel {

// A window that stays open beside the main window and follows what is done there: it looks at the project
// when it is shown, and a moment after each change.
class WatchingWindow : public TitledWindow
{
    Q_OBJECT

public:
    // Something has changed. A hidden window looks when it is shown again.
    void refresh();
    void setLanguage(Language language);

protected:
    WatchingWindow(QWidget* parent, Language language, std::chrono::milliseconds moment);

    void showEvent(QShowEvent* event) override;
    // A double click or Enter on a row calls activate().
    void activateFrom(QTreeWidget& list);
    // What is shown is true until the next change.
    void markCurrent() { m_isCurrent = true; }
    Language language() const { return m_language; }
    QString in(const BilingualText& text) const;

private:
    virtual void run() = 0;
    virtual void showCaptions() = 0;
    virtual void fill() = 0;
    virtual void activate() = 0;

    Language m_language;
    bool m_isCurrent = false;
    QTimer m_soon;
};

} // namespace tavrel
