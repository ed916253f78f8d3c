// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueLoading.h"

#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "catalogue/SoundLine.h"

#include <algorithm>
#include <span>
#include <stdexcept>

namespace tavrel {

namespace {

struct NumberedLine
{
    std::string text;
    std::size_t lineInFile; // 1-based
};

// The sound lines of a file: those with ":". Blanks after the letters are noise; a line without letters keeps
// its own.
std::vector<NumberedLine> soundLines(const TextFile& file,
                                     std::span<const LineReadOtherwise> readOtherwise = {})
{
    std::vector<NumberedLine> result;
    std::size_t lineNumber = 0;
    for (std::string_view line : file.lines()) {
        ++lineNumber;
        const auto other = std::ranges::find(readOtherwise, lineNumber, &LineReadOtherwise::lineInFile);
        if (other != readOtherwise.end()) {
            line = other->text;
        }
        if (line.find('#') != std::string_view::npos) {
            line = RTrimBlanks(line);
        }
        if (line.find(':') != std::string_view::npos) {
            result.push_back({std::string(line), lineNumber});
        }
    }
    return result;
}

Problem firstUnreadableLine(const TextFile& file, const std::vector<NumberedLine>& lines)
{
    for (const NumberedLine& line : lines) {
        try {
            ParseSoundLine(line.text);
        } catch (const std::out_of_range&) {
            return wrongLine(
                file.path, line.lineInFile,
                {"The line contains more than 50 samples.", "La ligne contient plus de 50 samples."});
        }
    }
    return std::nullopt;
}

void noteByteOrderMark(const TextFile& file, std::vector<Failure>& notices)
{
    if (file.hadByteOrderMark) {
        notices.push_back(wrongContent(
            file.path, {"The file started with a Unicode mark (UTF-8 BOM), which the level editor's tools "
                        "cannot read. It is left out the next time the changes are applied.",
                        "Le fichier commençait par une marque Unicode (BOM UTF-8), illisible pour les outils "
                        "de l'éditeur de niveaux. Elle sera omise à la prochaine application."}));
    }
}

std::vector<Failure> takeDoubles(SoundCatalogue& catalogue, const TextFile& file)
{
    LoadedDoubles doubles = parseDoubles(file, catalogue.protectedNumbers());
    catalogue.setDoubles(doubles.status);
    return std::move(doubles.notices);
}

void takeObjects(const Result<TextFile>& file, LoadedCatalogue& loaded)
{
    Result<std::vector<SoundObject>> objects = file ? parseObjectTable(*file) : file.failure();
    if (!objects) {
        loaded.notices.push_back(objects.failure());
        return;
    }
    loaded.catalogue.setObjects(std::move(*objects));
}

} // namespace

Result<LoadedCatalogue> loadCatalogue(const CatalogueSources& sources)
{
    Result<TextFile> originals = readTextFile(sources.programFolder, originalLinesFileName, largestLines);
    if (!originals) {
        return originals.failure();
    }
    Result<TextFile> doubles = readTextFile(sources.programFolder, doublesFileName);
    if (!doubles) {
        return doubles.failure();
    }
    Result<TextFile> sounds = readTextFile(sources.creatorFolder, soundsFileName, largestLines);
    if (!sounds) {
        return sounds.failure();
    }
    return parseCatalogue({std::move(*sounds), std::move(*originals), std::move(*doubles),
                           readTextFile(sources.programFolder, objectsFileName)},
                          sources.protectedLinesEditable, sources.readOtherwise);
}

Result<LoadedCatalogue> parseCatalogue(const CatalogueTexts& texts, bool protectedLinesEditable,
                                       std::span<const LineReadOtherwise> readOtherwise)
{
    std::vector<NumberedLine> originals = soundLines(texts.originals);
    if (Problem problem = firstUnreadableLine(texts.originals, originals)) {
        return *problem;
    }
    std::vector<NumberedLine> lines = soundLines(texts.sounds, readOtherwise);
    if (Problem problem = firstUnreadableLine(texts.sounds, lines)) {
        return *problem;
    }
    LoadedCatalogue loaded{SoundCatalogue({texts.sounds.path, texts.sounds.stamp}, protectedLinesEditable),
                           {}};
    noteByteOrderMark(texts.sounds, loaded.notices);
    for (std::size_t k = 0; k < lines.size(); ++k) {
        if (k < originals.size()) {
            loaded.catalogue.append(std::move(lines[k].text), std::move(originals[k].text),
                                    lines[k].lineInFile);
        } else {
            loaded.catalogue.appendUnknown(std::move(lines[k].text), lines[k].lineInFile);
        }
    }
    const std::vector<Failure> notices = takeDoubles(loaded.catalogue, texts.doubles);
    loaded.notices.insert(loaded.notices.end(), notices.begin(), notices.end());
    takeObjects(texts.objects, loaded);
    return loaded;
}

Result<std::vector<Failure>> reloadDoubles(SoundCatalogue& catalogue,
                                           const std::filesystem::path& programFolder)
{
    const Result<TextFile> file = readTextFile(programFolder, doublesFileName);
    if (!file) {
        return file.failure();
    }
    return takeDoubles(catalogue, *file);
}

Result<std::size_t> countSounds(const TextFile& file)
{
    const std::vector<NumberedLine> lines = soundLines(file);
    if (const Problem problem = firstUnreadableLine(file, lines)) {
        return *problem;
    }
    return lines.size();
}

} // namespace tavrel
