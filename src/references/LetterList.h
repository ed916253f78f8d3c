// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundLine.h"
#include "references/CurrentWad.h"
#include "references/ReferenceRegister.h"

#include <string>
#include <vector>

namespace tavrel {

// The letters of a line, without "#".
std::vector<std::string> lettersOf(const SoundLine& line);

// The levels that a line belongs to, an entry a letter: "#ab - My level". The letter that was added last
// shows the WAD's name, and so does the current letter when no reference holds it; any other letter without a
// reference shows "**NO REF**".
std::vector<std::string> letterEntries(const SoundLine& line, const ReferenceRegister& references,
                                       const CurrentWad& current, Language language,
                                       std::string_view justAdded = {});

} // namespace tavrel
