// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "base/Progress.h"
#include "settings/Places.h"

#include <filesystem>
#include <functional>
#include <string_view>

namespace tavrel {

struct RestoreChoice
{
    bool catalogue = false;
    bool samples = false;
    bool sfx = false; // the .sam and .sfx files of the stock levels

    bool any() const { return catalogue || samples || sfx; }
};

// A message when nothing is chosen.
bool requireChoice(const RestoreChoice& choice, Dialogs& dialogs);

struct RestoreContext
{
    Places places;                      // the program folder holds the reference copies
    std::function<void()> stopPlayback; // a playing sample could not be moved
    Progress& progress;
    Dialogs& dialogs;
};

struct RestoreResult
{
    bool complete = false;
    bool catalogueReplaced = false; // also when a later step failed: the catalogue in memory is another
};

// Puts back what is chosen as it was when the level editor was installed, and says so. The first failure is
// said and ends it: what came before stays restored, what comes after is not begun.
RestoreResult restoreDefaults(const RestoreChoice& choice, const RestoreContext& context);

// Offers to load the restored catalogue, which loses changes that were not applied.
bool confirmReload(bool hasUnappliedChanges, const BilingualText& listOfThem, Dialogs& dialogs);

} // namespace tavrel
