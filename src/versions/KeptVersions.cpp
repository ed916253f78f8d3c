// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/KeptVersions.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/LocalTime.h"
#include "base/SafeFile.h"
#include "catalogue/ApplyChanges.h"
#include "generation/FolderFiles.h"
#include "generation/FolderReplacement.h"
#include "generation/ReferenceCopies.h"
#include "generation/RestoreDefaults.h"
#include "versions/CatalogueComparison.h"

#include <algorithm>
#include <array>
#include <charconv>
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

// Nothing for a file of another origin.
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

struct VersionFile
{
    VersionName name;
    FolderEntry entry;
};

bool isOlder(const VersionFile& left, const VersionFile& right)
{
    return std::tie(left.name.time, left.name.ordinal) < std::tie(right.name.time, right.name.ordinal);
}

// Oldest first.
Result<std::vector<VersionFile>> versionsIn(const fs::path& folder)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(folder);
    if (!entries) {
        return entries.failure();
    }
    std::vector<VersionFile> versions;
    for (const FolderEntry& entry : *entries) {
        std::optional<VersionName> name = entry.isFile ? readVersionName(entry.name) : std::nullopt;
        if (name) {
            versions.push_back({std::move(*name), entry});
        }
    }
    std::ranges::sort(versions, isOlder);
    return versions;
}

// Without any word when one cannot be removed: the next time it goes.
void removeOldVersions(const fs::path& folder, const fs::path& newest)
{
    const Result<std::vector<VersionFile>> versions = versionsIn(folder);
    if (!versions || versions->size() <= mostVersions) {
        return;
    }
    std::size_t surplus = versions->size() - mostVersions;
    for (const VersionFile& version : *versions) {
        // A clock that was set back makes the newest one look old.
        if (surplus > 0 && version.entry.path.filename() != newest.filename()) {
            std::error_code ignored;
            fs::remove(version.entry.path, ignored);
            --surplus;
        }
    }
}

std::string timeOf(const fs::path& file)
{
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(file, error);
    return error ? std::string()
                 : localTimeText(std::chrono::time_point_cast<std::chrono::system_clock::duration>(
                       std::chrono::file_clock::to_sys(time)));
}

// "Sounds_copy" and a number, or nothing behind it.
bool isNumbered(std::string_view name, std::string_view start)
{
    if (!sameName(name.substr(0, start.size()), start)) {
        return false;
    }
    name.remove_prefix(start.size());
    return name.empty() ||
           name.find_first_not_of("0123456789", name.starts_with('_') ? 1 : 0) == std::string_view::npos;
}

std::optional<KeptKind> kindOfFile(const FolderEntry& entry, const std::string& soundsStem)
{
    if (sameName(entry.name, firstBackupName)) {
        return KeptKind::First;
    }
    const std::size_t ending = entry.name.size() - std::min(entry.name.size(), versionEnding.size());
    if (!sameName(entry.name.substr(ending), versionEnding)) {
        return std::nullopt;
    }
    const std::string_view stem = std::string_view(entry.name).substr(0, ending);
    if (stem.size() > soundsStem.size() + 5 && isNumbered(stem, soundsStem + "_copy")) {
        return KeptKind::Copy;
    }
    const std::string_view replaced = replacedCatalogueName;
    return isNumbered(stem, replaced.substr(0, replaced.size() - versionEnding.size()))
               ? std::optional(KeptKind::Replaced)
               : std::nullopt;
}

Problem addFiles(std::vector<KeptVersion>& kept, const fs::path& soundsFile)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(soundsFile.parent_path());
    if (!entries) {
        return entries.failure();
    }
    const std::string stem = codePagePath(soundsFile.stem()).bytes;
    for (const FolderEntry& entry : *entries) {
        const std::optional<KeptKind> kind = entry.isFile ? kindOfFile(entry, stem) : std::nullopt;
        if (kind) {
            kept.push_back({*kind, entry.path, entry.name, timeOf(entry.path), {}, 1});
        }
    }
    const std::optional<FolderEntry> folder = findIn(*entries, versionsFolderName);
    if (!folder) {
        return std::nullopt;
    }
    const Result<std::vector<VersionFile>> versions = versionsIn(folder->path);
    if (!versions) {
        return versions.failure();
    }
    for (const VersionFile& version : *versions) {
        kept.push_back({KeptKind::Version, version.entry.path, version.entry.name, version.name.time,
                        version.name.wad, 1});
    }
    return std::nullopt;
}

// "Samples_replaced", "Samples_replaced_2": beside the folder.
Problem addSets(std::vector<KeptVersion>& kept, const fs::path& folder, KeptKind kind)
{
    const Result<std::vector<FolderEntry>> entries = listFolder(folder.parent_path());
    if (!entries) {
        return entries.failure();
    }
    const std::string start = codePagePath(folder.filename()).bytes + "_replaced";
    for (const FolderEntry& entry : *entries) {
        std::error_code ignored;
        if (!isNumbered(entry.name, start) || !fs::is_directory(entry.path, ignored)) {
            continue;
        }
        const Result<std::vector<FolderEntry>> files = filesIn(entry.path);
        if (!files) {
            return files.failure();
        }
        if (!files->empty()) {
            kept.push_back({kind, entry.path, entry.name, timeOf(entry.path), {}, files->size()});
        }
    }
    return std::nullopt;
}

fs::path withoutSeparator(const fs::path& folder)
{
    return folder.has_filename() ? folder : folder.parent_path();
}

} // namespace

Result<fs::path> keepVersion(const fs::path& soundsFile, std::string_view bytes, std::string_view wadName,
                             std::chrono::system_clock::time_point now)
{
    constexpr int mostInOneSecond = 999;
    const fs::path folder = fileIn(soundsFile.parent_path(), versionsFolderName);
    std::error_code error;
    fs::create_directory(folder, error);
    if (error) {
        return cannotWrite(folder, error);
    }
    VersionName name{localTimeText(now), 1, isPlainFileName(wadName) ? std::string(wadName) : std::string()};
    const Result<std::vector<VersionFile>> versions = versionsIn(folder);
    if (!versions) {
        return versions.failure();
    }
    for (const VersionFile& version : *versions) { // whatever the WAD, so that the order stays known
        name.ordinal = version.name.time == name.time ? version.name.ordinal + 1 : name.ordinal;
    }
    if (name.ordinal > mostInOneSecond) {
        return cannotWrite(folder, std::make_error_code(std::errc::file_exists));
    }
    const fs::path version = folder / nativePath(name.file());
    if (const Problem problem = createFileSafely(version, bytes)) {
        return *problem;
    }
    removeOldVersions(folder, version);
    return version;
}

Result<std::vector<KeptVersion>> listKeptVersions(const KeptPlaces& places)
{
    std::vector<KeptVersion> kept;
    Problem problem = addFiles(kept, places.soundsFile);
    if (!problem) {
        problem = addSets(kept, withoutSeparator(places.samplesFolder), KeptKind::SamplesSet);
    }
    if (!problem) {
        problem = addSets(kept, withoutSeparator(places.wadsFolder), KeptKind::WadFilesSet);
    }
    if (problem) {
        return *problem;
    }
    std::ranges::stable_sort(kept, [](const KeptVersion& left, const KeptVersion& right) {
        const auto ordinal = [](const KeptVersion& version) {
            const std::optional<VersionName> name = readVersionName(version.name);
            return name ? name->ordinal : 1;
        };
        return std::tuple(left.time, ordinal(left)) > std::tuple(right.time, ordinal(right));
    });
    return kept;
}

BilingualText describe(const KeptVersion& version)
{
    switch (version.kind) {
    case KeptKind::Version:
        return version.wad.empty()
                   ? BilingualText("Replaced by an apply", "Remplacée par une application")
                   : BilingualText("Replaced by an apply for ", "Remplacée par une application pour ") +
                         utf8FromCodePage(version.wad);
    case KeptKind::First:
        return {"Before the first apply", "Avant la première application"};
    case KeptKind::Copy:
        return {"Copy kept beside the file", "Copie conservée à côté du fichier"};
    case KeptKind::Replaced:
        return {"Put aside by a restore", "Mise de côté par une restauration"};
    case KeptKind::SamplesSet:
        return {"Samples put aside by a restore", "Samples mis de côté par une restauration"};
    default:
        return {"SAM/SFX files put aside by a restore", "Fichiers SAM/SFX mis de côté par une restauration"};
    }
}

BilingualText extentOf(const KeptVersion& version, SoundLines now)
{
    const auto counted = [](std::size_t count, const BilingualText& what) {
        return BilingualText::same(std::to_string(count)) + what;
    };
    if (version.isSet()) {
        return counted(version.files, version.files == 1 ? BilingualText(" file", " fichier")
                                                         : BilingualText(" files", " fichiers"));
    }
    const std::optional<std::size_t> differences = differencesFromNow(version, now);
    if (!differences) {
        return {"no sounds", "aucun son"};
    }
    return counted(*differences,
                   *differences == 1 ? BilingualText(" line", " ligne") : BilingualText(" lines", " lignes"));
}

std::optional<std::size_t> differencesFromNow(const KeptVersion& version, SoundLines now)
{
    if (version.isSet()) {
        return std::nullopt;
    }
    const Result<OtherCatalogue> other = readOtherCatalogue(version.path);
    return other ? std::optional(countDifferences(now, other->views())) : std::nullopt;
}

Problem bringBackSet(const KeptVersion& set, const KeptPlaces& places, Progress& progress)
{
    const bool areSamples = set.kind == KeptKind::SamplesSet;
    const fs::path& folder = withoutSeparator(areSamples ? places.samplesFolder : places.wadsFolder);
    const Result<std::vector<FolderEntry>> files = filesIn(set.path);
    if (!files) {
        return files.failure();
    }
    const Result<std::vector<FolderEntry>> present = filesIn(folder);
    if (!present) {
        return present.failure();
    }
    return replaceFiles(*files, folder, areSamples ? *present : stockLevelFiles(*present), progress);
}

} // namespace tavrel
