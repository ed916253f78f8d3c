// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/FolderFiles.h"

#include "base/FailureTexts.h"
#include "base/System.h"

#include <limits>

namespace tavrel {

namespace fs = std::filesystem;

Result<std::vector<FolderEntry>> filesIn(const fs::path& folder)
{
    std::error_code error;
    if (!fs::exists(folder, error) && !error) {
        return std::vector<FolderEntry>();
    }
    Result<std::vector<FolderEntry>> entries = listFolder(folder);
    if (entries) {
        std::erase_if(*entries,
                      [](const FolderEntry& entry) { return !entry.isFile || system::isHidden(entry.path); });
    }
    return entries;
}

Result<FolderSize> sizeOf(const std::vector<FolderEntry>& files)
{
    if (files.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
        return Failure{{"There are too many files.", "Il y a trop de fichiers."}};
    }
    std::uintmax_t bytes = 0;
    constexpr auto most = static_cast<std::uintmax_t>(std::numeric_limits<std::int32_t>::max());
    for (const FolderEntry& file : files) {
        std::error_code error;
        const std::uintmax_t size = fs::file_size(file.path, error);
        if (error) {
            return cannotRead(file.path, error);
        }
        if (size > most - bytes) {
            return Failure{{"The files are too large.", "Les fichiers sont trop grands."}};
        }
        bytes += size;
    }
    return FolderSize{static_cast<std::int16_t>(files.size()), static_cast<std::int32_t>(bytes)};
}

} // namespace tavrel
