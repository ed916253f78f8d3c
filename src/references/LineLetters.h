// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// One letter on a line of sounds.txt. Letters are written without "#".
namespace tavrel {

// Rewriting without reading the line: only the first place counts, and it may be a piece of a longer letter.

// What is kept behind the letter, at most.
constexpr std::size_t keptBehindReplacedLetter = 255;
constexpr std::size_t keptBehindErasedLetter = 500;

std::string replaceLetter(std::string_view line, std::string_view oldLetter, std::string_view newLetter);
// The character before the letter, a blank in a well-kept line, goes with it.
std::string eraseLetter(std::string_view line, std::string_view letter);

// The line with the letter behind its others, the rest as it is; nothing for one that cannot take it, for it
// has no samples and would read a letter as one.
std::optional<std::string> withLetter(const std::string& line, std::string_view letter);
// As several lines at once get it: in front of the others, on a line composed anew. A line that would lose or
// change words by that gets it behind the others.
std::optional<std::string> withLetterInFront(const std::string& line, std::string_view letter);
// And as they give it back; nothing for a line that would then be read with other samples.
std::optional<std::string> withoutLetter(const std::string& line, std::string_view letter);
// What to say of sounds that cannot take a letter.
BilingualText takeNoOtherLetter(std::span<const std::size_t> sounds);

// Two characters that can stand behind a "#", and none of the letters of all levels. Every walk over all
// lines needs this of the letter that it looks for: an empty letter would hit the first "#" of every line,
// and a "g" every "#g".
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
