// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/DoublesStatus.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {

// Tavrel.tod as the user edits it: which of the sounds that share samples take part when a WAD's list is
// imported. Everything else in the file is carried through: the first and the last text of a record, and
// whole lines that are no records.
class DoublesRegister
{
public:
    static Result<DoublesRegister> load(const std::filesystem::path& programFolder);
    [[nodiscard]] Problem save() const;

    std::size_t size() const { return m_records.size(); }
    // Number, name and samples in fixed columns. Code page bytes.
    std::string row(std::size_t index) const;
    std::int64_t number(std::size_t index) const { return m_records.at(index).number; }
    bool isTicked(std::size_t index) const { return m_records.at(index).ticked; }
    void tick(std::size_t index, bool ticked) { m_records.at(index).ticked = ticked; }

private:
    struct KeptLine
    {
        std::size_t before; // the record behind it
        std::string text;
    };

    std::filesystem::path m_file;
    std::vector<DoublesRecord> m_records;
    std::vector<KeptLine> m_keptLines;
};

} // namespace tavrel
