// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <cstddef>
#include <string>
#include <string_view>

// Rewriting one letter on a line of sounds.txt without reading the line: only the first place counts, and it
// may be a piece of a longer letter. Letters are written without "#".
namespace tavrel {

// What is kept behind the letter, at most.
constexpr std::size_t keptBehindReplacedLetter = 255;
constexpr std::size_t keptBehindErasedLetter = 500;

std::string replaceLetter(std::string_view line, std::string_view oldLetter, std::string_view newLetter);
// The character before the letter, a blank in a well-kept line, goes with it.
std::string eraseLetter(std::string_view line, std::string_view letter);

// Two characters that can stand behind a "#", and none of the letters of all levels. Every walk over all
// lines needs this of the letter that it looks for: an empty letter would hit the first "#" of every line,
// "g" every
// "#g".
bool isLetterOfOneLevel(std::string_view letter);

// Whether a level takes the line: it carries the level's letter, or one that starts like it, or that of all
// levels.
bool belongsToLevel(std::string_view line, std::string_view letter);

// Characters that would end a letter on its line, or break the register's files.
bool hasForbiddenLetterCharacter(std::string_view letter);

// The line grammar can read a letter with such an end as a flag or a value.
bool looksLikeFlagOrValue(std::string_view letter);
BilingualText flagLetterHint();

} // namespace tavrel
