// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "base/Dialogs.h"
#include "catalogue/SoundCatalogue.h"
#include "versions/KeptVersions.h"

#include <functional>
#include <vector>

namespace tavrel {

// Of the colour scheme, for the lists of these windows.
inline constexpr std::size_t versionsColourSlot = 1;

// What the compare window and the window of earlier versions get when they open.
struct VersionsContext
{
    Language language;
    ColourScheme colours;
    const SoundCatalogue& catalogue;
    Dialogs& dialogs;
    KeptPlaces places;
    // Changes the lines in one step that has this name. False when it was refused, which the user knows then.
    std::function<bool(std::vector<SoundCatalogue::LineChange> changes, const BilingualText& step)> change;
    // Shows a sound in the main window.
    std::function<void(std::size_t number)> showSound = {};
    // Asks, and brings a put-aside set back, under the lock of the files. True when it was done.
    std::function<bool(const KeptVersion& set)> bringSetBack = {};
};

} // namespace tavrel
