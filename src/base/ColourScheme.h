// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tavrel {

// 0x00BBGGRR, as the settings file keeps colours.
using ColourValue = std::int32_t;

struct ColourPair
{
    ColourValue back = 0;
    ColourValue text = 0;

    friend bool operator==(const ColourPair&, const ColourPair&) = default;
};

// From 1 (the same lightness) to 21 (black and white), as the accessibility guidelines for the web define it.
double contrastOf(const ColourPair& pair);
// Below it a text is hard to read.
constexpr double leastContrast = 3.0;

// The colours of the lists and text areas; each window takes them from fixed slots.
struct ColourScheme
{
    static constexpr std::size_t slotCount = 6;
    static constexpr std::size_t mainWindowSlot = 0;
    static constexpr std::size_t textSlot = 5; // long texts: the help, sounds.txt

    std::array<ColourPair, slotCount> slots = {{{0x404040, 0xDFFFFF},
                                                {0x001020, 0xDFFFFF},
                                                {0x200000, 0xDFFFFF},
                                                {0x002000, 0xDFFFFF},
                                                {0x101000, 0xDFFFFF},
                                                {0xE0E0E0, 0x000000}}};

    friend bool operator==(const ColourScheme&, const ColourScheme&) = default;
};

} // namespace tavrel
