// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/DifferenceModel.h"

#include "ui/Text.h"

#include <numeric>

namespace tavrel {

namespace {

QString numberText(const std::optional<std::size_t>& number)
{
    return number ? QString::number(*number).rightJustified(3) : QString("  –");
}

} // namespace

DifferenceModel::DifferenceModel(DifferenceSides sides, Language language, QColor muted, QObject* parent)
    : QAbstractTableModel(parent), m_sides(std::move(sides)), m_language(language), m_muted(muted)
{}

void DifferenceModel::useButton(const BilingualText& caption)
{
    beginResetModel();
    m_buttonCaption = inLanguage(caption, m_language);
    endResetModel();
}

void DifferenceModel::setRows(std::vector<DifferenceRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    m_fields.clear();
    for (const DifferenceRow& row : m_rows) {
        m_fields.push_back(row.before && row.after ? differingFields(*row.before, *row.after) : LineFields());
    }
    m_shown.resize(m_rows.size());
    std::iota(m_shown.begin(), m_shown.end(), std::size_t{0});
    endResetModel();
}

void DifferenceModel::show(const std::function<bool(std::size_t row)>& holds)
{
    beginResetModel();
    m_shown.clear();
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        if (holds(row)) {
            m_shown.push_back(row);
        }
    }
    endResetModel();
}

void DifferenceModel::tick(const std::vector<int>& rows, bool ticked)
{
    for (const int row : rows) {
        DifferenceRow& changed = m_rows[m_shown[static_cast<std::size_t>(row)]];
        changed.ticked = ticked && changed.tickable;
    }
    if (!rows.empty()) {
        Q_EMIT dataChanged(index(0, NumberColumn), index(rowCount() - 1, NumberColumn), {Qt::CheckStateRole});
        Q_EMIT ticksChanged();
    }
}

int DifferenceModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int DifferenceModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_buttonCaption.isEmpty() ? ButtonColumn : ButtonColumn + 1;
}

BilingualText DifferenceModel::wordsOf(const DifferenceRow& row) const
{
    const BilingualText difference = !row.before  ? m_sides.missingBefore
                                     : !row.after ? m_sides.missingAfter
                                                  : describeDifference(*row.before, *row.after);
    return row.remark.empty() ? difference : row.remark + BilingualText(": ", " : ") + difference;
}

QString DifferenceModel::textOf(const DifferenceRow& row, int column) const
{
    switch (column) {
    case NumberColumn:
        return row.otherNumber ? numberText(row.number) + " / " + numberText(row.otherNumber).trimmed()
                               : numberText(row.number);
    case NameColumn: {
        const std::string& line = row.before ? *row.before : *row.after;
        return fromCodePage(std::string_view(line).substr(0, line.find(':')));
    }
    case WordsColumn:
        return inLanguage(wordsOf(row), m_language);
    default:
        return m_buttonCaption;
    }
}

QVariant DifferenceModel::data(const QModelIndex& index, int role) const
{
    const DifferenceRow& row = m_rows[rowOf(index)];
    if (role == Qt::DisplayRole) {
        return textOf(row, index.column());
    }
    if (role == Qt::ToolTipRole && index.column() == WordsColumn) {
        return plainToolTip(textOf(row, WordsColumn));
    }
    if (role == Qt::CheckStateRole && flags(index).testFlag(Qt::ItemIsUserCheckable)) {
        return row.ticked ? Qt::Checked : Qt::Unchecked;
    }
    if (role == Qt::ForegroundRole && !row.tickable) {
        return m_muted;
    }
    return {};
}

bool DifferenceModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !flags(index).testFlag(Qt::ItemIsUserCheckable)) {
        return false;
    }
    m_rows[rowOf(index)].ticked = value.toInt() == Qt::Checked;
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    Q_EMIT ticksChanged();
    return true;
}

Qt::ItemFlags DifferenceModel::flags(const QModelIndex& index) const
{
    const bool tickable = m_hasTicks && index.column() == NumberColumn && m_rows[rowOf(index)].tickable;
    return QAbstractTableModel::flags(index).setFlag(Qt::ItemIsUserCheckable, tickable);
}

QVariant DifferenceModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const BilingualText titles[] = {
        {"No.", "N°"}, {"Name", "Nom"}, {"What differs", "Ce qui diffère"}, {}};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        return inLanguage(titles[section], m_language);
    }
    return {};
}

} // namespace tavrel
