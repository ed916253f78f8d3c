// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "backup/ImportFile.h"
#include "base/Dialogs.h"
#include "base/Progress.h"
#include "references/CurrentWad.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// Putting the lines of an exchange file or a backup back into the catalogue, in memory alone.
namespace tavrel {

// Asks for the file to read. Nothing when the user cancels.
std::optional<std::filesystem::path> chooseImportFile(const std::filesystem::path& programFolder,
                                                      Dialogs& dialogs);

struct ImportRequest
{
    const ImportFile& file; // its ticked rows
    CurrentWad wad;
    bool withSamples = false;
    std::vector<std::string> samples;    // the ticked names
    std::filesystem::path samplesFolder; // the level editor's
};

// A row as the window lists it.
std::string listedText(const ImportFile& file, std::size_t row);

// The names of the samples that a row offers to copy.
std::vector<std::string> offeredSamples(const ImportFile& file, std::size_t row);

// The samples that stand beside a backup stay there: why, and where they are.
BilingualText samplesOfBackup(const std::filesystem::path& backup);

// An import needs a current WAD with a letter; then the user is asked. True when applyImport() may follow.
bool confirmExchangeImport(const ImportRequest& request, Dialogs& dialogs);

struct ImportOutcome
{
    bool linesApplied = false;     // all of them, or none
    bool complete = false;         // the samples too
    std::optional<Message> report; // what the user has to know
};

ImportOutcome applyImport(SoundCatalogue& catalogue, const ImportRequest& request, Progress& progress);
// Both parts of it, for a caller that writes the lines to sounds.txt in between.
ImportOutcome importTickedLines(SoundCatalogue& catalogue, const ImportRequest& request);
// Tells the samples, too, that the lines name and the level editor lacks after that.
ImportOutcome copyImportedSamples(const ImportRequest& request, Progress& progress);

// "Import" or "Restore".
const Title& actionOf(ExchangeKind kind);

} // namespace tavrel
