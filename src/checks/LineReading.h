// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/LineWords.h"
#include "catalogue/SoundLine.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

enum class WordKind {
    Sample, // stands among the samples
    Value,  // looks like VOL, PIT, RAD or CH with a number, in any letter case
    Flag,
    Letter, // with its "#"
    Other
};

struct LineWord
{
    std::string_view text; // a piece of the line
    WordKind kind;
};

// A line as the checks read it: by the rules of the line, and word by word.
struct LineReading
{
    std::size_t sound;
    std::string_view line;
    SoundLine record;
    std::vector<LineWord> words; // behind the name
    std::vector<std::string> samples;
    std::vector<std::string> letters; // without "#"
    bool isComment = false;           // became a sound by its colon alone
    // Words that a check has named: the others leave them alone.
    std::vector<std::string> named;
    // Names of samples for which the line has too little room, and what stays of them.
    std::vector<std::string> cut;

    bool isNamed(std::string_view word) const;
};

LineReading readLine(std::size_t sound, std::string_view line);
std::vector<LineWord> wordsWithKinds(std::string_view line);

// The name without its colon.
std::string_view nameOf(std::string_view line);

// The first word of the line that looks like a value of that keyword, as it stands; empty for none.
std::string_view rawValueWord(std::string_view line, std::string_view keyword);

// The line without a word, which is a piece of it, and without one of two blanks around it, which would end a
// list of samples.
std::string withoutWord(std::string_view line, std::string_view word);

// The line with another word in the first place of a word; an empty one takes the word away.
std::string withWord(std::string_view line, std::string_view word, std::string_view replacement);

// The letters of a line that matter: without samples it has none, and beside #g all others are idle.
std::vector<std::string> effectiveLetters(const LineReading& reading);

// The line without the letter words for which `goes` is true.
template <typename Goes>
std::string withoutLetters(std::string line, Goes goes)
{
    std::size_t kept = 0; // letters that were looked at and stay
    for (;;) {
        std::size_t seen = 0;
        std::optional<LineWord> going;
        for (const LineWord& word : wordsWithKinds(line)) {
            if (word.kind != WordKind::Letter || seen++ < kept) {
                continue;
            }
            if (goes(word.text.substr(1))) {
                going = word;
                break;
            }
            ++kept;
        }
        if (!going) {
            return line.find('#') == std::string::npos ? line : std::string(RTrimBlanks(line));
        }
        line = withoutWord(line, going->text);
    }
}

// The line with another letter in the place of one, wherever it stands whole.
std::string withOtherLetter(std::string line, std::string_view before, std::string_view after);

} // namespace tavrel
