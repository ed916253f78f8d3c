// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Folder.h"
#include "base/Progress.h"
#include "base/Result.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

// The level editor's own files as they were installed, kept beside the program.
namespace tavrel {

// Bounded as the level editor's community knows these numbers: 16 and 32 bits.
struct FolderSize
{
    std::int16_t files = 0;
    std::int32_t bytes = 0;

    bool operator==(const FolderSize&) const = default;
};

struct ReferenceFolder
{
    std::string_view name; // in the program folder
    FolderSize size;       // of an untouched installation
};
constexpr ReferenceFolder samplesReference{"Samples_ORIG", {497, 12886344}};
constexpr ReferenceFolder sfxReference{"SFX_ORIG", {22, 43145}};

constexpr std::string_view stockLevels[] = {"catacomb", "city",    "cleopal", "coastal", "guard", "karnak",
                                            "library",  "newcity", "settomb", "title",   "tut1"};

// Every regular file that is not hidden. A missing folder has none; one that cannot be listed is a failure.
Result<std::vector<FolderEntry>> filesIn(const std::filesystem::path& folder);
// Those of the stock levels: each .sam in the order of the table, then each .sfx.
std::vector<FolderEntry> stockLevelFiles(const std::vector<FolderEntry>& files);
// A failure when a file cannot be looked at or a number is too small for its sum.
Result<FolderSize> sizeOf(const std::vector<FolderEntry>& files);

// Puts copies of the files into the folder, in the place of the old ones that are named and of those with the
// same names. The copies stand complete beside the folder ("Samples_incoming") before anything in it moves,
// and the old files stay beside it ("Samples_replaced"); what was kept there before gets a number and stays,
// too. On a failure the folder is as it was. A folder that is missing is created in its parent.
[[nodiscard]] Problem replaceFiles(const std::vector<FolderEntry>& files, const std::filesystem::path& folder,
                                   const std::vector<FolderEntry>& oldFiles, Progress& progress);

// Says where the files are when a run of replaceFiles() was killed after it had begun to move them; a new run
// works all the same.
[[nodiscard]] Problem cutShortReplacement(const std::filesystem::path& folder);

struct TakenCopies
{
    std::vector<BilingualText> said; // what was taken, and what was left and why
    bool complete = true;            // every reference copy is in place now
};
// Takes the reference copies out of a level editor folder: each only when it is untouched, which its number
// of files and bytes tell, or its number of sounds.
TakenCopies takeReferenceCopies(const std::filesystem::path& levelEditorFolder,
                                const std::filesystem::path& programFolder);

} // namespace tavrel
