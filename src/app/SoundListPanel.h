// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"

#include <QTimer>
#include <QWidget>

#include <set>

class QCheckBox;
class QLineEdit;
class QListView;
class QPushButton;
class QRadioButton;

namespace tavrel {

class SoundListModel;

// The sounds with their search. Whoever goes to another sound here is asked about values that were not
// accepted, and told when the sound may not be edited.
class SoundListPanel final : public QWidget, public MainPanel
{
    Q_OBJECT

public:
    explicit SoundListPanel(const PanelContext& context);

    void showLanguage(Language language) override;
    void paintWith(const ColourPair& pair) override;

    void focusList();
    void focusSearch();
    void search();
    // Sounds of every level.
    void showOrHideGlobals();

private:
    // What follows
    void reloaded() override;
    void linesChanged(const std::vector<std::size_t>& numbers) override;
    void linesMoved() override;
    void lineShown() override;
    void sampleChosen() override { enableButtons(); }
    void objectChosen() override;
    void revealed() override;
    void firstWanted() override;

    void layOut();
    void connectControls();
    void currentRowChanged();
    void leaveForCurrentRow();
    void pick(std::optional<std::size_t> number);
    void sayWhatIsRefused();
    void rebuild();
    void showRow(const QModelIndex& index);
    void enableButtons();
    void play();
    void stop();

    SoundListModel* m_sounds;
    QLineEdit* m_wanted;
    QPushButton* m_search;
    QRadioButton* m_down;
    QRadioButton* m_up;
    QCheckBox* m_matchCase;
    QListView* m_list;
    QPushButton* m_play;
    QPushButton* m_stop;
    QTimer m_leaving;         // for questions that wait until a click or key is done with
    QTimer m_refusing;        // the same for messages
    bool m_asking = false;    // one of them is on the screen
    bool m_selecting = false; // the program moves the selection, not the user
    bool m_showGlobals = true;
    std::set<std::size_t> m_warned; // of the selected object, on these sounds
};

} // namespace tavrel
