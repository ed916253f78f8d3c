// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"
#include "app/SoundListModel.h"

#include <QTimer>
#include <QWidget>

#include <set>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QRadioButton;

namespace tavrel {

class ColumnButton;
class ColumnTitles;
struct ColumnTitle;
class FilterBox;

// The sounds with their search and their filter. Whoever goes to other sounds here is asked about values that
// were not accepted, and told when a sound may not be edited.
class SoundListPanel final : public QWidget, public MainPanel
{
    Q_OBJECT

public:
    explicit SoundListPanel(const PanelContext& context);

    void showLanguage(Language language) override;
    void paintWith(const ColourPair& pair) override;

    void focusList();
    void focusSearch();
    void focusFilter();
    void search();
    // False when there was nothing to take off.
    bool clearFilter();
    // Sounds of every level.
    void showOrHideGlobals();

    // Going on from the current sound
    void goToNext();
    void goToModified(bool down);
    void askForNumber();

    // The sounds of the current WAD alone, by its ready filter.
    void showLevel();

    // Also for the filter "with findings".
    void showMarks(const FindingMarks& marks) override;

Q_SIGNALS:
    void globalsShown(bool shown);
    // By Ctrl+C and Ctrl+V in the list.
    void copyWanted();
    void pasteWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // What follows
    void reloaded() override;
    void linesChanged(const std::vector<std::size_t>& numbers) override;
    void linesMoved() override;
    void wadChanged() override;
    void lineShown() override;
    void sampleChosen() override { enableButtons(); }
    void objectChosen() override;
    void revealed() override;
    void firstWanted() override;

    void layOut();
    QWidget* makeList();
    void connectControls();
    void connectList();

    // The rows
    struct Picked
    {
        std::vector<std::size_t> numbers;
        std::optional<std::size_t> current;
    };
    Picked marked() const;
    void selectionMoved();
    void leaveForMarked();
    void pick(Picked picked);
    void sayWhatIsRefused();
    void showSelection();
    void showRow(const QModelIndex& index);
    void goTo(std::size_t number);
    void showNumberBox(bool shown);
    void numberTyped();

    // The filter
    ListCriteria criteria() const;
    void filterChanged();
    void rebuild();
    void showCounts();
    void findMissingSamples();

    void showColumns();
    std::vector<ColumnTitle> titlesOfColumns() const;

    void searchElsewhere(const QString& text);
    void enableButtons();
    void play();
    void stop();

    SoundListModel* m_sounds;
    QLineEdit* m_wanted;
    QPushButton* m_search;
    QRadioButton* m_down;
    QRadioButton* m_up;
    QCheckBox* m_matchCase;
    QLabel* m_count;
    QLineEdit* m_number; // to go to
    FilterBox* m_filter;
    ColumnButton* m_columns;
    QListView* m_list;
    ColumnTitles* m_titles;
    QPushButton* m_play;
    QPushButton* m_stop;
    QTimer m_leaving;         // for questions that wait until a click or key is done with
    QTimer m_refusing;        // the same for messages
    bool m_asking = false;    // one of them is on the screen
    bool m_selecting = false; // the program moves the selection, not the user
    bool m_showGlobals = true;
    ReadyFilter m_lastReady = ReadyFilter::All;
    std::set<std::size_t> m_warned;  // of the selected object, on these sounds
    std::set<std::size_t> m_marked;  // by a check
    std::set<std::size_t> m_missing; // samples
    std::set<std::size_t> m_kept;    // listed though the filter would hide them
};

} // namespace tavrel
