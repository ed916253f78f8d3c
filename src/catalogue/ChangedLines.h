// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TextFile.h"
#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// sounds\<WAD>.tor in the program folder: a WAD's lines whose samples differ from those of the original
// catalogue, as they were when it was applied last. A record is a number, a comma, and the line between
// quotes.
namespace tavrel {

struct ChangedLine
{
    std::size_t number = 0;
    std::string text;
};

struct ChangedLines
{
    std::vector<ChangedLine> lines;
    std::vector<Failure> notices; // records that do not fit the catalogue
};

// Where there is nothing to read there are none; a folder that cannot be listed is a failure.
Result<ChangedLines> readChangedLines(const std::filesystem::path& programFolder, std::string_view wadName,
                                      const SoundCatalogue& catalogue);
ChangedLines parseChangedLines(const TextFile& file, const SoundCatalogue& catalogue);
// Also true when that cannot be told.
bool hasChangedLines(const std::filesystem::path& programFolder, std::string_view wadName);

// The catalogue's lines take the place of the file; without any, the file goes. Nothing is written for a name
// that is no plain file name.
[[nodiscard]] Problem writeChangedLines(const std::filesystem::path& programFolder,
                                        const std::string& wadName, const SoundCatalogue& catalogue);
// Writes the file when it is missing though there are lines for it: an apply was cut short before it. For a
// catalogue that is as sounds.txt is. True when it was written.
Result<bool> completeChangedLines(const std::filesystem::path& programFolder, const std::string& wadName,
                                  const SoundCatalogue& catalogue);

} // namespace tavrel
