// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "catalogue/ChangedLines.h"
#include "catalogue/SoundCatalogue.h"
#include "references/CurrentWad.h"
#include "references/WadLists.h"
#include "settings/Places.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

// Every import of objects gives it the letter, whatever the list holds.
constexpr std::size_t underwaterSound = 60;

// Letters that the saved lines take off a sound, without "#".
struct TakenLetters
{
    std::size_t sound;
    std::vector<std::string> letters;
};

// What an import would do, worked out on a copy: nothing changes before it is complete.
struct ImportPlan
{
    std::vector<SoundCatalogue::LineChange> changes;
    std::size_t linesWithNewLetter = 0;
    std::size_t linesThatHadLetter = 0;      // among those that the list asks for
    std::vector<std::size_t> putBack;        // sounds whose saved line differs from the current one
    std::vector<std::string> unknownSamples; // in the order of the list
    std::vector<std::string> unknownObjects; // each once
    std::vector<TakenLetters> takenLetters;  // of other levels
    std::vector<std::size_t> refusedLetter;  // sounds that cannot take it
    std::vector<Failure> notices;            // values and records that were passed over
};

// The saved lines of the WAD come back first; then every line that uses a listed sample, and that the doubles
// register lets take part, gets the letter.
ImportPlan planSamplesImport(const SoundCatalogue& catalogue, const ChangedLines& saved, const WadList& list,
                             const std::string& letter);
// The saved lines of the WAD come back first; then every sound of a listed object gets the letter. The sound
// of being under water always gets the letter.
ImportPlan planObjectsImport(const SoundCatalogue& catalogue, const ChangedLines& saved, const WadList& list,
                             const std::string& letter);

struct ImportResult
{
    bool imported = false;
    bool unreadable = false; // a file was missing or could not be read
    std::vector<std::string> unknownSamples;
};

// Gives the current WAD's letter to all that its list names, and says what was done. A question comes before,
// with the sounds that go back to their saved lines.
ImportResult importWadList(SoundCatalogue& catalogue, const CurrentWad& wad, WadListKind kind,
                           const Places& places, Dialogs& dialogs);

// "Import SAM (samples) file"
BilingualText importTitle(WadListKind kind);
// Why the settings forbid it.
BilingualText importForbidden();

} // namespace tavrel
