// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/FolderFiles.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/System.h"
#include "base/TextFile.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <map>
#include <string>

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

Result<bool> haveSameFiles(const std::vector<FolderEntry>& left, const std::vector<FolderEntry>& right)
{
    if (left.size() != right.size()) {
        return false;
    }
    std::map<std::string_view, const FolderEntry*> names;
    for (const FolderEntry& entry : right) {
        names[entry.name] = &entry;
    }
    for (const FolderEntry& entry : left) {
        const auto found = names.find(entry.name);
        if (found == names.end()) {
            return false;
        }
        const Result<FileContent> ofLeft = readFile(entry.path);
        const Result<FileContent> ofRight = readFile(found->second->path);
        if (!ofLeft || !ofRight) {
            return !ofLeft ? ofLeft.failure() : ofRight.failure();
        }
        if (ofLeft->bytes != ofRight->bytes) {
            return false;
        }
    }
    return true;
}

fs::path nextNumberedName(const fs::path& start, std::string_view ending)
{
    const std::string stem = codePagePath(start.filename()).bytes + "_";
    unsigned highest = 0;
    const Result<std::vector<FolderEntry>> entries = listFolder(start.parent_path());
    for (const FolderEntry& entry : entries ? *entries : std::vector<FolderEntry>()) {
        const std::string_view name = entry.name;
        if (name.size() <= stem.size() + ending.size() || !sameName(name.substr(0, stem.size()), stem) ||
            !sameName(name.substr(name.size() - ending.size()), ending)) {
            continue;
        }
        const std::string_view digits = name.substr(stem.size(), name.size() - stem.size() - ending.size());
        unsigned number = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (error == std::errc() && end == digits.data() + digits.size()) {
            highest = std::max(highest, number);
        }
    }
    fs::path name = start;
    name += "_" + std::to_string(highest + 1);
    return name += ending;
}

} // namespace tavrel
