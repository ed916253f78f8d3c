// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/WadLists.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/QuotedRecords.h"
#include "base/TextFile.h"
#include "catalogue/ApplyChanges.h"

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t sampleEndingLength = 4;
constexpr std::uintmax_t largestList = 8U << 20U;

Failure noSuchList(const fs::path& wadFolder, std::string_view wadName, std::string_view ending)
{
    const std::string file = "[" + utf8FromCodePage(wadName) + std::string(ending) + "]";
    return {BilingualText("No " + file + " File\nin ", "Aucun Fichier " + file + "\ndans ") +
            displayPath(wadFolder / "")};
}

fs::path savedLinesFolder(const fs::path& programFolder)
{
    return fileIn(programFolder, changedLinesFolderName);
}

std::string savedLinesName(std::string_view wadName)
{
    return std::string(wadName) + ".tor";
}

// A number, a comma, and a text between quotes in which anything may stand.
std::optional<SavedLine> readSavedLine(std::string_view record)
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
    return SavedLine{static_cast<std::size_t>(*number), text->text};
}

bool fits(const SavedLine& saved, const SoundCatalogue& catalogue)
{
    const auto name = [](std::string_view line) { return line.substr(0, line.find(':') + 1); };
    return saved.number < catalogue.size() && SoundCatalogue::accepts(saved.text) &&
           name(saved.text) == name(catalogue.currentLine(saved.number));
}

bool isSeparator(char c)
{
    return c == ' ' || c == '\t';
}

} // namespace

Result<WadList> readWadList(const fs::path& wadFolder, std::string_view wadName, std::string_view ending)
{
    const std::optional<fs::path> path = findFile(wadFolder, std::string(wadName).append(ending));
    if (!path) {
        return noSuchList(wadFolder, wadName, ending);
    }
    std::error_code error;
    if (fs::file_size(*path, error) > largestList && !error) {
        return wrongContent(*path, {"The file is far too large for such a list.",
                                    "Le fichier est beaucoup trop gros pour une telle liste."});
    }
    const Result<TextFile> file = readTextFile(*path);
    if (!file) {
        return file.failure();
    }
    WadList list{*path, {}};
    std::size_t lineNumber = 0;
    for (const std::string_view line : file->lines()) {
        ++lineNumber;
        const auto fields = splitRecord(line);
        if (!fields) {
            return wrongLine(*path, lineNumber,
                             {"A double quote is not closed.", "Un guillemet n'est pas fermé."});
        }
        for (const RecordField& field : *fields) {
            list.values.push_back({field.text, lineNumber});
        }
    }
    return list;
}

std::string_view sampleOfValue(std::string_view value)
{
    return value.size() > sampleEndingLength ? value.substr(0, value.size() - sampleEndingLength)
                                             : std::string_view();
}

std::string_view objectOfValue(std::string_view value)
{
    const std::size_t colon = value.find(':');
    return colon == std::string_view::npos ? std::string_view() : value.substr(0, colon);
}

bool objectsMatch(std::string_view listed, std::string_view known)
{
    constexpr auto npos = std::string_view::npos;
    return !listed.empty() && !known.empty() && (listed.find(known) != npos || known.find(listed) != npos);
}

Result<SavedLines> readSavedLines(const fs::path& programFolder, std::string_view wadName,
                                  const SoundCatalogue& catalogue)
{
    SavedLines saved;
    if (!hasSavedLines(programFolder, wadName)) {
        return saved;
    }
    const Result<TextFile> file = readTextFile(savedLinesFolder(programFolder), savedLinesName(wadName));
    if (!file) {
        return file.failure();
    }
    std::size_t lineNumber = 0;
    for (const std::string_view record : file->lines()) {
        ++lineNumber;
        std::optional<SavedLine> line = readSavedLine(record);
        if (line && fits(*line, catalogue)) {
            saved.lines.push_back(std::move(*line));
        } else {
            saved.notices.push_back(
                wrongLine(file->path, lineNumber,
                          {"The saved line does not fit the catalogue. It is passed over.",
                           "La ligne enregistrée ne correspond pas au catalogue. Elle est "
                           "ignorée."}));
        }
    }
    return saved;
}

bool hasSavedLines(const fs::path& programFolder, std::string_view wadName)
{
    return isPlainFileName(wadName) &&
           findFile(savedLinesFolder(programFolder), savedLinesName(wadName)).has_value();
}

bool standsAsFirstWord(std::string_view line, std::string_view word)
{
    const std::size_t start = line.find(word);
    const std::size_t end = start + word.size();
    return start != std::string_view::npos && start > 0 && isSeparator(line[start - 1]) &&
           end < line.size() && isSeparator(line[end]);
}

} // namespace tavrel
