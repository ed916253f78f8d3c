// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "backup/ExchangeFile.h"
#include "base/Dialogs.h"
#include "base/Progress.h"
#include "catalogue/SoundCatalogue.h"
#include "references/LetterList.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Putting the lines of an exchange file or a backup back into the catalogue, in memory alone.
namespace tavrel {

// What an import makes of a line: the file's name, samples and values with the letters of the current line,
// and the current WAD's letter. A current line without letters keeps those of the file. The letter counts as
// there when the current line holds "#" and the letter anywhere, be it as a part of a longer one; an empty
// one is never added.
std::string mergedLine(std::string_view fileLine, std::string_view currentLine, std::string_view letter);

struct ImportRow
{
    std::int64_t id = -1;
    std::string idText;    // as it is shown
    std::string line;      // as the file holds it
    std::string result;    // what the catalogue's line would become, or has become
    BilingualText refusal; // why it cannot be applied
    BilingualText remark;  // what to look at before it is

    bool applied = false; // in the catalogue; not merged a second time

    bool applicable() const { return refusal.empty(); }
};

struct ImportFile
{
    std::filesystem::path path;
    ExchangeKind kind = ExchangeKind::Exchange;
    std::vector<ImportRow> rows;
    std::optional<std::filesystem::path> samplesFolder = {}; // of an exchange file
    std::vector<Failure> notices = {};                       // about the file as a whole
};

// Reads all of the file or, when a record is damaged, fails with its line.
Result<ImportFile> readImportFile(const std::filesystem::path& file, const SoundCatalogue& catalogue,
                                  std::string_view letter);
// The same without a look at the folder for samples.
Result<ImportFile> parseImportFile(const TextFile& text, const SoundCatalogue& catalogue,
                                   std::string_view letter);

// Makes the results and remarks anew for other ticked rows, in order: a row builds on what the ticked ones
// before it make of its line.
void foresee(ImportFile& file, std::span<const std::size_t> ticked, const SoundCatalogue& catalogue,
             std::string_view letter);
// After importLines(): these rows are done. What is asked for again concerns their samples alone.
void markApplied(ImportFile& file, std::span<const std::size_t> rows, const SoundCatalogue& catalogue,
                 std::string_view letter);

// Asks for the file to read. Nothing when the user cancels.
std::optional<std::filesystem::path> chooseImportFile(const std::filesystem::path& programFolder,
                                                      Dialogs& dialogs);

struct ImportRequest
{
    const ImportFile& file;
    std::vector<std::size_t> rows; // the ticked ones, in order
    CurrentWad wad;
    bool withSamples = false;
    std::vector<std::string> samples;    // the ticked names
    std::filesystem::path samplesFolder; // the level editor's
};

// What a row's line holds: made when it is asked for, as a file may have hundreds of thousands of rows.
std::optional<SoundLine> recordOf(const ImportRow& row);
// As the window lists it.
std::string listedText(const ImportRow& row);

// The names of the samples that a row offers to copy.
std::vector<std::string> offeredSamples(const ImportRow& row);

// The samples that stand beside a backup stay there: why, and where they are.
BilingualText samplesOfBackup(const std::filesystem::path& backup);

// An import needs a current WAD with a letter; then the user is asked. True when applyImport() may follow.
bool confirmImport(const ImportRequest& request, Dialogs& dialogs);

struct ImportOutcome
{
    bool linesApplied = false;     // all of them, or none
    bool complete = false;         // the samples too
    std::optional<Message> report; // what the user has to know
};

ImportOutcome applyImport(SoundCatalogue& catalogue, const ImportRequest& request, Progress& progress);
// The same in two steps, for a caller that writes the lines to sounds.txt in between.
ImportOutcome importLines(SoundCatalogue& catalogue, const ImportRequest& request);
// Tells the samples, too, that the lines name and the level editor lacks after that.
ImportOutcome copyImportedSamples(const ImportRequest& request, Progress& progress);

// A field of a line as the file has it, as the catalogue has it, and as it would become.
struct FieldComparison
{
    enum Line : std::size_t { file, catalogue, result, lines };

    BilingualText field;
    std::array<std::string, lines> values; // empty where there is no line to read
    bool differs = false;                  // file and catalogue
    bool changes() const { return values[result] != values[catalogue]; }
};
std::vector<FieldComparison> compareWithCatalogue(const ImportRow& row, const SoundCatalogue& catalogue);

// "Import" or "Restore".
BilingualText actionOf(ExchangeKind kind);

} // namespace tavrel
