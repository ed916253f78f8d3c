// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "versions/LineDifference.h"

#include <QTableView>
#include <QWidget>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;
class QPlainTextEdit;

namespace tavrel {

// A sound of which two lines differ. Lines are bytes in the system code page.
struct DifferenceRow
{
    std::optional<std::size_t> number;      // of the sound; none where it is missing
    std::optional<std::size_t> otherNumber; // on the other side, where that is another
    std::optional<std::string> before;      // at least one of the two lines is there
    std::optional<std::string> after;
    BilingualText remark = {}; // goes before what differs, in words
    bool tickable = true;
    bool ticked = false;
};

// What the two lines of every row are called.
struct DifferenceSides
{
    BilingualText before;
    BilingualText after;
    // What a row says whose line is there on the other side alone.
    BilingualText missingBefore;
    BilingualText missingAfter;
};

class DifferenceModel;

// Sounds that differ, with filters by what differs, and the two lines of the selected one above each other.
// Enter or a double click chooses a row.
class DifferenceView : public QWidget
{
    Q_OBJECT

public:
    DifferenceView(const DifferenceSides& sides, const ColourPair& colours, Language language);

    // Before the rows: a column with a tick, which Space changes for all selected rows; a column with a
    // button, which Delete presses, too.
    void useTicks();
    void useRowButton(const BilingualText& caption);

    // Keeps the place in the list.
    void setRows(std::vector<DifferenceRow> rows);
    const std::vector<DifferenceRow>& rows() const;
    // The row whose lines are shown, as its place in rows().
    std::optional<std::size_t> selectedRow() const;
    void select(std::size_t row);
    // Those that the filters let through.
    std::size_t shownRows() const;
    void tickShown(bool ticked);
    std::vector<std::size_t> tickedRows() const;

Q_SIGNALS:
    void chosen(std::size_t row);
    void buttonPressed(std::size_t row);
    void selectionChanged();
    void ticksChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Filter
    {
        QCheckBox* box = nullptr;
        LineFields fields; // none for missing lines
    };

    void layOut(const DifferenceSides& sides);
    void makeFilters();
    void filter();
    void showLines();
    void fitColumns();
    bool takeKey(int key);

    Language m_language;
    ColourPair m_colours;
    DifferenceModel* m_model;
    QTableView* m_list;
    std::vector<Filter> m_filters;
    QLabel* m_counts;
    QPlainTextEdit* m_lines;
};

} // namespace tavrel
