// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <system_error>

namespace tavrel {

// The one way in which this program writes a user's file: the new bytes go to a file beside the target, reach
// the disk, and take the target's place in one step. Whatever happens, the target is the old file or the new
// one, whole, with the rights of the old one. Links are followed; a read-only target is refused, and one that
// is no file; one that another program holds is tried again for a moment.
[[nodiscard]] Problem writeFileSafely(const std::filesystem::path& target, std::string_view bytes);

// Writes as writeFileSafely() does, but asks in the last moment, when nothing but the step itself is left.
// False when the answer was no: the target was not touched.
Result<bool> writeFileIf(const std::filesystem::path& target, std::string_view bytes,
                         const std::function<bool()>& mayReplace);

// Puts a file in the place of a link: what the link leads to stays as it is.
[[nodiscard]] Problem replaceLinkSafely(const std::filesystem::path& link, std::string_view bytes);

// Writes a file that must not exist yet: whatever stands there under that name is never replaced. A copy of a
// file has the rights of that file.
[[nodiscard]] Problem createFileSafely(const std::filesystem::path& target, std::string_view bytes,
                                       const std::optional<std::filesystem::path>& copied = std::nullopt);

// A copy beside the file under a name that is free: "Sounds_copy1.txt" for "Sounds.txt".
Result<std::filesystem::path> keepCopyBeside(const std::filesystem::path& file, std::string_view bytes);
// The name that the next such copy gets, as far as anybody can know.
std::filesystem::path nextCopyBeside(const std::filesystem::path& file);

// Returns once the file's bytes are on the disk. Whoever looks at the fresh file just now is waited for.
std::error_code flushSafely(const std::filesystem::path& file);

// A name beside the target that nobody else takes, of this machine or another. What is left under such a name
// is from a run that was cut short.
std::filesystem::path unfinishedName(const std::filesystem::path& target);
// Folders beside the target under such names, none of them a link, that are old enough to be left over for
// certain.
void removeUnfinishedFolders(const std::filesystem::path& target);

// Gives a file or folder a name that must be free.
[[nodiscard]] Problem moveSafely(const std::filesystem::path& from, const std::filesystem::path& to);

// Where a file really lies: links are followed, and the last one may lead to nothing.
std::error_code followLinks(std::filesystem::path& file);

// What interrupted writes left in a folder, or beside the files to which links in the folder lead. All of it
// is for whoever has the folder's lock; without a lock, what is old enough is left over for certain.
enum class Unfinished { All, OlderThanADay };
void removeUnfinishedWrites(const std::filesystem::path& folder, Unfinished which = Unfinished::All);

} // namespace tavrel
