// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"
#include "base/BilingualText.h"
#include "base/ColourScheme.h"

#include <QWidget>

class QLabel;
class QProgressBar;

namespace tavrel {

// The bottom line of the main window: where the level editor is, what a command did, how far it is, and
// whether changes wait to be applied.
class StatusRow : public QWidget, public Status
{
    Q_OBJECT

public:
    explicit StatusRow(QWidget& window);

    void say(const BilingualText& text) override;

    void showLanguage(Language language);
    void showFolder(const QString& folder);
    // Changes wait to be applied; why they would be lost in a crash.
    void showPending(bool pending, bool unrecoverable);

    QLabel& info() { return *m_info; }
    QProgressBar& bar() { return *m_bar; }
    // The texts of a long command need its room.
    void setFolderVisible(bool visible);

private:
    QLabel* m_folder;
    QLabel* m_info;
    QProgressBar* m_bar;
    QLabel* m_pending;
    Language m_language = Language::English;
    BilingualText m_said;
    bool m_isPending = false;
    bool m_isUnrecoverable = false;
};

} // namespace tavrel
