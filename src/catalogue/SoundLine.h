// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/FixedText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// One line of sounds.txt. The rules are the level editor's and this program's together: positions and
// substrings, no tokens. Several results look odd (values of two digits, R and N in one field, a last sample
// with nothing after it that gets lost) and are relied on. Lines are bytes in the system code page.
namespace tavrel {

struct SoundLine
{
    static constexpr std::size_t maximumSamples = 50;

    FixedText<24> Name;               // up to and including the first ":"; empty without one
    FixedText<32> SampleText;         // every sample followed by one blank, cut to the width
    std::vector<std::string> Samples; // at most 50; an empty entry ends the list that counts
    FixedText<8> Vol;                 // "VOL08", or empty
    FixedText<2> FlagP;
    FixedText<2> FlagV;
    FixedText<2> FlagRN; // "R" or "N"
    FixedText<2> FlagL;
    FixedText<8> Ch;     // "CH01", or empty
    FixedText<8> Pit;    // "PIT05", "PIT-05", or empty
    FixedText<8> Rad;    // "RAD08", or empty
    std::string Letters; // "#g #ab", or empty

    // The leading names that are not empty.
    std::size_t sampleCount() const;
    bool operator==(const SoundLine&) const = default;
    // Rebuilds SampleText from Samples.
    void refreshSampleText();
};

// Throws std::out_of_range for a line with more than 50 samples; takes any other text as it comes.
SoundLine ParseSoundLine(std::string_view line);

// The line in the layout in which the program writes sounds.txt.
std::string ComposeSoundLine(const SoundLine& record);

// Without the blanks at the end; a TAB there stays.
std::string_view RTrimBlanks(std::string_view text);

// Sign, padding up to `width` digits, digits. Throws std::invalid_argument for a value of more digits.
std::string FormatValue(int value, int width, char pad);

// Whether the flag stands as a word of its own at or after `start` (1-based). Judges the first place only,
// looking for a blank after the flag before it looks for a TAB.
bool HasFlag(std::string_view line, std::size_t start, char flag);

// The number at the front of the text: an optional "-", then digits; 0 without digits. At most nine digits
// count.
int leadingNumber(std::string_view text);

// Where the samples of the line end and its values are read from, 0-based: the separator behind the last name
// that counts. npos without samples: the line then has no values.
std::size_t samplesEnd(std::string_view line);

// Where the letters of the line begin, 0-based; npos without any.
std::size_t lettersStart(std::string_view line);

// Puts "#" and the letter (written without "#") at the end of the line, after one blank when other letters
// stand there. A line with "#g", or with the letter, stays as it is.
std::string AddLetter(std::string_view line, std::string_view letter);

// Takes the letter off the line and composes it anew; a line without the letter stays as it is. The search is
// for a substring, and one character on each side of the letter goes with it.
std::string RemoveLetter(std::string_view line, std::string_view letter);

// Whether both lines are read with the same number of samples. A line without samples reads what is put
// behind its name as one as soon as a blank follows.
bool haveSameSampleCount(std::string_view before, std::string_view after);

// As for a set of lines: the letter goes in front of the line's other letters, and the line is composed anew.
std::string AddLetterByRecord(std::string_view line, std::string_view letter);

} // namespace tavrel
