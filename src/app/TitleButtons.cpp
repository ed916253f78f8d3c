// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TitleButtons.h"

#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QToolButton>

namespace tavrel {

namespace {

constexpr std::size_t listedSteps = 20;

QToolButton* makeStepButton(const char* name, Glyph glyph)
{
    auto* const button = named(new QToolButton, name);
    button->setIcon(glyphIcon(glyph, theme::text));
    button->setPopupMode(QToolButton::MenuButtonPopup);
    button->setMenu(new QMenu(button));
    return button;
}

} // namespace

TitleButtons::TitleButtons(const PanelContext& context, const TitleDoors& doors)
    : MainPanel(context), m_steps(context.session, context.selection),
      m_undo(makeStepButton("CdUndo", Glyph::Undo)), m_redo(makeStepButton("CdRedo", Glyph::Redo)),
      m_toolsButton(named(new QToolButton, "CdTools")), m_english(named(new QRadioButton, "OpLangE")),
      m_french(named(new QRadioButton, "OpLangF")), m_help(makeButton("CdHlp", Glyph::Help)),
      m_preferences(makeButton("CdParam", Glyph::Parameters)), m_quit(makeButton("CdQuit", Glyph::Quit))
{
    layOut();
    connectControls(doors);
    showSteps();
}

void TitleButtons::layOut()
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, controlGap, 0);
    row->setSpacing(controlGap);
    row->addWidget(m_undo);
    row->addWidget(m_redo);
    row->addWidget(m_toolsButton);
    row->addSpacing(controlGap);
    auto* const languages = new QButtonGroup(this);
    for (QRadioButton* const option : {m_english, m_french}) {
        languages->addButton(option);
        row->addWidget(option);
    }
    for (QPushButton* const button : {m_help, m_preferences, m_quit}) {
        button->setProperty("frameless", true);
        row->addWidget(button);
    }
}

void TitleButtons::connectControls(const TitleDoors& doors)
{
    auto* const menu = new QMenu(m_toolsButton);
    for (const TitleDoors::Tool& tool : doors.tools) {
        QAction* const action = menu->addAction(QString());
        action->setObjectName(tool.name);
        action->setShortcut(tool.keys);
        connect(action, &QAction::triggered, this, tool.open);
        m_tools.emplace_back(action, tool.caption);
    }
    addActions(menu->actions()); // for their keys
    m_toolsButton->setMenu(menu);
    m_toolsButton->setPopupMode(QToolButton::InstantPopup);
    connect(m_undo, &QToolButton::clicked, this, &TitleButtons::undo);
    connect(m_redo, &QToolButton::clicked, this, &TitleButtons::redo);
    connect(m_undo->menu(), &QMenu::aboutToShow, this, [this] { fillMenu(*m_undo, true); });
    connect(m_redo->menu(), &QMenu::aboutToShow, this, [this] { fillMenu(*m_redo, false); });
    connect(m_french, &QRadioButton::toggled, this, [choose = doors.chooseLanguage](bool french) {
        choose(french ? Language::French : Language::English);
    });
    connect(m_help, &QPushButton::clicked, this, doors.openHelp);
    connect(m_preferences, &QPushButton::clicked, this, doors.openPreferences);
    connect(m_quit, &QPushButton::clicked, this, doors.quit);
}

void TitleButtons::showLanguage(Language language)
{
    const auto both = [](const char* control, const BilingualText& text) {
        return Caption{control, text, text};
    };
    const Caption captions[] = {
        both("OpLangE", {"English display", "Affichage en Anglais"}),
        both("OpLangF", {"French display", "Affichage en Français"}),
        both("CdHlp", {"Help", "Aide"}),
        both("CdParam", {"Parameters", "Paramètres"}),
        both("CdQuit", {"Quit Tavrel", "Quitter Tavrel"}),
    };
    showCaptions(*this, captions, language);
    m_toolsButton->setText(inLanguage({"Tools", "Outils"}, language));
    m_toolsButton->setToolTip(inLanguage({"Review, check, compare, earlier versions, recovery",
                                          "Revoir, contrôler, comparer, versions précédentes, récupération"},
                                         language));
    for (const auto& [action, caption] : m_tools) {
        action->setText(inLanguage(caption, language));
    }
    const QSignalBlocker blocker(m_french);
    (language == Language::French ? m_french : m_english)->setChecked(true);
    showSteps();
}

void TitleButtons::setQuitEnabled(bool enabled)
{
    m_quit->setEnabled(enabled);
}

// Undo and redo

void TitleButtons::undo()
{
    if (m_undo->isEnabled()) {
        say(m_steps.undo(dialogs()));
    }
}

void TitleButtons::redo()
{
    if (m_redo->isEnabled()) {
        say(m_steps.redo(dialogs()));
    }
}

void TitleButtons::quit()
{
    m_quit->click();
}

void TitleButtons::showSteps()
{
    const struct
    {
        QToolButton* button = nullptr;
        bool possible = false;
        BilingualText command;
        BilingualText next;
    } both[] = {
        {m_undo, m_steps.canUndo(), {"Undo", "Annuler"}, m_steps.nextUndo()},
        {m_redo, m_steps.canRedo(), {"Redo", "Rétablir"}, m_steps.nextRedo()},
    };
    for (const auto& [button, possible, command, next] : both) {
        const BilingualText text = next.empty() ? command : command + BilingualText(": ", " : ") + next;
        button->setEnabled(possible);
        button->setToolTip(plainToolTip(inLanguage(text, language())));
        button->setAccessibleName(inLanguage(command, language()));
    }
}

// The nearest step first; each goes back, or forward, to that one.
void TitleButtons::fillMenu(QToolButton& button, bool back)
{
    QMenu& menu = *button.menu();
    menu.clear();
    const HistoryTrack& history = session().history();
    const std::size_t possible = back ? history.position : history.steps.size() - history.position;
    if (possible == 0 || (back && selection().edited()) ||
        (!back && m_steps.canRedo() && !session().canRedo())) {
        const BilingualText next = back ? m_steps.nextUndo() : m_steps.nextRedo();
        QAction* const action = menu.addAction(inLanguage(next, language()).replace('&', "&&"));
        connect(action, &QAction::triggered, this, back ? &TitleButtons::undo : &TitleButtons::redo);
    }
    for (std::size_t i = 1; i <= std::min(possible, listedSteps); ++i) {
        const std::size_t position = back ? history.position - i : history.position + i;
        const HistoryStep& step = history.steps[back ? position : position - 1];
        QAction* const action = menu.addAction(inLanguage(step.label, language()).replace('&', "&&"));
        connect(action, &QAction::triggered, this,
                [this, position] { say(m_steps.goTo(position, dialogs())); });
    }
}

} // namespace tavrel
