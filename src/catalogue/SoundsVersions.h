// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// What each apply keeps of the sounds.txt that it replaces.
namespace tavrel {

constexpr std::size_t mostVersions = 100;

// The name of a version that is kept at that time for that WAD (which may be empty), in its folder.
Result<std::filesystem::path> nextVersion(const std::filesystem::path& soundsFile, std::string_view wadName,
                                          std::chrono::system_clock::time_point now);

// Keeps the bytes of a sounds.txt that is about to be replaced as its next version. For whoever has the lock
// of the files. Older versions beyond the last hundred go, never the new one. Gives its path.
Result<std::filesystem::path>
keepVersion(const std::filesystem::path& soundsFile, std::string_view bytes, std::string_view wadName,
            std::chrono::system_clock::time_point now = std::chrono::system_clock::now());

struct VersionFile
{
    std::filesystem::path path;
    std::string name; // of the file, code page bytes
    std::string time; // "2026-11-21 15:30:05", local
    int ordinal = 1;  // among those of one second
    std::string wad;  // code page bytes
};

// Oldest first; files of another origin are left out.
Result<std::vector<VersionFile>> versionFilesIn(const std::filesystem::path& folder);

} // namespace tavrel
