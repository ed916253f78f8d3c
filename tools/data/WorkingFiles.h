// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {

struct WorkingFile
{
    std::string name;
    std::string bytes;
};

// The rows of a table: fields between TABs, without the title row and the "//" comments. Throws
// std::runtime_error for a table that cannot be read.
std::vector<std::vector<std::string>> readTable(const std::filesystem::path& file);

// Tavrel.tos, .tow, .too and .tod from sounds.tsv, references.tsv and objects.tsv.
std::vector<WorkingFile> makeWorkingFiles(const std::filesystem::path& tables);

} // namespace tavrel
