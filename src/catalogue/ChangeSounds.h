// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "base/Result.h"
#include "catalogue/LineEdit.h"
#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

// One command on many sounds: one step of the history, one question, one report. A single sound is the case
// of one.
namespace tavrel {

struct SoundsChange
{
    BilingualText label; // of the step
    Title title;         // of messages and the question
    // The line as it shall be, or why it stays as it is. Not called for protected lines.
    std::function<Result<std::string>(std::size_t number)> rewrite;
    // The lines are read and written anew, and may lose words that the grammar does not read: the user is
    // asked about those that do.
    bool composes = false;
};

struct SoundsChanged
{
    struct LeftOut
    {
        std::size_t number = 0;
        BilingualText why;
    };

    bool agreed = true; // else nothing was changed
    std::size_t changed = 0;
    std::vector<std::size_t> isProtected;
    std::vector<LeftOut> refused;

    // "9 lines changed; left out: 27, 59 (protected)"
    BilingualText report() const;
};

SoundsChanged changeSounds(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                           const SoundsChange& change, Dialogs& dialogs);

// The lines that refused, in a message; nothing when there are none.
void tellRefused(const SoundsChanged& changed, const Title& title, Dialogs& dialogs);

// What the details of a question list: "12: METAL_SCRAPE_LOOP", a row for each.
BilingualText listedSounds(const SoundCatalogue& catalogue, std::span<const std::size_t> numbers);

// The line of the edited record. Refused when its values or letters would be read as a sample.
Result<std::string> composeEdited(const SoundLine& record);

// The edit on all of the sounds. Those that it leaves as they are keep their lines byte for byte, unless it
// changes none: then all are written anew.
SoundsChanged editSounds(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                         const LineEdit& edit, const Title& title, Dialogs& dialogs);

// "Accept values, 12: METAL_SCRAPE_LOOP" or "Accept values, 10 sounds"
BilingualText stepLabel(const BilingualText& command, const SoundCatalogue& catalogue,
                        std::span<const std::size_t> numbers);

} // namespace tavrel
