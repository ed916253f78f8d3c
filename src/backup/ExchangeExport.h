// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "backup/ExchangeFile.h"
#include "base/Dialogs.h"
#include "base/Progress.h"
#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Writing lines of the catalogue, and their samples, to an exchange file or a backup. The catalogue is only
// read.
namespace tavrel {

enum class ExportMode {
    Modified,         // lines of the current WAD with other samples, values or flags than installed
    ModifiedAndAdded, // all lines of the current WAD
    All               // a backup of every line
};

// How the saved line stands to the current one.
enum class SavedAs {
    Same,
    Other, // with other letters, or without a text among them
    Cut    // at a "#" that does not open the letters: values are lost
};

struct ExportRow
{
    std::size_t number; // of the sound
    SoundLine record;   // of its current line
    std::string text;   // as it is listed
    std::string savedLine;
    SavedAs savedAs = SavedAs::Same;
};

// The lines of a mode, in the order of the catalogue. The letter (without "#") may stand anywhere in a line,
// its name and samples included, for the line to count as one of the WAD; an empty one stands in every line.
// An exchange file carries the letters of the line as it was installed, a backup those of the current line.
std::vector<ExportRow> listForExport(const SoundCatalogue& catalogue, ExportMode mode,
                                     std::string_view letter);

// What the window says about a mode.
const Title& captionOf(ExportMode mode);
BilingualText descriptionOf(ExportMode mode);
BilingualText columnTitleOf(ExportMode mode);

// Asks where to save. Nothing when the user cancels.
std::optional<std::filesystem::path> chooseExportFile(ExportMode mode, std::string_view wadName,
                                                      const std::filesystem::path& programFolder,
                                                      Dialogs& dialogs);

struct ExportRequest
{
    ExportMode mode = ExportMode::All;
    std::vector<ExportRow> rows; // the ticked ones
    std::filesystem::path file;
    bool withSamples = false;
    std::filesystem::path samplesFolder; // the level editor's
    std::filesystem::path catalogueFile;
    std::filesystem::path programFolder;
};

// Refuses the catalogue, the copy of it that the first apply has kept, and the program's own files, by
// whatever path they are reached. Then asks whatever there is to ask: lines that would be cut, lines that a
// backup would not keep as they are, a name that will be read as the other kind of file, a file that exists,
// or without one a samples folder with samples of something else. True when saveExport() may follow.
bool confirmExchangeExport(const ExportRequest& request, Dialogs& dialogs);

struct ExportOutcome
{
    bool saved = false;
    std::optional<Message> report; // what the user has to know
    std::size_t samplesCopied = 0;
};

// Writes the file, and its samples folder when asked to: both, or on a failure or a cancel neither of them.
// The one exception, a new file beside the old samples, is reported as such.
ExportOutcome saveExport(const ExportRequest& request, Progress& progress);

// The objects of a type in the object selection.
struct ObjectGroup
{
    static constexpr std::size_t mostGroups = 10;
    static constexpr std::size_t mostObjects = 41;

    std::string type;
    std::vector<const SoundObject*> objects;
};

// In the order of the object table; what is beyond the limits is left out.
std::vector<ObjectGroup> objectGroups(std::span<const SoundObject> objects);

// "370 lines listed - 12 lines selected"
BilingualText countOfLines(std::size_t listed, std::size_t ticked);

} // namespace tavrel
