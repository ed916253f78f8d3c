// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Folder.h"
#include "base/Result.h"

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace tavrel {

// Every regular file that is not hidden. A missing folder has none; one that cannot be listed is a failure.
Result<std::vector<FolderEntry>> filesIn(const std::filesystem::path& folder);

// Bounded as the level editor's community knows these numbers: 16 and 32 bits.
struct FolderSize
{
    std::int16_t files = 0;
    std::int32_t bytes = 0;

    bool operator==(const FolderSize&) const = default;
};

// A failure when a file cannot be looked at or a number is too small for its sum.
Result<FolderSize> sizeOf(const std::vector<FolderEntry>& files);

// Whether both hold the same names with the same bytes. A failure when a file cannot be read.
Result<bool> haveSameFiles(const std::vector<FolderEntry>& left, const std::vector<FolderEntry>& right);

// "Samples_replaced_3" beside "Samples_replaced_1" and "Samples_replaced_2": what is put aside is numbered by
// its age, and a number that has become free is not used again while a higher one is there.
std::filesystem::path nextNumberedName(const std::filesystem::path& start, std::string_view ending = {});

} // namespace tavrel
