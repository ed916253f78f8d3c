// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

// What differs between two lines of sounds.txt, as the line grammar reads them.
namespace tavrel {

enum class LineField {
    Name,
    Samples,
    Vol,
    Pit,
    Rad,
    Ch,
    Flags,
    Letters,
    Text // what the grammar does not read, or the same content written differently
};

constexpr std::array<LineField, 9> everyLineField = {LineField::Name,  LineField::Samples, LineField::Vol,
                                                     LineField::Pit,   LineField::Rad,     LineField::Ch,
                                                     LineField::Flags, LineField::Letters, LineField::Text};

// "name", "samples", "vol": as scripts read them.
std::string_view nameOf(LineField field);

class LineFields
{
public:
    constexpr LineFields() = default;
    constexpr LineFields(std::initializer_list<LineField> fields)
    {
        for (const LineField field : fields) {
            add(field);
        }
    }

    constexpr void add(LineField field, bool present = true)
    {
        m_bits = static_cast<std::uint16_t>(m_bits | (present ? bit(field) : 0U));
    }
    constexpr bool has(LineField field) const { return (m_bits & bit(field)) != 0; }
    constexpr bool hasAny(LineFields fields) const { return (m_bits & fields.m_bits) != 0; }
    constexpr bool none() const { return m_bits == 0; }
    constexpr bool operator==(const LineFields&) const = default;

private:
    static constexpr unsigned bit(LineField field) { return 1U << static_cast<unsigned>(field); }

    std::uint16_t m_bits = 0;
};

// None for equal lines alone.
LineFields differingFields(std::string_view before, std::string_view after);

// "VOL 44 → 60, #oa added"; empty for equal lines.
BilingualText describeDifference(std::string_view before, std::string_view after);

struct ByteRange
{
    std::size_t start = 0;
    std::size_t length = 0;

    bool operator==(const ByteRange&) const = default;
};

// The words of each line that the other one does not have in its place; where only the room between words
// differs, that room.
struct DifferingWords
{
    std::vector<ByteRange> before;
    std::vector<ByteRange> after;
};

DifferingWords differingWords(std::string_view before, std::string_view after);

} // namespace tavrel
