// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "base/Dialogs.h"
#include "samples/SamplePlayer.h"

#include <filesystem>

namespace tavrel {

// What a window of this subsystem gets when it opens.
struct SamplesContext
{
    Language language;
    ColourScheme colours;
    std::filesystem::path samplesFolder;
    Dialogs& dialogs;
    SamplePlayer& player;
};

} // namespace tavrel
