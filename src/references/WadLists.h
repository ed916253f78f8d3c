// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "catalogue/ObjectTable.h"
#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// The lists that the level editor writes beside a WAD, and the program's own record of lines that were
// changed for it. All texts are code page bytes.
namespace tavrel {

struct ListedValue
{
    std::string text;
    std::size_t line; // 1-based
};

// A .SAM or .WAS file: values between commas and line ends, a quoted one with its commas.
struct WadList
{
    std::filesystem::path path;
    std::vector<ListedValue> values;
};

// "No [name.SAM] File" when the WAD's folder holds none; any other trouble names the file. `ending` is ".SAM"
// or
// ".WAS".
Result<WadList> readWadList(const std::filesystem::path& wadFolder, std::string_view wadName,
                            std::string_view ending);

// The sample that a value of a .SAM file names: without the four characters of its ending. Empty for a value
// that is no longer than that.
std::string_view sampleOfValue(std::string_view value);
// The object that a value of a .WAS file names: what stands before the first ":". Empty without one.
std::string_view objectOfValue(std::string_view value);

// Names of objects match when one contains the other.
bool objectsMatch(std::string_view listed, std::string_view known);

// A line of sounds\<WAD>.tor.
struct SavedLine
{
    std::size_t number;
    std::string text;
};
struct SavedLines
{
    std::vector<SavedLine> lines;
    std::vector<Failure> notices; // records that do not fit the catalogue
};
// Nothing to read is no trouble.
Result<SavedLines> readSavedLines(const std::filesystem::path& programFolder, std::string_view wadName,
                                  const SoundCatalogue& catalogue);
bool hasSavedLines(const std::filesystem::path& programFolder, std::string_view wadName);

// Whether the word's first place in the line stands between two separators (blank or TAB).
bool standsAsFirstWord(std::string_view line, std::string_view word);

} // namespace tavrel
