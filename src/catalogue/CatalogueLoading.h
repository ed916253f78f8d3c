// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/TextFile.h"
#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace tavrel {

// A line of sounds.txt that is taken to hold another text than it does, until the changes are applied: a
// comment without its colon is no sound, a sound with the colon that it had lost is one.
struct LineReadOtherwise
{
    std::size_t lineInFile; // 1-based
    std::string text;
};

struct CatalogueSources
{
    std::filesystem::path programFolder; // holds the working files
    std::filesystem::path creatorFolder; // sound\LevelSFX Creator, holds sounds.txt
    bool protectedLinesEditable = false;
    // The catalogue then differs from the file, and its changes are pending.
    std::vector<LineReadOtherwise> readOtherwise = {};
};

struct LoadedCatalogue
{
    SoundCatalogue catalogue;
    std::vector<Failure> notices; // what was passed over, for the user to know
};

// Reads everything afresh. Any file that cannot be used fails the whole load, but for the object table, which
// then stays empty with a notice.
Result<LoadedCatalogue> loadCatalogue(const CatalogueSources& sources);

// The files of a catalogue once they were read.
struct CatalogueTexts
{
    TextFile sounds;
    TextFile originals;
    TextFile doubles;
    Result<TextFile> objects;
};
Result<LoadedCatalogue> parseCatalogue(const CatalogueTexts& texts, bool protectedLinesEditable,
                                       std::span<const LineReadOtherwise> readOtherwise = {});

// Reads only which sounds take part in an import; the lines stay. Gives the notices.
Result<std::vector<Failure>> reloadDoubles(SoundCatalogue& catalogue,
                                           const std::filesystem::path& programFolder);

// How many sounds a file like sounds.txt holds; a failure when one of its lines cannot be read.
Result<std::size_t> countSounds(const TextFile& file);

} // namespace tavrel
