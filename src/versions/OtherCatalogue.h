// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "versions/SoundPairing.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// A line of a file that is no sound: a comment, a blank line.
struct PlainLine
{
    std::size_t beforeSound; // it stands before that one of the lines
    std::string text;
};

// What this catalogue is compared with: a file like sounds.txt, an exchange file or a backup.
struct OtherCatalogue
{
    std::filesystem::path file;
    std::vector<std::string> lines;
    std::vector<std::size_t> numbers; // of the sounds, a number for each line
    // Else the file holds some sounds alone, and the others are not missing in it.
    bool isComplete = true;
    std::vector<PlainLine> plainLines;
    // Where the samples of its lines are, when there is such a folder.
    std::optional<std::filesystem::path> samplesFolder;

    std::vector<std::string_view> views() const { return {lines.begin(), lines.end()}; }
};

// By the file's ending: .tox and .tob hold records, any other file lines. Fails when there is no sound in it.
Result<OtherCatalogue> readOtherCatalogue(const std::filesystem::path& file);

// The place in `lines` is the pair's "theirs". Sounds that an incomplete catalogue lacks are in no pair.
SoundPairing pairSounds(SoundLines mine, const OtherCatalogue& other);

} // namespace tavrel
