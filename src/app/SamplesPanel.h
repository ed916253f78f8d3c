// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"
#include "samples/SampleCommands.h"
#include "ui/FoldingPanel.h"

#include <QStringList>

#include <functional>
#include <optional>
#include <utility>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace tavrel {

// The samples of the selected line, and the name that is to be added or to take the place of one.
class SamplesPanel final : public FoldingPanel, public MainPanel
{
    Q_OBJECT

public:
    // Lets the user choose a sample of the folder; nothing when it is closed without a choice.
    using Chooser = std::function<std::optional<std::string>()>;

    SamplesPanel(const PanelContext& context, Chooser choose);

    void showLanguage(Language language) override;
    void paintWith(const ColourPair& pair) override;

private:
    void reloaded() override;
    void lineShown() override;
    void sampleChosen() override { enable(); }
    void objectChosen() override { enable(); }

    void layOut();
    void connectControls();
    void enable();
    void entrySelected();
    SampleInput input() const;
    void change(SampleResult (*command)(LineEditor&, const SampleInput&, Dialogs&));
    void choose();
    void chooseAndAdd();
    void play();
    void stop();

    Chooser m_choose;
    QListWidget* m_list;
    QLineEdit* m_name;
    QPushButton* m_play;
    QPushButton* m_stop;
    QPushButton* m_add;
    QPushButton* m_rename;
    QPushButton* m_remove;
    QPushButton* m_chooser;
    std::pair<std::optional<std::size_t>, QStringList> m_shown; // of which sound
};

} // namespace tavrel
