// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TextFile.h"
#include "catalogue/FixedText.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// Whether each sound takes part when a level's list of samples is imported.
class DoublesStatus
{
public:
    static constexpr std::size_t size = 370;
    static constexpr std::string_view takesPart = "OK ";
    static constexpr std::string_view leftOut = "   ";

    DoublesStatus() { m_marks.fill(takesPart); }

    // Three characters. Sounds beyond the register take part.
    std::string_view of(std::size_t number) const
    {
        return number < size ? m_marks[number].view() : takesPart;
    }
    void set(std::size_t number, std::string_view mark) { m_marks.at(number) = mark; }

private:
    std::array<FixedText<3>, size> m_marks;
};

// A record of Tavrel.tod; two of its texts are carried through.
struct DoublesRecord
{
    std::int64_t number = 0;
    bool ticked = false;
    std::string firstCarried;
    std::string name;
    std::string samples;
    std::string secondCarried;
};
std::optional<DoublesRecord> readDoublesRecord(std::string_view line);

struct LoadedDoubles
{
    DoublesStatus status;
    std::vector<Failure> notices; // records that were passed over
};

// Protected sounds are always left out.
LoadedDoubles parseDoubles(const TextFile& file, std::span<const std::size_t> protectedNumbers);

} // namespace tavrel
