// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "samples/SamplePlayer.h"

#include <memory>

namespace tavrel {

// Windows plays by its own multimedia library, other systems by SDL.
std::unique_ptr<SamplePlayer> makeSystemPlayer();

} // namespace tavrel
