// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"

#include <cstddef>
#include <optional>
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

// The words behind the name, in their order. A "#" starts a new word even without a blank before it.
std::vector<std::string_view> wordsBehindName(std::string_view line);

// A word of the shape of a value: its keyword in capitals, how it stands, its digits.
struct ValueWord
{
    std::string_view keyword;
    bool inCapitals;
    std::string_view sign;
    std::string_view digits;

    bool isZero() const;
};
std::optional<ValueWord> readValueWord(std::string_view word);

// One spelling for words of one value: VOL8 and VOL08, PIT-0 and PIT00.
std::string comparableWord(std::string_view word);

WordChanges wordsChangedByComposing(std::string_view line);

// Whether two lines say the same, whatever stands between their words and in whichever order.
bool haveSameWords(std::string_view left, std::string_view right);

// Words of a line as a message shows them: "[foot01] [VOL50]", the first of many.
std::string listedWords(const std::vector<std::string>& words);

// A line that a command is about to recompose.
struct ComposedLine
{
    std::size_t number; // of the sound
    std::string_view text;
};

// Asks before a command recomposes a line that would lose or gain words. True when the command may go on.
bool confirmComposing(std::string_view line, Dialogs& dialogs);
// Asks once, with the sounds' numbers, before a command recomposes many lines. True when the command may go
// on with all of them.
bool confirmComposing(std::span<const ComposedLine> lines, Dialogs& dialogs);

} // namespace tavrel
