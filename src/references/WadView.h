// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundCatalogue.h"
#include "references/CurrentWad.h"
#include "references/WadListImport.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

enum class WadViewMark {
    None,
    Lacking, // the sound does not carry the WAD's letter, or no line uses the sample
    LeftOut  // without the letter, for the doubles register leaves the sound out of imports
};

// One of a WAD's samples or objects with one of its sounds.
struct WadViewRow
{
    std::string name;                 // empty for the sound that every import of objects takes in
    std::optional<std::size_t> sound; // none for a sample that no line uses, and for an object without sounds
    WadViewMark mark = WadViewMark::None;
    bool saved = false; // the line is among those saved for this WAD
};

// The rows of a list of the WAD; nothing when it is missing or cannot be read.
using WadViewRows = std::optional<std::vector<WadViewRow>>;

// A WAD's lists against the catalogue.
struct WadView
{
    WadViewRows samples;
    WadViewRows objects;
    WadViewRows surplus; // sounds with the letter though neither list asks for them; needs both lists
    std::vector<Failure> notices;
};

WadView viewWad(const SoundCatalogue& catalogue, const CurrentWad& wad, const Places& places);

} // namespace tavrel
