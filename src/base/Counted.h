// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <cstddef>
#include <span>
#include <string>

namespace tavrel {

// The words that go with a number: English has its singular for 1, French for 0 and 1.
BilingualText agreeing(std::size_t count, const BilingualText& one, const BilingualText& several);

// The number before them: "1 line", "4 lines".
BilingualText counted(std::size_t count, const BilingualText& one, const BilingualText& several);
BilingualText countedLines(std::size_t count);
BilingualText countedSounds(std::size_t count);

// Ascending numbers, three and more in a row as a range: "0-3, 7, 8". After so many entries, "..." stands for
// the rest.
std::string numberRanges(std::span<const std::size_t> numbers, std::size_t mostEntries = 100);

} // namespace tavrel
