// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// What parsing a line and composing it anew, without any edit, does to its words. The line grammar reads some
// hand-written lines short (samples past 32 characters, VOL100, words behind the letters), and composing
// would then lose what it did not read.
struct WordChanges
{
    std::vector<std::string> vanishing;
    std::vector<std::string> appearing;

    bool none() const { return vanishing.empty() && appearing.empty(); }
};

WordChanges wordsChangedByComposing(std::string_view line);

// A line that a command is about to recompose.
struct ComposedLine
{
    std::size_t number; // of the sound
    std::string_view text;
};

// The same for a command over many lines: asks once, with the sounds' numbers, about the lines that would
// lose or gain words. True when the command may go on with all of them.
bool confirmComposing(std::span<const ComposedLine> lines, Dialogs& dialogs);

// Asks before a command recomposes a line that would lose or gain words. True when the command may go on.
bool confirmComposing(std::string_view line, Dialogs& dialogs);

} // namespace tavrel
