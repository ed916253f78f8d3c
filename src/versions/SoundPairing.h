// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

// Which sounds of two catalogues are the same one.
namespace tavrel {

using SoundLines = std::span<const std::string_view>;

struct SoundPair
{
    std::optional<std::size_t> mine; // at least one of the two is there
    std::optional<std::size_t> theirs;

    bool operator==(const SoundPair&) const = default;
};

struct SoundPairing
{
    // Every sound of both sides once, those of each side in their order.
    std::vector<SoundPair> pairs;
    // A line more or less has shifted the others: sounds are the same by their names. Else by their numbers.
    bool byName = false;
};

SoundPairing pairSounds(SoundLines mine, SoundLines theirs);

// "From sound 12 on, the other file has 1 line more; ..."; empty where sounds were paired by their numbers.
BilingualText shiftText(const SoundPairing& pairing);

} // namespace tavrel
