// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ChangedLines.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/PassedOver.h"
#include "base/QuotedRecords.h"
#include "base/SafeFile.h"
#include "catalogue/SoundLine.h"

namespace tavrel {

namespace fs = std::filesystem;

namespace {

std::string fileNameFor(std::string_view wadName)
{
    return std::string(wadName) + ".tor";
}

// Quotes inside the text stand there as they are, but a record that splits into more than two fields is none.
std::optional<ChangedLine> readRecord(std::string_view record)
{
    const std::size_t comma = record.find(',');
    if (comma == std::string_view::npos) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> number = wholeNumber(record.substr(0, comma));
    const std::optional<RecordField> text = readSettingsValue(record.substr(comma + 1));
    if (!number || *number < 0 || !text || !text->quoted) {
        return std::nullopt;
    }
    const auto fields = splitRecord(record);
    if (fields && fields->size() > 2) {
        return std::nullopt;
    }
    return ChangedLine{static_cast<std::size_t>(*number), text->text};
}

bool fits(const ChangedLine& line, const SoundCatalogue& catalogue)
{
    const auto name = [](std::string_view text) { return text.substr(0, text.find(':') + 1); };
    return line.number < catalogue.size() && SoundCatalogue::accepts(line.text) &&
           name(line.text) == name(catalogue.currentLine(line.number));
}

// Whatever it is on the disk; nothing when there is none.
Result<std::optional<fs::path>> findChangedLines(const fs::path& programFolder, std::string_view wadName)
{
    const fs::path folder = fileIn(programFolder, changedLinesFolderName);
    std::error_code error;
    if (!isPlainFileName(wadName) || (!fs::exists(folder, error) && !error)) {
        return std::optional<fs::path>();
    }
    const Result<bool> held = holdsEntry(folder, fileNameFor(wadName));
    if (!held) {
        return held.failure();
    }
    return findEntry(folder, fileNameFor(wadName));
}

std::string textOf(const SoundCatalogue& catalogue)
{
    RecordWriter records;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        const std::string& current = catalogue.currentLine(k);
        if (ParseSoundLine(catalogue.originalLine(k)).SampleText != ParseSoundLine(current).SampleText) {
            records.number(static_cast<std::int64_t>(k)).text(current).endRecord();
        }
    }
    return records.bytes();
}

Problem writeText(const fs::path& programFolder, const std::string& wadName, const std::string& text)
{
    const Result<fs::path> folder = fileToWrite(programFolder, changedLinesFolderName);
    if (!folder) {
        return folder.failure();
    }
    std::error_code ignored;
    fs::create_directory(*folder, ignored);
    if (!isPlainFileName(wadName)) {
        return std::nullopt;
    }
    const Result<std::optional<FolderEntry>> old = lookUp(*folder, fileNameFor(wadName));
    if (!old) {
        return old.failure();
    }
    removeUnfinishedWrites(*folder);
    if (!text.empty()) {
        return writeFileSafely(*old ? (*old)->path : *folder / nativePath(fileNameFor(wadName)), text);
    }
    std::error_code error;
    if (*old && (*old)->isFile) {
        fs::remove((*old)->path, error);
    }
    return error ? Problem(cannotWrite((*old)->path, error)) : Problem();
}

} // namespace

Result<ChangedLines> readChangedLines(const fs::path& programFolder, std::string_view wadName,
                                      const SoundCatalogue& catalogue)
{
    const Result<std::optional<fs::path>> path = findChangedLines(programFolder, wadName);
    if (!path) {
        return path.failure();
    }
    if (!*path) {
        return ChangedLines();
    }
    const Result<TextFile> file = readTextFile(**path, largestLines);
    return file ? Result<ChangedLines>(parseChangedLines(*file, catalogue)) : file.failure();
}

ChangedLines parseChangedLines(const TextFile& file, const SoundCatalogue& catalogue)
{
    ChangedLines changed;
    PassedOver passedOver;
    std::size_t lineNumber = 0;
    for (const std::string_view record : file.lines()) {
        ++lineNumber;
        std::optional<ChangedLine> line = readRecord(record);
        if (line && fits(*line, catalogue)) {
            changed.lines.push_back(std::move(*line));
        } else {
            passedOver.add(lineNumber, record);
        }
    }
    passedOver.tell(file.path,
                    {"These saved lines do not match the catalogue and were ignored:",
                     "Ces lignes enregistrées ne correspondent pas au catalogue et ont été ignorées :"},
                    changed.notices);
    return changed;
}

bool hasChangedLines(const fs::path& programFolder, std::string_view wadName)
{
    const Result<std::optional<fs::path>> path = findChangedLines(programFolder, wadName);
    return !path || path->has_value();
}

Problem writeChangedLines(const fs::path& programFolder, const std::string& wadName,
                          const SoundCatalogue& catalogue)
{
    return writeText(programFolder, wadName, textOf(catalogue));
}

Result<bool> completeChangedLines(const fs::path& programFolder, const std::string& wadName,
                                  const SoundCatalogue& catalogue)
{
    const std::string text = textOf(catalogue);
    if (text.empty() || !isPlainFileName(wadName)) {
        return false;
    }
    const Result<std::optional<FolderEntry>> folder = lookUp(programFolder, changedLinesFolderName);
    if (!folder) {
        return folder.failure();
    }
    if (*folder) {
        const Result<bool> present = holdsEntry((*folder)->path, fileNameFor(wadName));
        if (!present || *present) {
            return present ? Result<bool>(false) : present.failure();
        }
    }
    if (Problem problem = writeText(programFolder, wadName, text)) {
        return *problem;
    }
    return true;
}

} // namespace tavrel
