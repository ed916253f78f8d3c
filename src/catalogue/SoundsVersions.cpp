// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundsVersions.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/LocalTime.h"
#include "base/SafeFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <tuple>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view versionEnding = ".txt";

// "2026-11-21_15-30-05_oasis.txt"; the second one of that second is "2026-11-21_15-30-05.2_oasis.txt".
struct VersionName
{
    std::string time; // as it is shown
    int ordinal = 1;
    std::string wad;

    std::string file() const
    {
        std::string name = time;
        std::ranges::replace(name, ' ', '_');
        std::ranges::replace(name, ':', '-');
        name += ordinal > 1 ? "." + std::to_string(ordinal) : "";
        name += wad.empty() ? "" : "_" + wad;
        return name.append(versionEnding);
    }
};

// Empty for a file of another origin.
std::optional<VersionName> readVersionName(std::string_view file)
{
    constexpr std::string_view form = "0000-00-00_00-00-00";
    constexpr int mostOrdinals = 9999;
    const auto hasForm = [](char found, char wanted) {
        return wanted == '0' ? found >= '0' && found <= '9' : found == wanted;
    };
    if (file.size() < form.size() + versionEnding.size() || !file.ends_with(versionEnding) ||
        !std::ranges::equal(file.substr(0, form.size()), form, hasForm)) {
        return std::nullopt;
    }
    VersionName name;
    name.time = file.substr(0, form.size());
    constexpr std::array<std::pair<std::size_t, char>, 3> marks = {{{10, ' '}, {13, ':'}, {16, ':'}}};
    for (const auto& [place, mark] : marks) {
        name.time[place] = mark;
    }
    std::string_view rest = file.substr(form.size(), file.size() - form.size() - versionEnding.size());
    if (rest.starts_with('.')) {
        const auto [end, error] = std::from_chars(rest.data() + 1, rest.data() + rest.size(), name.ordinal);
        if (error != std::errc() || name.ordinal < 2 || name.ordinal > mostOrdinals) {
            return std::nullopt;
        }
        rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    }
    if (!rest.empty() && !rest.starts_with('_')) {
        return std::nullopt;
    }
    name.wad = rest.substr(rest.empty() ? 0 : 1);
    return name;
}

// Without any word when one cannot be removed: the next time it goes.
void removeOldVersions(const fs::path& folder, const fs::path& newest)
{
    const Result<std::vector<VersionFile>> versions = versionFilesIn(folder);
    if (!versions || versions->size() <= mostVersions) {
        return;
    }
    std::size_t surplus = versions->size() - mostVersions;
    for (const VersionFile& version : *versions) {
        // A clock that was set back makes the newest one look old.
        if (surplus > 0 && version.path.filename() != newest.filename()) {
            std::error_code ignored;
            fs::remove(version.path, ignored);
            --surplus;
        }
    }
}

} // namespace

Result<std::vector<VersionFile>> versionFilesIn(const fs::path& folder)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(folder);
    if (!entries) {
        return entries.failure();
    }
    std::vector<VersionFile> versions;
    for (const FolderEntry& entry : *entries) {
        std::optional<VersionName> name = entry.isFile ? readVersionName(entry.name) : std::nullopt;
        if (name) {
            versions.push_back(
                {entry.path, entry.name, std::move(name->time), name->ordinal, std::move(name->wad)});
        }
    }
    std::ranges::sort(versions, [](const VersionFile& left, const VersionFile& right) {
        return std::tie(left.time, left.ordinal) < std::tie(right.time, right.ordinal);
    });
    return versions;
}

Result<fs::path> nextVersion(const fs::path& soundsFile, std::string_view wadName,
                             std::chrono::system_clock::time_point now)
{
    constexpr int mostInOneSecond = 999;
    const fs::path folder = fileIn(soundsFile.parent_path(), versionsFolderName);
    VersionName name{localTimeText(now), 1, isPlainFileName(wadName) ? std::string(wadName) : std::string()};
    std::error_code error;
    if (!fs::exists(folder, error) && !error) {
        return folder / nativePath(name.file());
    }
    const Result<std::vector<VersionFile>> versions = versionFilesIn(folder);
    if (!versions) {
        return versions.failure();
    }
    for (const VersionFile& version : *versions) { // whatever the WAD, so that the order stays known
        name.ordinal = version.time == name.time ? version.ordinal + 1 : name.ordinal;
    }
    if (name.ordinal > mostInOneSecond) {
        return cannotWrite(folder, std::make_error_code(std::errc::file_exists));
    }
    return folder / nativePath(name.file());
}

Result<fs::path> keepVersion(const fs::path& soundsFile, std::string_view bytes, std::string_view wadName,
                             std::chrono::system_clock::time_point now)
{
    const fs::path folder = fileIn(soundsFile.parent_path(), versionsFolderName);
    std::error_code error;
    fs::create_directory(folder, error);
    if (error) {
        return cannotWrite(folder, error);
    }
    removeUnfinishedWrites(folder);
    Result<fs::path> version = nextVersion(soundsFile, wadName, now);
    if (!version) {
        return version;
    }
    if (const Problem problem = createFileSafely(*version, bytes)) {
        return *problem;
    }
    removeOldVersions(folder, *version);
    return version;
}

} // namespace tavrel
