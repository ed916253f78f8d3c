// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "versions/DifferenceView.h"

#include <QAbstractTableModel>
#include <QColor>

#include <functional>
#include <vector>

namespace tavrel {

// The rows of a DifferenceView that its filters let through. Words are made when they are shown: of a large
// catalogue few ever are.
class DifferenceModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { NumberColumn, NameColumn, WordsColumn, ButtonColumn };

    DifferenceModel(DifferenceSides sides, Language language, QColor muted, QObject* parent);

    void useTicks() { m_hasTicks = true; }
    void useButton(const BilingualText& caption);
    void setRows(std::vector<DifferenceRow> rows);
    const std::vector<DifferenceRow>& rows() const { return m_rows; }
    // None for a row of which a line is missing.
    LineFields fields(std::size_t row) const { return m_fields[row]; }
    // Shows the rows for which it holds.
    void show(const std::function<bool(std::size_t row)>& holds);
    const std::vector<std::size_t>& shown() const { return m_shown; }
    // Rows of the view.
    void tick(const std::vector<int>& rows, bool ticked);

    std::size_t rowOf(const QModelIndex& index) const
    {
        return m_shown[static_cast<std::size_t>(index.row())];
    }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    void ticksChanged();

private:
    QString textOf(const DifferenceRow& row, int column) const;
    BilingualText wordsOf(const DifferenceRow& row) const;

    DifferenceSides m_sides;
    Language m_language;
    QColor m_muted;
    bool m_hasTicks = false;
    QString m_buttonCaption; // empty without a button
    std::vector<DifferenceRow> m_rows;
    std::vector<LineFields> m_fields;
    std::vector<std::size_t> m_shown;
};

} // namespace tavrel
