// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueLoading.h"

#include "base/FailureTexts.h"
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
                {"The line holds more than 50 samples.", "La ligne contient plus de 50 samples."});
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

void loadObjects(const CatalogueSources& sources, LoadedCatalogue& loaded)
{
    const Result<TextFile> file = readTextFile(sources.programFolder, objectsFileName);
    if (!file) {
        loaded.notices.push_back(file.failure());
        return;
    }
    Result<std::vector<SoundObject>> objects = parseObjectTable(*file);
    if (!objects) {
        loaded.notices.push_back(objects.failure());
        return;
    }
    loaded.catalogue.setObjects(std::move(*objects));
}

} // namespace

Result<LoadedCatalogue> loadCatalogue(const CatalogueSources& sources)
{
    const Result<TextFile> originalFile = readTextFile(sources.programFolder, originalLinesFileName);
    if (!originalFile) {
        return originalFile.failure();
    }
    std::vector<NumberedLine> originals = soundLines(*originalFile);
    if (Problem problem = firstUnreadableLine(*originalFile, originals)) {
        return *problem;
    }
    const Result<TextFile> doublesFile = readTextFile(sources.programFolder, doublesFileName);
    if (!doublesFile) {
        return doublesFile.failure();
    }
    const Result<TextFile> soundsFile = readTextFile(sources.creatorFolder, soundsFileName);
    if (!soundsFile) {
        return soundsFile.failure();
    }
    std::vector<NumberedLine> lines = soundLines(*soundsFile, sources.readOtherwise);
    if (Problem problem = firstUnreadableLine(*soundsFile, lines)) {
        return *problem;
    }

    LoadedCatalogue loaded{
        SoundCatalogue({soundsFile->path, soundsFile->stamp}, sources.protectedLinesEditable), {}};
    noteByteOrderMark(*soundsFile, loaded.notices);
    for (std::size_t k = 0; k < lines.size(); ++k) {
        if (k < originals.size()) {
            loaded.catalogue.append(std::move(lines[k].text), std::move(originals[k].text),
                                    lines[k].lineInFile);
        } else {
            loaded.catalogue.appendUnknown(std::move(lines[k].text), lines[k].lineInFile);
        }
    }
    if (!sources.readOtherwise.empty()) {
        loaded.catalogue.markPending();
    }
    const std::vector<Failure> notices = takeDoubles(loaded.catalogue, *doublesFile);
    loaded.notices.insert(loaded.notices.end(), notices.begin(), notices.end());
    loadObjects(sources, loaded);
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
