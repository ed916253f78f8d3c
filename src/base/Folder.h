// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <filesystem>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

struct FolderEntry
{
    std::string name;           // code page bytes
    bool exactName = true;      // false when the name has characters that the code page lacks
    std::filesystem::path path; // as it stands on the disk: what to open
    bool isFile = false;        // a regular one, or a link to one
};

// In the system's own order. A folder that cannot be listed is a failure; a missing one as well.
Result<std::vector<FolderEntry>> listFolder(const std::filesystem::path& folder);

// The file or folder of that name, compared without regard to letter case. Where a disk holds several, the
// exact name wins, then the first in byte order. The first looks in a listing that was made before.
std::optional<FolderEntry> findIn(const std::vector<FolderEntry>& entries, std::string_view name);
std::optional<std::filesystem::path> findEntry(const std::filesystem::path& folder, std::string_view name);
std::optional<std::filesystem::path> findFile(const std::filesystem::path& folder, std::string_view name);

// Whether the folder holds an entry of that name. Other than the two above, it tells a folder that cannot be
// listed from one that does not hold it.
Result<bool> holdsEntry(const std::filesystem::path& folder, std::string_view name);

// For a write that depends on the answer: a folder that cannot be listed may well hold the file.
Result<std::optional<FolderEntry>> lookUp(const std::filesystem::path& folder, std::string_view name);
// Where the file stands, or where it is to be created.
Result<std::filesystem::path> fileToWrite(const std::filesystem::path& folder, std::string_view name);

// A folder that is listed once, for many names.
class FolderIndex
{
public:
    static Result<FolderIndex> of(const std::filesystem::path& folder);

    // As findEntry() finds it.
    const FolderEntry* find(std::string_view name) const;
    // The entries whose names differ from it in nothing but their letter case.
    std::vector<std::filesystem::path> otherSpellings(std::string_view name) const;

private:
    struct Entry
    {
        std::string upperName;
        FolderEntry entry;
    };

    std::span<const Entry> sameNames(std::string_view name) const;

    std::vector<Entry> m_entries; // sorted by both names
};

// Before a file is written: fails when one of those files is read-only, as the file itself would be refused.
[[nodiscard]] Problem checkOtherSpellings(const FolderIndex& folder, const std::filesystem::path& file);
// After a file was written: removes files of that folder that differ from it in nothing but the letter case
// of their names, as they stood in the index. To the level editor all of them are one file. Nothing is
// removed when the folder does not list the file under its exact name, or when it cannot be told from the
// other.
void removeOtherSpellings(const FolderIndex& folder, const std::filesystem::path& file);

// Where the file stands, or where it would be created.
std::filesystem::path fileIn(const std::filesystem::path& folder, std::string_view name);

// False also where that cannot be told. The second is false for a link to a folder.
bool isFolder(const std::filesystem::path& path);
bool isTrueFolder(const std::filesystem::path& path);

// "Samples_old" for "Samples".
std::filesystem::path withEnding(std::filesystem::path path, std::string_view ending);

// The entry at the path, be it in another letter case; the path itself when there is none.
std::filesystem::path asOnDisk(const std::filesystem::path& path);

// Follows folder names without regard to letter case; from the first that is missing, the names as given.
std::filesystem::path folderIn(const std::filesystem::path& base,
                               std::initializer_list<std::string_view> names);

// A name that stays in its folder and that every system can store: no separator, no drive, no "..", no
// character or device name that Windows reserves.
bool isPlainFileName(std::string_view name);

} // namespace tavrel
