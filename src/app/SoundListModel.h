// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "checks/FindingMarks.h"
#include "session/ListedSounds.h"

#include <QAbstractListModel>

#include <map>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace tavrel {

using SoundMarks = std::map<std::size_t, FindingMark>;

// The rows of the sound list, those that the filters leave. Each row carries its sound number, which hiding
// others does not change.
class SoundListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { NumberRole = Qt::UserRole, ModifiedRole, MarkRole };

    SoundListModel(const SoundCatalogue& catalogue, QObject* parent);

    // After a load, and when lines came or went; list() follows.
    void read() { m_listed.read(); }
    // After a change of the sounds' lines, the numbers ascend. The rows stay the same ones.
    void refresh(std::span<const std::size_t> numbers);
    // When the choice of rows changes.
    void list(ListCriteria criteria);
    // Whether sounds, read anew, come into the list or leave it.
    bool comeOrGo(std::span<const std::size_t> numbers, const ListCriteria& criteria) const;

    void setMarks(SoundMarks marks);
    const SoundMarks& marks() const { return m_marks; }
    void setLanguage(Language language) { m_language = language; }
    void setColumns(const std::set<SoundColumn>& columns);
    const std::set<SoundColumn>& columns() const { return m_columns; }

    std::span<const std::size_t> numbers() const { return m_listed.numbers(); }
    std::size_t total() const { return m_listed.total(); }
    std::optional<std::size_t> numberAt(const QModelIndex& index) const;
    QModelIndex indexOf(std::size_t number) const;

    // What a column shows of a row, and which parts of it the filter looks for.
    struct Cell
    {
        QString text;
        struct Part
        {
            int from = 0;
            int length = 0;
        };
        std::vector<Part> parts;
    };
    Cell cell(const QModelIndex& index, SoundColumn column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::string rowText(std::size_t number) const;

    const SoundCatalogue& m_catalogue;
    ListedSounds m_listed;
    SoundFilter m_words;
    SoundMarks m_marks;
    std::set<SoundColumn> m_columns;
    Language m_language = Language::English;
};

} // namespace tavrel
