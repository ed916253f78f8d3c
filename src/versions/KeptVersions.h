// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"
#include "base/Result.h"
#include "catalogue/SoundsVersions.h"
#include "versions/SoundPairing.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// What is kept of earlier states of the level editor's files.
namespace tavrel {

enum class KeptKind {
    Version,     // of sounds.txt, replaced by an apply
    First,       // Orig_Sounds.txt
    Copy,        // kept before there were versions, or beside them
    Replaced,    // put aside by a restore of the original files
    SamplesSet,  // a folder of samples that a restore put aside
    WadFilesSet, // the same with sound files of WADs
};

struct KeptVersion
{
    KeptKind kind = KeptKind::Version;
    std::filesystem::path path; // of a file or, of a set, of its folder
    std::string name;           // of the file or folder, code page bytes
    std::string time;           // "2026-11-21 15:30:05", local; of a version when it was replaced
    std::string wad;            // of a version, code page bytes
    std::size_t files = 1;

    bool isSet() const { return kind == KeptKind::SamplesSet || kind == KeptKind::WadFilesSet; }
};

struct KeptPlaces
{
    std::filesystem::path soundsFile;
    std::filesystem::path samplesFolder;
    std::filesystem::path wadsFolder;
};

// Newest first. Fails when a folder cannot be listed.
Result<std::vector<KeptVersion>> listKeptVersions(const KeptPlaces& places);

BilingualText describe(const KeptVersion& version);

// "12 lines" that differ from now, "497 files" of a set.
BilingualText extentOf(const KeptVersion& version, SoundLines now);

// How many sounds of a kept file are others now; none for a set, or for a file that holds no sound.
std::optional<std::size_t> differencesFromNow(const KeptVersion& version, SoundLines now);

// Puts a set into its folder again, whole. What is there now is put aside in its turn, and the set stays
// where it is, too.
[[nodiscard]] Problem bringBackSet(const KeptVersion& set, const KeptPlaces& places, Progress& progress);

} // namespace tavrel
