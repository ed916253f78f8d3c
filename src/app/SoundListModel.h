// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundCatalogue.h"

#include <QAbstractListModel>

#include <optional>
#include <span>
#include <vector>

namespace tavrel {

// The rows of the sound list: all sounds, or those that are not in every level. Each row carries its sound
// number, which hiding others does not change.
class SoundListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { NumberRole = Qt::UserRole, ModifiedRole };

    SoundListModel(const SoundCatalogue& catalogue, QObject* parent);

    // After a load, or when the choice of rows changes.
    void rebuild(bool showGlobals);
    // After a change of the sounds' lines; the numbers ascend.
    void refresh(std::span<const std::size_t> numbers);

    std::span<const std::size_t> numbers() const { return m_numbers; }
    std::optional<std::size_t> numberAt(const QModelIndex& index) const;
    QModelIndex indexOf(std::size_t number) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const SoundCatalogue& m_catalogue;
    std::vector<std::size_t> m_numbers; // ascending
};

} // namespace tavrel
