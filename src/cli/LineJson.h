// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundLine.h"
#include "cli/Json.h"

namespace tavrel {

// The fields of a sound line, texts without their padding, samples up to the first empty one.
void appendRecord(JsonObject& object, const SoundLine& record);

} // namespace tavrel
