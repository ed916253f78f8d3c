// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "base/Progress.h"
#include "catalogue/SoundCatalogue.h"
#include "versions/KeptVersions.h"
#include "versions/OtherCatalogue.h"
#include "versions/TakeOver.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

// What the windows and the command line ask about, and say, when lines are taken over or brought back.
namespace tavrel {

struct TakeRequest
{
    const SoundCatalogue& catalogue;
    std::span<const TakenLine> lines;
    TakenParts parts;
    std::filesystem::path samplesFolder;               // mine
    std::optional<std::filesystem::path> theirSamples; // where the other side's are, when that is known
};

struct AgreedTake
{
    std::vector<SoundCatalogue::LineChange> changes;
    std::vector<std::string> samples; // to copy once the lines are taken
};

// Names lines that cannot be taken and samples that are missing, and asks what is to be asked. Changes
// nothing.
std::optional<AgreedTake> confirmTaking(const TakeRequest& request, Dialogs& dialogs);

// Copies samples that the folder does not have yet. What there is to say about it; nothing when all is well.
std::optional<Message> copyMissingSamples(std::span<const std::string> names,
                                          const std::filesystem::path& source,
                                          const std::filesystem::path& target, Progress& progress);

// The lines that a kept file changes, once the user agrees; protected ones, too, for the file had them so.
// Sounds that one side lacks are told. Nothing when no line differs.
std::optional<std::vector<SoundCatalogue::LineChange>>
confirmBringingBack(const SoundCatalogue& catalogue, const KeptVersion& version, Dialogs& dialogs);

// Asks, and brings a set back. True when it was done.
bool bringSetBack(const KeptVersion& set, const KeptPlaces& places, Progress& progress, Dialogs& dialogs);

} // namespace tavrel
