// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/TextFile.h"
#include "catalogue/ObjectTable.h"
#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// The lists that the level editor writes beside a WAD, and the program's own record of lines that were
// changed for it. All texts are code page bytes.
namespace tavrel {

enum class WadListKind { Samples, Objects };

// ".SAM" or ".WAS"
std::string_view endingOf(WadListKind kind);

// A .SAM or .WAS file: values between commas and line ends, a quoted one with its commas.
struct WadList
{
    std::filesystem::path path;
    std::vector<std::string> names; // of samples without their ending, or of objects; in the file's order
    std::vector<Failure> notices;   // values that were passed over
};

// "No [name.SAM] File" when the WAD's folder holds none; any other trouble names the file.
Result<WadList> readWadList(const std::filesystem::path& wadFolder, std::string_view wadName,
                            WadListKind kind);
Result<WadList> parseWadList(const TextFile& file, WadListKind kind);

// Names of objects match when one contains the other.
bool objectsMatch(std::string_view listed, std::string_view known);

// The sounds of the catalogue that a listed object plays, each once.
std::vector<std::size_t> soundsOfListedObject(const SoundCatalogue& catalogue, std::string_view listed);

// Whether the word's first place in the line stands between two separators (blank or TAB).
bool standsAsFirstWord(std::string_view line, std::string_view word);

// Finds the lines that use a sample without looking at every line.
class SampleUses
{
public:
    explicit SampleUses(std::vector<std::string> lines);
    void setLine(std::size_t number, const std::string& line);

    // In ascending order.
    std::vector<std::size_t> of(std::string_view sample) const;

private:
    void addWords(std::size_t number);

    std::vector<std::string> m_lines;
    std::vector<std::size_t> m_allNumbers;
    std::unordered_map<std::string, std::vector<std::size_t>> m_linesWithWord;
};

} // namespace tavrel
