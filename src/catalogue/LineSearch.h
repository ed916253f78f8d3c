// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace tavrel {

enum class SearchDirection { Down, Up };

struct LineSearch
{
    std::string text; // code page bytes; an empty text finds nothing
    SearchDirection direction = SearchDirection::Down;
    bool caseSensitive = false;
};

// The next of the listed sounds (ascending numbers) behind `from` in the search direction whose current line
// contains the text. Without `from` the search starts at the list's near end. It never wraps.
std::optional<std::size_t> findNextLine(const SoundCatalogue& catalogue, std::span<const std::size_t> listed,
                                        std::optional<std::size_t> from, const LineSearch& search);

} // namespace tavrel
