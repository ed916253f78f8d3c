// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundCatalogue.h"
#include "references/LetterList.h"
#include "references/WadImport.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

// One of a WAD's samples or objects with one of its sounds.
struct WadViewRow
{
    std::string name;
    std::optional<std::size_t> sound; // none for a sample that no line uses, and for an object without sounds
    bool lacking = false;             // the sound does not carry the WAD's letter, or no line uses the sample
    bool changed = false;             // the line was changed for this WAD
};

// A WAD's lists against the catalogue.
struct WadView
{
    std::vector<WadViewRow> samples;
    std::vector<WadViewRow> objects;
    std::vector<WadViewRow> surplus; // sounds that carry the letter though neither list asks for them
    std::vector<Failure> notices;    // a list that is missing or cannot be read
};

WadView viewWad(const SoundCatalogue& catalogue, const CurrentWad& wad, const ImportFolders& folders);

} // namespace tavrel
