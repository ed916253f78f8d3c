// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "versions/SoundPairing.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

// Two catalogues that came from the same one, line by line.
namespace tavrel {

enum class MergeOutcome {
    Unchanged,
    Mine,   // only I changed it
    Theirs, // only they did
    Both,   // both made the same change
    Conflict
};

// Lines of one sound; none where a side does not have it.
MergeOutcome outcomeOf(std::optional<std::string_view> base, std::optional<std::string_view> mine,
                       std::optional<std::string_view> theirs);

// A sound that any of the three has. None for one that a side does not have.
struct MergedSound
{
    std::optional<std::size_t> base;
    std::optional<std::size_t> mine;
    std::optional<std::size_t> theirs;
    MergeOutcome outcome = MergeOutcome::Unchanged;
};

struct CatalogueMerge
{
    std::vector<MergedSound> sounds; // in the order of the merged catalogue
    BilingualText shift;             // of mine or theirs against the base; empty without one

    std::size_t conflicts() const;
};

// Lines that only one side changed, put in or took out become that side's; a conflict keeps mine.
CatalogueMerge mergeCatalogues(SoundLines base, SoundLines mine, SoundLines theirs);

// The line of the merged catalogue; none for a sound that is not in it.
std::optional<std::string_view> lineAfterMerge(const MergedSound& sound, SoundLines mine, SoundLines theirs);

} // namespace tavrel
