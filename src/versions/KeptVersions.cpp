// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/KeptVersions.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/LocalTime.h"
#include "catalogue/ApplyChanges.h"
#include "generation/FolderFiles.h"
#include "generation/FolderReplacement.h"
#include "generation/ReferenceCopies.h"
#include "generation/RestoreDefaults.h"
#include "versions/CatalogueComparison.h"

#include <algorithm>
#include <functional>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view textEnding = ".txt";

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
    const std::size_t ending = entry.name.size() - std::min(entry.name.size(), textEnding.size());
    if (!sameName(entry.name.substr(ending), textEnding)) {
        return std::nullopt;
    }
    const std::string_view stem = std::string_view(entry.name).substr(0, ending);
    if (stem.size() > soundsStem.size() + 5 && isNumbered(stem, soundsStem + "_copy")) {
        return KeptKind::Copy;
    }
    const std::string_view replaced = replacedCatalogueName;
    return isNumbered(stem, replaced.substr(0, replaced.size() - textEnding.size()))
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
    const Result<std::vector<VersionFile>> versions = versionFilesIn(folder->path);
    if (!versions) {
        return versions.failure();
    }
    for (const VersionFile& version : *versions) {
        kept.push_back({KeptKind::Version, version.path, version.name, version.time, version.wad, 1});
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
        if (!isNumbered(entry.name, start) || !isFolder(entry.path)) {
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
    // Versions of one second stand in their order already.
    std::ranges::reverse(kept);
    std::ranges::stable_sort(kept, std::ranges::greater(), &KeptVersion::time);
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
    if (version.isSet()) {
        return counted(version.files, {"file", "fichier"}, {"files", "fichiers"});
    }
    const std::optional<std::size_t> differences = differencesFromNow(version, now);
    if (!differences) {
        return {"no sounds", "aucun son"};
    }
    return countedLines(*differences);
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
