// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/RestoreDefaults.h"

#include "base/CodePage.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "base/TextFile.h"
#include "base/Titles.h"
#include "catalogue/CatalogueLoading.h"
#include "generation/FolderFiles.h"
#include "generation/FolderReplacement.h"
#include "generation/ReferenceCopies.h"

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

const BilingualText aborted("Restore function aborted", "Fonction de restauration annulée");

// The failure's texts but for the last one, which is always the same.
using Refusal = std::optional<BilingualText>;

// What was put aside before stays, under a number; the same catalogue is not put aside twice.
Problem putAside(std::string_view catalogue, const fs::path& creatorFolder)
{
    const Result<fs::path> kept = fileToWrite(creatorFolder, replacedCatalogueName);
    if (!kept) {
        return kept.failure();
    }
    std::error_code error;
    if (fs::exists(fs::symlink_status(*kept, error))) {
        const Result<FileContent> before = readFile(*kept);
        if (!before) {
            return before.failure();
        }
        if (before->bytes == catalogue) {
            return std::nullopt;
        }
        if (Problem problem =
                moveSafely(*kept, nextNumberedName(fs::path(*kept).replace_extension(), ".txt"))) {
            return problem;
        }
    }
    return createFileSafely(*kept, catalogue);
}

Refusal restoreCatalogue(const RestoreContext& context)
{
    const BilingualText noDefaults("No defaults found. Check your installation of Tavrel.",
                                   "Aucun fichier d'origine trouvé. Vérifier l'installation de Tavrel.");
    const Result<std::optional<FolderEntry>> original = lookUp(context.places.program, originalLinesFileName);
    if (!original) {
        return original.failure().text;
    }
    if (!*original || !(*original)->isFile) {
        return noDefaults;
    }
    const Result<FileContent> content = readFile((*original)->path);
    if (!content) {
        return content.failure().text;
    }
    if (content->bytes.find(':') == std::string::npos) { // no sound in it
        return noDefaults;
    }
    const Result<std::optional<FolderEntry>> present = lookUp(context.places.creator, soundsFileName);
    if (!present) {
        return present.failure().text;
    }
    const fs::path target = *present ? (*present)->path : context.places.creator / soundsFileName;
    if (*present) {
        const Result<FileContent> old = readFile(target);
        if (!old) {
            return old.failure().text;
        }
        // Neither a second restore nor one that will fail must push out what the first one replaced.
        if (old->bytes != content->bytes && system::isWritable(target)) {
            if (const Problem problem = putAside(old->bytes, context.places.creator)) {
                return problem->text;
            }
        }
    }
    const Problem problem = writeFileSafely(target, content->bytes);
    return problem ? Refusal(problem->text) : std::nullopt;
}

struct FolderRestore
{
    const ReferenceFolder& reference;
    fs::path target;
    bool stockLevelsOnly; // else everything in the target goes
    BilingualText trouble;
    BilingualText referenceNeeded;
};

BilingualText sizeNeeded(const ReferenceFolder& reference)
{
    const std::string name(reference.name);
    const std::string files = std::to_string(reference.size.files);
    const std::string bytes = std::to_string(reference.size.bytes);
    return {"You must have a \\" + name + " directory installed in Tavrel directory with " + files +
                " files and " + bytes + " bytes.\nCheck Your Tavrel installation.",
            "Vous devriez avoir un répertoire \\" + name +
                " installé dans le même répertoire que Tavrel avec " + files + " fichiers et " + bytes +
                " octets.\nVérifiez votre installation de Tavrel."};
}

Refusal restoreFolder(const FolderRestore& restore, const RestoreContext& context)
{
    const BilingualText trapped = restore.trouble + "\n" + restore.referenceNeeded;
    const Result<std::vector<FolderEntry>> files =
        filesIn(fileIn(context.places.program, restore.reference.name));
    const Result<FolderSize> size = files ? sizeOf(*files) : Result<FolderSize>(files.failure());
    if (!size) {
        return trapped;
    }
    if (*size != restore.reference.size) {
        return sizeNeeded(restore.reference);
    }
    Result<std::vector<FolderEntry>> oldFiles = filesIn(restore.target);
    if (!oldFiles) {
        return trapped;
    }
    if (restore.stockLevelsOnly) {
        *oldFiles = stockLevelFiles(*oldFiles);
    }
    const Result<bool> isRestored = haveSameFiles(*files, *oldFiles);
    if (!isRestored) {
        return trapped;
    }
    if (*isRestored) { // and is not put aside once more
        return std::nullopt;
    }
    context.progress.say(BilingualText("Restoring ", "Restauration de ") + displayPath(restore.target));
    const Problem problem = replaceFiles(*files, restore.target, *oldFiles, context.progress);
    return problem ? Refusal(trapped) : std::nullopt;
}

Refusal restoreSamples(const RestoreContext& context)
{
    context.stopPlayback();
    return restoreFolder(
        {samplesReference,
         context.places.samples,
         false,
         {"A problem occured when restoring original samples directory.",
          "Un problème a été rencontré durant la restauration du répertoire samples d'origine."},
         {"You must have a \\Samples_ORIG directory installed in Tavrel directory.",
          "Vous devriez avoir un répertoire \\Samples_ORIG installé dans le même répertoire que Tavrel"}},
        context);
}

Refusal restoreSfx(const RestoreContext& context)
{
    return restoreFolder(
        {sfxReference,
         context.places.wads,
         true,
         {"A problem occured when restoring original SAM/SFX files.",
          "Un problème a été rencontré durant la restauration des fichiers SAM/SFX d'origine."},
         {"You must have a \\SFX_ORIG directory installed in Tavrel directory.",
          "Vous devriez avoir un répertoire \\SFX_ORIG installé dans le même répertoire que Tavrel"}},
        context);
}

// True when it is done; else the user knows why not.
bool wasDone(const Refusal& refusal, Dialogs& dialogs)
{
    if (refusal) {
        dialogs.show({MessageIcon::Critical, titles::restore, *refusal + "\n" + aborted});
    }
    return !refusal;
}

void sayComplete(const RestoreChoice& choice, Dialogs& dialogs)
{
    BilingualText text("Restore of following elements :\n", "Restauration des éléments suivants :\n");
    const struct
    {
        bool done = false;
        BilingualText name;
    } elements[] = {{choice.catalogue, {"- [Sounds.txt] File\n", "- Fichier [Sounds.txt]\n"}},
                    {choice.samples, {"- [\\Samples] Directory\n", "- Répertoire [\\Samples]\n"}},
                    {choice.sfx, {"- [SAM/SFX] Files\n", "- Fichiers [SAM/SFX]\n"}}};
    for (const auto& [done, name] : elements) {
        text += done ? name : BilingualText();
    }
    dialogs.show({MessageIcon::Information, titles::restore, text + BilingualText("complete.", "Terminée.")});
}

} // namespace

bool requireChoice(const RestoreChoice& choice, Dialogs& dialogs)
{
    if (!choice.any()) {
        dialogs.show({MessageIcon::Exclamation,
                      titles::restore,
                      {"Choose what to restore", "Choisissez ce que vous voulez restaurer"}});
    }
    return choice.any();
}

bool confirmReload(bool hasUnappliedChanges, const BilingualText& listOfThem, Dialogs& dialogs)
{
    BilingualText text("[Sounds.txt] was restored; the sounds that you see are still those of before.\n",
                       "[Sounds.txt] a été restauré ; les sons affichés sont encore ceux d'avant.\n");
    if (hasUnappliedChanges) {
        text += BilingualText("Modifications that are not applied would be lost.\n",
                              "Les modifications non appliquées seraient perdues.\n");
    }
    text += BilingualText("Load [Sounds.txt] again?", "Faut-il recharger [Sounds.txt] ?");
    Question question{titles::restore, text, Buttons::YesNo, hasUnappliedChanges};
    question.details = listOfThem;
    return dialogs.ask(question) == Answer::Yes;
}

RestoreResult restoreDefaults(const RestoreChoice& choice, const RestoreContext& context)
{
    RestoreResult result;
    if (choice.catalogue) {
        result.catalogueReplaced = wasDone(restoreCatalogue(context), context.dialogs);
        if (!result.catalogueReplaced) {
            return result;
        }
    }
    if ((choice.samples && !wasDone(restoreSamples(context), context.dialogs)) ||
        (choice.sfx && !wasDone(restoreSfx(context), context.dialogs))) {
        return result;
    }
    result.complete = true;
    if (choice.any()) {
        sayComplete(choice, context.dialogs);
    }
    return result;
}

} // namespace tavrel
