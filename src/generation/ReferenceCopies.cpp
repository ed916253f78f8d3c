// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/ReferenceCopies.h"

#include "base/CodePage.h"
#include "base/FileNames.h"
#include "base/FilledText.h"
#include "base/Progress.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"
#include "catalogue/ApplyChanges.h"
#include "catalogue/CatalogueLoading.h"
#include "generation/FolderReplacement.h"

#include <algorithm>
#include <string>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t stockSounds = 370;

BilingualText sizeText(const FolderSize& size)
{
    const std::string files = std::to_string(size.files);
    const std::string bytes = std::to_string(size.bytes);
    return {files + " files and " + bytes + " bytes", files + " fichiers et " + bytes + " octets"};
}

void noteLeftOut(TakenCopies& taken, std::string_view name, const BilingualText& why)
{
    taken.complete = false;
    taken.notes.push_back(BilingualText("[" + std::string(name) + "] is not filled: ",
                                        "[" + std::string(name) + "] n'est pas rempli : ") +
                          why);
}

void noteTaken(TakenCopies& taken, std::string_view name, const fs::path& source)
{
    taken.notes.push_back(BilingualText("[" + std::string(name) + "] is taken from ",
                                        "[" + std::string(name) + "] est pris dans ") +
                          displayPath(source));
}

void wasThere(TakenCopies& taken, std::string_view name)
{
    taken.notes.emplace_back("[" + std::string(name) + "] is complete and was left as it is",
                             "[" + std::string(name) + "] est complet et reste tel quel");
}

bool isComplete(const fs::path& folder, const FolderSize& wanted)
{
    const Result<std::vector<FolderEntry>> files = filesIn(folder);
    const Result<FolderSize> size = files ? sizeOf(*files) : Result<FolderSize>(files.failure());
    return size && *size == wanted;
}

void takeFolder(TakenCopies& taken, const ReferenceFolder& reference, const fs::path& programFolder,
                const fs::path& source, bool stockLevelsOnly)
{
    const Result<fs::path> found = fileToWrite(programFolder, reference.name);
    if (!found) {
        noteLeftOut(taken, reference.name, found.failure().text);
        return;
    }
    const fs::path& target = *found;
    if (isComplete(target, reference.size)) {
        wasThere(taken, reference.name);
        return;
    }
    Result<std::vector<FolderEntry>> files = filesIn(source);
    if (files && stockLevelsOnly) {
        *files = stockLevelFiles(*files);
    }
    const Result<FolderSize> size = files ? sizeOf(*files) : Result<FolderSize>(files.failure());
    if (!size) {
        noteLeftOut(taken, reference.name, size.failure().text);
        return;
    }
    if (*size != reference.size) {
        noteLeftOut(taken, reference.name,
                    filled({"{} holds {}, an untouched installation {}",
                            "{} contient {}, une installation intacte {}"},
                           {displayPath(source), sizeText(*size), sizeText(reference.size)}));
        return;
    }
    const Result<std::vector<FolderEntry>> oldFiles = filesIn(target);
    SilentProgress progress;
    const Problem problem = oldFiles ? replaceFiles(*files, target, *oldFiles, progress) : oldFiles.failure();
    if (problem) {
        noteLeftOut(taken, reference.name, problem->text);
        return;
    }
    noteTaken(taken, reference.name, source);
}

void takeCatalogue(TakenCopies& taken, const fs::path& programFolder, const fs::path& creatorFolder)
{
    const Result<std::optional<FolderEntry>> backup = lookUp(creatorFolder, firstBackupName);
    const Result<std::optional<FolderEntry>> present = lookUp(programFolder, originalLinesFileName);
    if (!backup || !present) {
        noteLeftOut(taken, originalLinesFileName, !backup ? backup.failure().text : present.failure().text);
        return;
    }
    const fs::path source =
        *backup && (*backup)->isFile ? (*backup)->path : fileIn(creatorFolder, soundsFileName);
    const Result<TextFile> text = readTextFile(source, largestLines);
    const Result<std::size_t> sounds = text ? countSounds(*text) : Result<std::size_t>(text.failure());
    if (!sounds) {
        noteLeftOut(taken, originalLinesFileName, sounds.failure().text);
        return;
    }
    if (*sounds != stockSounds) {
        const std::string count = std::to_string(*sounds);
        noteLeftOut(taken, originalLinesFileName,
                    BilingualText::same(displayPath(source)) +
                        BilingualText(" has " + count + " sounds, an untouched one 370",
                                      " contient " + count + " sons, un fichier intact 370"));
        return;
    }
    const fs::path target = *present ? (*present)->path : programFolder / nativePath(originalLinesFileName);
    const Result<FileContent> bytes = readFile(source);
    const Result<FileContent> old = readFile(target);
    if (old && bytes && old->bytes == bytes->bytes) {
        wasThere(taken, originalLinesFileName);
        return;
    }
    Problem problem = bytes ? std::nullopt : Problem(bytes.failure());
    if (!problem && *present && !old) {
        problem = old.failure(); // it could not be kept
    }
    if (!problem && old) {
        const Result<fs::path> kept = keepCopyBeside(target, old->bytes);
        problem = kept ? std::nullopt : Problem(kept.failure());
    }
    if (!problem) {
        problem = writeFileSafely(target, bytes->bytes);
    }
    if (problem) {
        noteLeftOut(taken, originalLinesFileName, problem->text);
        return;
    }
    noteTaken(taken, originalLinesFileName, source);
}

} // namespace

std::vector<FolderEntry> stockLevelFiles(const std::vector<FolderEntry>& files)
{
    std::vector<FolderEntry> result;
    for (const std::string_view ending : {".sam", ".sfx"}) {
        for (const std::string_view level : stockLevels) {
            const std::string name = std::string(level).append(ending);
            std::ranges::copy_if(files, std::back_inserter(result),
                                 [&](const FolderEntry& file) { return sameName(file.name, name); });
        }
    }
    return result;
}

TakenCopies takeReferenceCopies(const fs::path& levelEditorFolder, const fs::path& programFolder)
{
    TakenCopies taken;
    takeCatalogue(taken, programFolder, folderIn(levelEditorFolder, {"sound", "LevelSFX Creator"}));
    takeFolder(taken, samplesReference, programFolder, folderIn(levelEditorFolder, {"sound", "Samples"}),
               false);
    takeFolder(taken, sfxReference, programFolder, folderIn(levelEditorFolder, {"graphics", "wads"}), true);
    return taken;
}

} // namespace tavrel
