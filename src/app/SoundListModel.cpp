// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SoundListModel.h"

#include "ui/Text.h"

#include <algorithm>

namespace tavrel {

SoundListModel::SoundListModel(const SoundCatalogue& catalogue, QObject* parent)
    : QAbstractListModel(parent), m_catalogue(catalogue), m_listed(catalogue)
{}

void SoundListModel::list(ListCriteria criteria)
{
    beginResetModel();
    m_listed.list(criteria);
    m_words = std::move(criteria.words);
    endResetModel();
}

bool SoundListModel::comeOrGo(std::span<const std::size_t> numbers, const ListCriteria& criteria) const
{
    return std::ranges::any_of(numbers, [&](std::size_t number) {
        return m_listed.matches(number, criteria) != indexOf(number).isValid();
    });
}

void SoundListModel::refresh(std::span<const std::size_t> numbers)
{
    if (numbers.empty()) {
        return;
    }
    m_listed.read(numbers);
    const auto listed = m_listed.numbers();
    const auto first = std::ranges::lower_bound(listed, numbers.front());
    const auto end = std::ranges::upper_bound(listed, numbers.back());
    if (first < end) {
        Q_EMIT dataChanged(index(static_cast<int>(first - listed.begin())),
                           index(static_cast<int>(end - listed.begin()) - 1));
    }
}

void SoundListModel::setMarks(SoundMarks marks)
{
    m_marks = std::move(marks);
    if (rowCount() > 0) {
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {MarkRole, Qt::ToolTipRole});
    }
}

void SoundListModel::setColumns(const std::set<SoundColumn>& columns)
{
    Q_EMIT layoutAboutToBeChanged();
    m_columns = columns;
    Q_EMIT layoutChanged();
}

std::optional<std::size_t> SoundListModel::numberAt(const QModelIndex& index) const
{
    return index.isValid() ? std::optional(numbers()[static_cast<std::size_t>(index.row())]) : std::nullopt;
}

QModelIndex SoundListModel::indexOf(std::size_t number) const
{
    const auto listed = numbers();
    const auto found = std::ranges::lower_bound(listed, number);
    if (found == listed.end() || *found != number) {
        return {};
    }
    return index(static_cast<int>(found - listed.begin()));
}

SoundListModel::Cell SoundListModel::cell(const QModelIndex& index, SoundColumn column) const
{
    const std::optional<std::size_t> number = numberAt(index);
    if (!number || *number >= m_catalogue.size()) {
        return {};
    }
    const std::string text = column == SoundColumn::Sound
                                 ? m_catalogue.listEntry(*number)
                                 : columnText(ParseSoundLine(m_catalogue.currentLine(*number)), column);
    Cell cell{fromCodePage(RTrimBlanks(text)), {}};
    for (const SoundFilter::Part& part : m_words.matchingParts(text, column)) {
        // A character can have more than one byte.
        const auto from = fromCodePage(text.substr(0, part.from)).size();
        const auto length = fromCodePage(text.substr(part.from, part.length)).size();
        cell.parts.push_back({static_cast<int>(from), static_cast<int>(length)});
    }
    return cell;
}

// What assistive technology reads.
std::string SoundListModel::rowText(std::size_t number) const
{
    std::string text = m_catalogue.listEntry(number);
    const SoundLine record =
        m_columns.empty() ? SoundLine() : ParseSoundLine(m_catalogue.currentLine(number));
    for (const SoundColumn column : m_columns) {
        text += "  " + columnText(record, column);
    }
    return text;
}

int SoundListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(numbers().size());
}

QVariant SoundListModel::data(const QModelIndex& index, int role) const
{
    const std::optional<std::size_t> number = numberAt(index);
    if (!number || *number >= m_catalogue.size()) {
        return {};
    }
    const auto mark = m_marks.find(*number);
    switch (role) {
    case Qt::DisplayRole:
        return fromCodePage(rowText(*number));
    case NumberRole:
        return QVariant::fromValue(*number);
    case ModifiedRole:
        return m_catalogue.isModified(*number);
    case MarkRole:
        return mark == m_marks.end() ? QVariant() : QVariant(static_cast<int>(mark->second.severity));
    case Qt::ToolTipRole:
        return mark == m_marks.end() ? QVariant()
                                     : QVariant(plainToolTip(inLanguage(mark->second.text, m_language)));
    default:
        return {};
    }
}

} // namespace tavrel
