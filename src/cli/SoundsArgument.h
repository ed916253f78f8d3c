// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Console.h"
#include "session/Session.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// Which sounds a command is about: their numbers, ranges of them ("1,5-9"), what a filter lists, or what both
// have in common.
struct SoundsArgument
{
    struct Range
    {
        std::size_t first = 0;
        std::size_t last = 0;
    };
    std::vector<Range> ranges;
    std::optional<std::string> where; // code page bytes
    // Each sound was named. A command over a range or a filter leaves out what it cannot change; of a sound
    // that was named it says so and stops.
    bool namesEach = true;

    bool isGiven() const { return !ranges.empty() || where; }
};

// Empty for a text that is no number and no range.
std::optional<std::vector<SoundsArgument::Range>> parseRanges(std::string_view text);

// In the order of the argument, each once. Nothing, and a message, when there is no such sound.
std::optional<std::vector<std::size_t>> soundsOf(const SoundsArgument& argument, const Session& session,
                                                 Console& console);

} // namespace tavrel
