// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Taking lines of another catalogue, or parts of them, into this one.
namespace tavrel {

// Letters without "#": the other side's, then mine.
using LetterMap = std::vector<std::pair<std::string, std::string>>;

// "ab=oa, cd=kx", as a user types it; "#" and blanks are allowed.
Result<LetterMap> parseLetterMap(std::string_view text);

struct TakenParts
{
    bool wholeLine = true; // else the ones below, of which there is at least one
    bool values = false;   // and flags
    bool samples = false;
    bool letters = false;
    LetterMap letterMap = {};
};

// Mine with the parts of the other line. The whole line is the other one byte for byte, but for its letters
// where they are mapped; parts compose my line anew. Fails where the result would be read as something else.
Result<std::string> takeOver(std::string_view mine, std::string_view theirs, const TakenParts& parts);

struct TakenLine
{
    std::size_t number; // of my sound
    std::string_view theirs;
};

struct TakenLines
{
    std::vector<SoundCatalogue::LineChange> changes; // only lines that become others
    std::vector<Failure> refused;                    // why a line was not taken
};

// The catalogue itself stays as it is.
TakenLines takeLines(const SoundCatalogue& catalogue, std::span<const TakenLine> lines,
                     const TakenParts& parts);

// The samples of the lines, each once, of which the folder has no file.
std::vector<std::string> missingSamples(std::span<const SoundCatalogue::LineChange> changes,
                                        const std::filesystem::path& samplesFolder);

} // namespace tavrel
