// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QListView>

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace tavrel {

class TickModel;

// Rows in fixed columns, each with a tick. Space ticks or unticks all selected rows.
class TickList : public QListView
{
    Q_OBJECT

public:
    explicit TickList(const char* name);

    enum class Mark { None, Remark, Refusal };

    // What the list asks when it shows a row: files of strangers have any number of them. A row that is
    // refused cannot be ticked.
    struct Rows
    {
        std::size_t count = 0;
        std::function<QString(std::size_t)> text = {};
        std::function<Mark(std::size_t)> mark = {};         // none without one
        std::function<QString(std::size_t)> why = {};       // of the mark, as a tool tip
        std::function<bool(std::size_t)> startsTicked = {}; // all that can be without one
    };
    void setRows(Rows rows);
    void clear() { setRows({}); }
    // The marks became others; whether a row can be ticked stays as it is.
    void showMarks();
    // With marks, every row has room for one.
    void useMarks();

    void tick(const std::vector<std::size_t>& rows, bool ticked);
    void tickAll(bool ticked);
    bool isTicked(std::size_t row) const;
    std::vector<std::size_t> tickedRows() const;
    std::size_t tickedCount() const;
    std::size_t rows() const;
    // The row whose buttons and panels act; none when no row is selected.
    std::optional<std::size_t> selectedRow() const;
    void selectRow(std::size_t row);

    // Where the text of a row that is not scrolled starts, in the list.
    int textStart() const;

Q_SIGNALS:
    void ticksChanged();
    void enterPressed();
    void selectedRowChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    TickModel* m_model;
};

} // namespace tavrel
