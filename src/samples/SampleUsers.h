// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "catalogue/SoundCatalogue.h"
#include "references/ReferenceRegister.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace tavrel {

// The sounds that use a sample (its name without ".wav", letter case aside), by number.
std::vector<std::size_t> soundsUsing(const SoundCatalogue& catalogue, std::string_view sample);

// "Used by 10 LARA_RICOCHET (#g), 79 WATERFALL (#oa - Oasis)", or that no sound uses it.
BilingualText usersText(const SoundCatalogue& catalogue, const ReferenceRegister& references,
                        std::string_view sample);

} // namespace tavrel
