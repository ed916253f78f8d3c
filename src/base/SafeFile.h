// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <filesystem>
#include <string_view>

namespace tavrel {

// The one way in which this program writes a user's file: the new bytes go to a file beside the target, reach
// the disk, and take the target's place in one step. Whatever happens, the target is the old file or the new
// one, whole. Links are followed; a read-only target is refused, and one that is no file; one that another
// program holds is tried again for a moment.
[[nodiscard]] Problem writeFileSafely(const std::filesystem::path& target, std::string_view bytes);

// The same for a file that must not exist yet: whatever stands there under that name is never replaced.
[[nodiscard]] Problem createFileSafely(const std::filesystem::path& target, std::string_view bytes);

// A copy beside the file under a name that is free: "Sounds_copy1.txt" for "Sounds.txt".
Result<std::filesystem::path> keepCopyBeside(const std::filesystem::path& file, std::string_view bytes);

// Gives a file or folder a name that must be free.
[[nodiscard]] Problem moveSafely(const std::filesystem::path& from, const std::filesystem::path& to);

// What an interrupted write left in a folder, or beside the files to which links in the folder lead. Called
// at the start, when no write is under way: every process writes beside the target under the same name.
void removeUnfinishedWrites(const std::filesystem::path& folder);

} // namespace tavrel
