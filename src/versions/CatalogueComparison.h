// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundCatalogue.h"
#include "versions/LineDifference.h"
#include "versions/OtherCatalogue.h"
#include "versions/SoundPairing.h"

#include <vector>

namespace tavrel {

// Views of the lines, which must outlive them.
std::vector<std::string_view> currentLinesOf(const SoundCatalogue& catalogue);
std::vector<std::string_view> originalLinesOf(const SoundCatalogue& catalogue);

struct SoundDifference
{
    SoundPair sound;
    LineFields fields; // none where one of the lines is missing
};

struct CatalogueComparison
{
    SoundPairing pairing;
    std::vector<SoundDifference> differences; // in the order of the pairs
};

CatalogueComparison compareCatalogues(SoundLines mine, SoundLines theirs);
CatalogueComparison compareCatalogues(SoundLines mine, const OtherCatalogue& other);

// How many sounds differ, missing ones included.
std::size_t countDifferences(SoundLines mine, SoundLines theirs);

} // namespace tavrel
