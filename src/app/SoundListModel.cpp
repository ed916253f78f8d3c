// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SoundListModel.h"

#include "ui/Text.h"

#include <algorithm>

namespace tavrel {

SoundListModel::SoundListModel(const SoundCatalogue& catalogue, QObject* parent)
    : QAbstractListModel(parent), m_catalogue(catalogue)
{}

void SoundListModel::rebuild(bool showGlobals)
{
    beginResetModel();
    m_numbers.clear();
    for (std::size_t k = 0; k < m_catalogue.size(); ++k) {
        if (showGlobals || !m_catalogue.isGlobal(k)) {
            m_numbers.push_back(k);
        }
    }
    endResetModel();
}

void SoundListModel::refresh(std::span<const std::size_t> numbers)
{
    if (numbers.empty()) {
        return;
    }
    const auto first = std::ranges::lower_bound(m_numbers, numbers.front());
    const auto end = std::ranges::upper_bound(m_numbers, numbers.back());
    if (first < end) {
        Q_EMIT dataChanged(index(static_cast<int>(first - m_numbers.begin())),
                           index(static_cast<int>(end - m_numbers.begin()) - 1));
    }
}

std::optional<std::size_t> SoundListModel::numberAt(const QModelIndex& index) const
{
    return index.isValid() ? std::optional(m_numbers.at(static_cast<std::size_t>(index.row())))
                           : std::nullopt;
}

QModelIndex SoundListModel::indexOf(std::size_t number) const
{
    const auto found = std::ranges::lower_bound(m_numbers, number);
    if (found == m_numbers.end() || *found != number) {
        return {};
    }
    return index(static_cast<int>(found - m_numbers.begin()));
}

int SoundListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_numbers.size());
}

QVariant SoundListModel::data(const QModelIndex& index, int role) const
{
    const std::optional<std::size_t> number = numberAt(index);
    if (!number || *number >= m_catalogue.size()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return fromCodePage(m_catalogue.listEntry(*number));
    case NumberRole:
        return QVariant::fromValue(*number);
    case ModifiedRole:
        return m_catalogue.isModified(*number);
    default:
        return {};
    }
}

} // namespace tavrel
