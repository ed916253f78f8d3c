// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundCatalogue.h"

#include <set>
#include <string_view>

// A colon makes a line of sounds.txt a sound. What tells a sound from a comment when it is missing, or too
// much.
namespace tavrel {

using InstalledNames = std::set<std::string_view>;
// Views of the catalogue, which must outlive them.
InstalledNames installedNames(const SoundCatalogue& catalogue);

bool hasCommentMark(std::string_view text);
// A value or a letter behind the first word: neither stands in prose.
bool hasWordOfSound(std::string_view line);
// "LARA_FEET" of a line that would be a sound with a colon behind it; empty for any other line.
std::string_view nameWithoutColon(std::string_view line, const InstalledNames& installed);

} // namespace tavrel
