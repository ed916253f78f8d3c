// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"
#include "session/UndoCommands.h"

#include <QKeySequence>
#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

class QAction;
class QPushButton;
class QRadioButton;
class QToolButton;

namespace tavrel {

struct TitleDoors
{
    std::function<void(Language)> chooseLanguage;
    std::function<void()> openHelp;
    std::function<void()> openPreferences;
    std::function<void()> quit;
    // The commands of the menu "Tools", in its order.
    struct Tool
    {
        const char* name;
        BilingualText caption;
        QKeySequence keys;
        std::function<void()> open;
    };
    std::vector<Tool> tools;
};

// Beside the title image: undo and redo with what they would do, the language, and the doors that every part
// of the window has in common.
class TitleButtons final : public QWidget, public MainPanel
{
    Q_OBJECT

public:
    TitleButtons(const PanelContext& context, const TitleDoors& doors);

    void showLanguage(Language language) override;
    // While another window must not be left behind.
    void setQuitEnabled(bool enabled);

    void undo();
    void redo();
    void quit();

private:
    void reloaded() override { showSteps(); }
    void historyChanged() override { showSteps(); }
    void lineShown() override { showSteps(); }
    void valuesChanged() override { showSteps(); }

    void layOut();
    void connectControls(const TitleDoors& doors);
    void showSteps();
    void fillMenu(QToolButton& button, bool back);

    UndoCommands m_steps;
    QToolButton* m_undo;
    QToolButton* m_redo;
    QToolButton* m_toolsButton;
    std::vector<std::pair<QAction*, BilingualText>> m_tools;
    QRadioButton* m_english;
    QRadioButton* m_french;
    QPushButton* m_help;
    QPushButton* m_preferences;
    QPushButton* m_quit;
};

} // namespace tavrel
