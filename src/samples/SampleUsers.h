// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/Result.h"
#include "catalogue/SoundCatalogue.h"
#include "references/ReferenceRegister.h"

#include <cstddef>
#include <filesystem>
#include <set>
#include <string_view>
#include <vector>

namespace tavrel {

// The sounds that use a sample (its name without ".wav", letter case aside), by number.
std::vector<std::size_t> soundsUsing(const SoundCatalogue& catalogue, std::string_view sample);

// "Used by 10 LARA_RICOCHET (#g), 79 WATERFALL (#oa - Oasis)", or that no sound uses it.
BilingualText usersText(const SoundCatalogue& catalogue, const ReferenceRegister& references,
                        std::string_view sample);

// The sounds that name a sample without a file in the folder.
Result<std::set<std::size_t>> soundsWithMissingSamples(const SoundCatalogue& catalogue,
                                                       const std::filesystem::path& folder);

} // namespace tavrel
