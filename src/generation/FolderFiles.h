// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Folder.h"
#include "base/Result.h"

#include <cstdint>
#include <filesystem>
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

} // namespace tavrel
