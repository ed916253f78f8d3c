// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeImport.h"

#include "backup/SampleTransfer.h"
#include "backup/SamplesFolderSwap.h"
#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FilledText.h"
#include "base/Folder.h"
#include "base/Titles.h"
#include "catalogue/ChangeSounds.h"
#include "references/LetterCommands.h"
#include "samples/SamplesFolder.h"

#include <unordered_set>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

Message report(const ImportRequest& request, MessageIcon icon, const BilingualText& text)
{
    return {icon, actionOf(request.file.kind()), text};
}

// The lines are in the catalogue; some samples are not in their folder.
Message incomplete(const ImportRequest& request, const SampleCopies& copies)
{
    BilingualText text = copies.failure ? copies.failure->text : BilingualText("Cancelled.", "Annulé.");
    text += BilingualText("\n\nThe lines were imported. ", "\n\nLes lignes ont été importées. ");
    text += copies.copied.empty()
                ? BilingualText("No sample was copied.", "Aucun sample n'a été copié.")
                : BilingualText("These samples were copied before:", "Ces samples ont été copiés avant :") +
                      listOfFiles(copies.copied);
    return report(request, MessageIcon::Exclamation, text);
}

} // namespace

std::optional<fs::path> chooseImportFile(const fs::path& programFolder, Dialogs& dialogs)
{
    return dialogs.chooseFile(
        {titles::chooseImportFile,
         {"Exchange/Backup files (*.tox,*.tob)", "Fichiers d'Echange/Backup (*.tox,*.tob)"},
         {"*.tox", "*.tob"},
         makeBackupsFolder(programFolder)});
}

std::string listedText(const ImportFile& file, std::size_t row)
{
    const std::optional<SoundLine> record = file.record(row);
    const std::string id = file.idText(row);
    return record ? exchangeRow(id, *record, record->Letters) : (id + " ").append(file.line(row));
}

std::vector<std::string> offeredSamples(const ImportFile& file, std::size_t row)
{
    const std::optional<SoundLine> record = file.isApplicable(row) ? file.record(row) : std::nullopt;
    return record ? sampleNamesOf(*record) : std::vector<std::string>();
}

BilingualText samplesOfBackup(const fs::path& backup)
{
    std::error_code ignored;
    const std::optional<fs::path> folder =
        samplesFolderToRead(samplesFolderOf(fs::absolute(backup, ignored)));
    return folder
               ? filled(
                     {"The samples of a backup are not copied back.\nCopy those that you need yourself; they "
                      "are in {}",
                      "Les samples d'une sauvegarde ne sont pas recopiés.\nCopiez vous-même ceux qu'il vous "
                      "faut ; ils sont dans {}"},
                     {displayPath(*folder)})
               : BilingualText(
                     "The samples of a backup are not copied back.\nThere are none beside this one.",
                     "Les samples d'une sauvegarde ne sont pas recopiés.\nIl n'y en a pas à côté de "
                     "celle-ci.");
}

bool confirmExchangeImport(const ImportRequest& request, Dialogs& dialogs)
{
    Question question{actionOf(request.file.kind()),
                      {"Restore all lines.", "Restaurer toutes les lignes."},
                      Buttons::YesNo};
    question.details = listedSounds(request.file.catalogue(), request.file.tickedLines());
    if (request.file.kind() == ExchangeKind::Backup) {
        return dialogs.ask(question) == Answer::Yes;
    }
    if (!RequireCurrentReference(request.wad, question.title, dialogs)) {
        return false;
    }
    const std::string letter = "[#" + shownText(request.wad.letter) + "]";
    BilingualText& text = question.text;
    text = BilingualText("Import lines and apply " + letter + " letter",
                         "Importer les lignes et appliquer la lettre " + letter);
    if (request.withSamples) {
        text += BilingualText("\r\n\r\nCopy selected Samples Files to\r\n",
                              "\r\n\r\nCopier les Fichiers Samples sélectionnés dans\r\n") +
                displayPath(request.samplesFolder / "");
    }
    return dialogs.ask(question) == Answer::Yes;
}

ImportOutcome applyImport(SoundCatalogue& catalogue, const ImportRequest& request, Progress& progress)
{
    ImportOutcome outcome = importTickedLines(catalogue, request);
    return outcome.complete ? copyImportedSamples(request, progress) : outcome;
}

namespace {

BilingualText stepLabelOf(const ImportRequest& request)
{
    BilingualText label =
        actionOf(request.file.kind()) + (", " + displayPath(request.file.path().filename()));
    if (request.withSamples) {
        label += BilingualText(" (the copied samples stay)", " (les samples copiés restent)");
    }
    return label;
}

} // namespace

ImportOutcome importTickedLines(SoundCatalogue& catalogue, const ImportRequest& request)
{
    const Problem problem = [&] {
        const Step step(catalogue, stepLabelOf(request));
        return catalogue.setCurrentLines(request.file.changes());
    }();
    if (problem) {
        return {false, false, report(request, MessageIcon::Exclamation, problem->text)};
    }
    return {true, true, std::nullopt};
}

namespace {

// Files that the imported lines name, each once.
std::vector<std::string> missingSamples(const ImportRequest& request)
{
    std::vector<std::string> missing;
    const Result<FolderIndex> folder = FolderIndex::of(request.samplesFolder);
    if (!folder) {
        return missing; // whoever needs the folder says so
    }
    std::unordered_set<std::string> looked;
    for (const std::size_t number : request.file.tickedLines()) {
        const std::optional<SoundLine> line = tryParse(request.file.catalogue().currentLine(number));
        for (const std::string& name : line ? sampleNamesOf(*line) : std::vector<std::string>()) {
            const std::string file = sampleFileName(name);
            if (!isSafeSampleName(name) || !looked.insert(upperCase(file)).second) {
                continue;
            }
            const FolderEntry* const entry = folder->find(file);
            if (entry == nullptr || !isSample(*entry)) {
                missing.push_back(file);
            }
        }
    }
    return missing;
}

ImportOutcome withMissingSamples(const ImportRequest& request, const BilingualText& text)
{
    Message told = report(request, MessageIcon::Information, text);
    addListedFiles({"sample of the lines is not in the level editor's samples folder:",
                    "sample des lignes est absent du répertoire des samples de l'éditeur de niveaux :"},
                   {"samples of the lines are not in the level editor's samples folder:",
                    "samples des lignes sont absents du répertoire des samples de l'éditeur de niveaux :"},
                   missingSamples(request), told);
    return {true, true, told.text.empty() ? std::nullopt : std::optional(std::move(told))};
}

} // namespace

ImportOutcome copyImportedSamples(const ImportRequest& request, Progress& progress)
{
    if (!request.withSamples) {
        return withMissingSamples(request, {});
    }
    if (!request.file.samplesFolder()) {
        return {true, false,
                report(request, MessageIcon::Exclamation,
                       {"The lines were imported. No samples come with the file.",
                        "Les lignes ont été importées. Aucun sample n'accompagne le fichier."})};
    }
    const SampleCopies copies =
        replaceSamples(request.samples, *request.file.samplesFolder(), request.samplesFolder, progress);
    if (copies.end != CopyEnd::Complete) {
        return {true, false, incomplete(request, copies)};
    }
    return withMissingSamples(request,
                              copies.refused.empty() ? BilingualText() : unsafeSampleNames(copies.refused));
}

const Title& actionOf(ExchangeKind kind)
{
    return kind == ExchangeKind::Backup ? titles::restore : titles::importLines;
}

} // namespace tavrel
