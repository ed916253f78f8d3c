// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Folder.h"
#include "generation/FolderFiles.h"

#include <filesystem>
#include <string_view>
#include <vector>

// The level editor's own files as they were installed, kept beside the program.
namespace tavrel {

struct ReferenceFolder
{
    std::string_view name; // in the program folder
    FolderSize size;       // of an untouched installation
};
constexpr ReferenceFolder samplesReference{"Samples_ORIG", {497, 12886344}};
constexpr ReferenceFolder sfxReference{"SFX_ORIG", {22, 43145}};

constexpr std::string_view stockLevels[] = {"catacomb", "city",    "cleopal", "coastal", "guard", "karnak",
                                            "library",  "newcity", "settomb", "title",   "tut1"};

// Those of the stock levels: each .sam in the order of the table, then each .sfx.
std::vector<FolderEntry> stockLevelFiles(const std::vector<FolderEntry>& files);

struct TakenCopies
{
    std::vector<BilingualText> notes; // what was taken, and what was left and why
    bool complete = true;             // every reference copy is in place now
};
// Takes the reference copies out of a level editor folder: each only when it is untouched, which its number
// of files and bytes tell, or its number of sounds.
TakenCopies takeReferenceCopies(const std::filesystem::path& levelEditorFolder,
                                const std::filesystem::path& programFolder);

} // namespace tavrel
