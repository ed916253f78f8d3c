// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeExport.h"

#include "backup/SampleTransfer.h"
#include "backup/SamplesFolderSwap.h"
#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Titles.h"
#include "catalogue/ApplyChanges.h"
#include "catalogue/CatalogueLoading.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

bool hasOtherValues(const SoundLine& current, const SoundLine& original)
{
    // Not the name and not the letters.
    const auto values = [](const SoundLine& line) {
        return std::tie(line.SampleText, line.Vol, line.Pit, line.Rad, line.Ch, line.FlagP, line.FlagV,
                        line.FlagRN, line.FlagL);
    };
    return values(current) != values(original);
}

bool isListed(ExportMode mode, std::string_view currentLine, std::string_view letter,
              const SoundLine& current, const SoundLine& original)
{
    if (mode == ExportMode::All) {
        return true;
    }
    const bool isCandidate = currentLine.find(letter) != std::string_view::npos;
    return isCandidate && (mode == ExportMode::ModifiedAndAdded || hasOtherValues(current, original));
}

std::string savedLine(const std::string& line, const std::string& letters)
{
    const std::size_t hash = line.find('#');
    return hash == std::string::npos ? line : line.substr(0, hash) + letters;
}

ExchangeKind kindOf(ExportMode mode)
{
    return mode == ExportMode::All ? ExchangeKind::Backup : ExchangeKind::Exchange;
}

// Enter alone never costs a file.
bool confirm(const ExportRequest& request, const BilingualText& text, Dialogs& dialogs)
{
    return dialogs.ask({captionOf(request.mode), text, Buttons::YesNo, true}) == Answer::Yes;
}

std::string numbersOf(const ExportRequest& request, SavedAs savedAs)
{
    std::vector<std::size_t> numbers;
    for (const ExportRow& row : request.rows) {
        if (row.savedAs == savedAs) {
            numbers.push_back(row.number);
        }
    }
    return numberRanges(numbers);
}

bool confirmCutLines(const ExportRequest& request, Dialogs& dialogs)
{
    const std::string numbers = numbersOf(request, SavedAs::Cut);
    return numbers.empty() ||
           confirm(
               request,
               {"These lines are cut at their first \"#\", which does not open their letters: values are "
                "lost.\n" +
                    numbers + "\nSave them like this?",
                "Ces lignes sont coupées à leur premier « # », qui n'ouvre pas leurs lettres : des valeurs "
                "sont perdues.\n" +
                    numbers + "\nLes sauvegarder ainsi ?"},
               dialogs);
}

// A backup that drops something must not look like one that does not.
bool confirmDroppedText(const ExportRequest& request, Dialogs& dialogs)
{
    const std::string numbers =
        request.mode == ExportMode::All ? numbersOf(request, SavedAs::Other) : std::string();
    return numbers.empty() ||
           confirm(request,
                   {"These lines contain text among or after their letters that the backup does not keep: " +
                        numbers + "\nSave the backup without it?",
                    "Ces lignes contiennent, parmi leurs lettres ou après, du texte que la sauvegarde ne "
                    "conserve pas : " +
                        numbers + "\nSauvegarder sans ce texte ?"},
                   dialogs);
}

bool confirmKind(const ExportRequest& request, Dialogs& dialogs)
{
    if (kindOfFile(request.file) == kindOf(request.mode)) {
        return true;
    }
    const std::string file = bracketedPath(request.file.filename());
    const BilingualText text =
        request.mode == ExportMode::All
            ? BilingualText("The name of a backup ends with \".tob\". " + file +
                                " will be read as an exchange file.\nSave under this name?",
                            "Le nom d'une sauvegarde se termine par « .tob ». " + file +
                                " sera lu comme un fichier d'échange.\nSauvegarder sous ce nom ?")
            : BilingualText("The name of an exchange file ends with \".tox\". " + file +
                                " will be read as a backup.\nSave under this name?",
                            "Le nom d'un fichier d'échange se termine par « .tox ». " + file +
                                " sera lu comme une sauvegarde.\nSauvegarder sous ce nom ?");
    return confirm(request, text, dialogs);
}

std::vector<std::string> sampleNamesOf(std::span<const ExportRow> rows)
{
    std::vector<std::string> names;
    for (const ExportRow& row : rows) {
        if (const std::optional<SoundLine> record = tryParse(row.savedLine)) {
            std::ranges::move(sampleNamesOf(*record), std::back_inserter(names));
        }
    }
    return names;
}

// A folder of samples that no earlier save of this file has made.
bool confirmForeignSamples(const ExportRequest& request, const fs::path& file, Dialogs& dialogs)
{
    if (!request.withSamples) {
        return true;
    }
    const fs::path folder = samplesFolderOf(file);
    const std::vector<fs::path> lost =
        samplesLostToSwap(sampleNamesOf(request.rows), request.samplesFolder, folder);
    if (lost.empty()) {
        return true;
    }
    const std::string name = bracketedPath(folder);
    const BilingualText deleted =
        counted(lost.size(),
                {"WAV file that does not belong to this export. It will be deleted.",
                 "fichier WAV étranger à cet export. Il sera supprimé."},
                {"WAV files that do not belong to this export. They will be deleted.",
                 "fichiers WAV étrangers à cet export. Ils seront supprimés."});
    Question question{
        captionOf(request.mode),
        BilingualText("The folder " + name + " contains ", "Le répertoire " + name + " contient ") + deleted +
            BilingualText("\nSave anyway?", "\nSauvegarder quand même ?"),
        Buttons::YesNo, true};
    question.details = listedFiles(lost);
    return dialogs.ask(question) == Answer::Yes;
}

bool confirmReplacing(const ExportRequest& request, Dialogs& dialogs)
{
    std::error_code error;
    const fs::path file = fs::absolute(request.file, error);
    if (error) { // saveExport() says so
        return true;
    }
    // A folder that cannot be listed may well hold it.
    const Result<bool> holds = holdsEntry(file.parent_path(), codePagePath(file.filename()).bytes);
    const bool isThere =
        fs::exists(file, error) || error || (holds ? *holds : fs::exists(file.parent_path(), error));
    if (!isThere) {
        return confirmForeignSamples(request, file, dialogs);
    }
    const std::string name = displayPath(file.filename());
    return confirm(request,
                   {"The file " + name + " already exists.\n\rReplace it.",
                    "Le fichier " + name + " existe déjà.\n\rLe remplacer."},
                   dialogs);
}

Message report(const ExportRequest& request, MessageIcon icon, const BilingualText& text)
{
    return {icon, captionOf(request.mode), text};
}

bool isSame(const fs::path& a, const fs::path& b)
{
    std::error_code missing;
    return fs::equivalent(a, b, missing);
}

bool isNameOfProgram(std::string_view name)
{
    const std::string upper = upperCase(name);
    return upper.starts_with("TAVREL.") || upper.starts_with("SFX_");
}

// One that is not there yet must not become an exchange file, either.
bool isOwnFile(const ExportRequest& request)
{
    std::error_code ignored;
    const fs::path folder = fs::absolute(request.file, ignored).parent_path();
    const std::string name = codePagePath(request.file.filename()).bytes;
    const fs::path creator = request.catalogueFile.parent_path();
    if ((isSame(folder, request.programFolder) && isNameOfProgram(name)) ||
        (isSame(folder, creator) && (sameName(name, soundsFileName) || sameName(name, firstBackupName))) ||
        isSame(request.file, request.catalogueFile) ||
        isSame(request.file, fileIn(creator, firstBackupName))) {
        return true;
    }
    const Result<std::vector<FolderEntry>> entries = listFolder(request.programFolder);
    return entries && std::ranges::any_of(*entries, [&request](const FolderEntry& entry) {
               return isNameOfProgram(entry.name) && isSame(request.file, entry.path);
           });
}

// The samples folder of an earlier time, or what is left of it.
BilingualText leftBehind(const std::vector<fs::path>& folders)
{
    std::string list;
    for (const fs::path& folder : folders) {
        list += "\n[" + displayPath(folder) + "]";
    }
    return BilingualText("Files of the old samples folder are left here; check whether you still need them:",
                         "Des fichiers de l'ancien répertoire de samples restent ici ; vérifiez s'ils sont "
                         "utiles :") +
           BilingualText::same(list);
}

ExportOutcome nothingSaved(const ExportRequest& request, const BilingualText& why,
                           const std::optional<SamplesFolderSwap>& samples)
{
    const BilingualText otherFiles =
        samples && samples->repaired()
            ? BilingualText("Samples of an earlier save that was cut short are back in their folder.",
                            "Des samples d'une sauvegarde précédente interrompue sont de retour dans leur "
                            "répertoire.")
            : BilingualText("Files that were there are as they were.",
                            "Les fichiers existants sont intacts.");
    return {false, report(request, MessageIcon::Exclamation,
                          why + BilingualText("\n\nNothing was saved. ", "\n\nRien n'a été sauvegardé. ") +
                              otherFiles)};
}

// The file itself is saved.
ExportOutcome putSamplesInPlace(const ExportRequest& request, SamplesFolderSwap& samples,
                                const SampleCopies& copies)
{
    const Problem problem = samples.putInPlace();
    std::vector<BilingualText> texts;
    if (problem) {
        const std::string name = bracketedPath(request.file.filename());
        texts.push_back(problem->text);
        texts.emplace_back(name + " was saved, its samples were not.",
                           name + " a été sauvegardé, mais pas ses samples.");
    } else {
        if (!copies.refused.empty()) {
            texts.push_back(unsafeSampleNames(copies.refused));
        }
        if (!copies.kept.empty()) {
            texts.push_back(keptSamples(copies.kept));
        }
    }
    if (const std::vector<fs::path> left = samples.leftovers(); !left.empty()) {
        texts.push_back(leftBehind(left));
    }
    BilingualText text;
    for (const BilingualText& part : texts) {
        text += (text.empty() ? BilingualText() : BilingualText::same("\n\n")) + part;
    }
    Message told = report(request, problem ? MessageIcon::Exclamation : MessageIcon::Information, text);
    if (!problem) {
        addListedFiles({"sample is not in the level editor's samples folder and was not saved:",
                        "sample est absent du répertoire des samples de l'éditeur de niveaux et n'a pas été "
                        "sauvegardé :"},
                       {"samples are not in the level editor's samples folder and were not saved:",
                        "samples sont absents du répertoire des samples de l'éditeur de niveaux et n'ont pas "
                        "été sauvegardés :"},
                       copies.missing, told);
    }
    const std::size_t copied = problem ? 0 : copies.copied.size();
    return {!problem, told.text.empty() ? std::nullopt : std::optional(std::move(told)), copied};
}

} // namespace

std::vector<ExportRow> listForExport(const SoundCatalogue& catalogue, ExportMode mode,
                                     std::string_view letter)
{
    std::vector<ExportRow> rows;
    for (std::size_t i = 0; i < catalogue.size(); ++i) {
        const std::string& line = catalogue.currentLine(i);
        const SoundLine current = ParseSoundLine(line);
        const SoundLine original = ParseSoundLine(catalogue.originalLine(i));
        if (isListed(mode, line, letter, current, original)) {
            const std::string& letters = mode == ExportMode::All ? current.Letters : original.Letters;
            std::string saved = savedLine(line, letters);
            const bool isCut = saved != line && firstHashOf(line) != FirstHash::OpensLetters;
            const SavedAs savedAs = isCut ? SavedAs::Cut : saved != line ? SavedAs::Other : SavedAs::Same;
            rows.push_back(
                {i, current, exchangeRow(std::to_string(i), current, letters), std::move(saved), savedAs});
        }
    }
    return rows;
}

const Title& captionOf(ExportMode mode)
{
    switch (mode) {
    case ExportMode::Modified:
        return titles::exportModified;
    case ExportMode::ModifiedAndAdded:
        return titles::exportModifiedAndAdded;
    case ExportMode::All:
        break;
    }
    return titles::saveAllLines;
}

BilingualText descriptionOf(ExportMode mode)
{
    switch (mode) {
    case ExportMode::Modified:
        return {
            "This option will save in a file only lines with modifications of samples values/names. Useful "
            "for exchange with another user. Use Import fucntion from the main window to apply these lines to "
            "the target machine.",
            "Cette option va sauvegarder uniquement les lignes avec des modifications de noms/valeurs de "
            "samples. Utile pour effectuer un échange avec un autre utilisateur. Utilisez la fonction "
            "d'Importation depuis la fenêtre principale pour appliquer les modifications sur l'ordinateur "
            "cible."};
    case ExportMode::ModifiedAndAdded:
        return {
            "Same as [Export only modified lines] but with also added lines. Even lines with no modification "
            "of samples values/names will be saved if they have the letter of the wad assigned. Can be used "
            "also for exchange with another user.",
            "Identique à [Exporter uniquement les lignes modifiées] mais avec les lignes ajoutées. Même les "
            "lignes sans modifications de noms/valeurs de samples seront sauvegardées si elles possèdent la "
            "lettre du wad en cours. Peut aussi être utilisé pour un échange avec un autre utilisateur."};
    case ExportMode::All:
        break;
    }
    return {
        "This option will simply make a backup of your work. Useful if you have multiple wads that use the "
        "same sound line but with different samples name and/or values.",
        "Cette option réalise simplement une sauvegarde de votre travail en cours. Utile si vous avez "
        "plusieurs wads qui utilisent la même ligne de son mais avec différents noms/valeurs de samples."};
}

BilingualText columnTitleOf(ExportMode mode)
{
    switch (mode) {
    case ExportMode::Modified:
        return {"      ID    Modified line", "      ID    Ligne modifiée"};
    case ExportMode::ModifiedAndAdded:
        return {"      ID    Modified/Added line", "      ID    Ligne Modifiée/Ajoutée"};
    case ExportMode::All:
        break;
    }
    return {"      ID    Line", "      ID    Ligne"};
}

std::optional<fs::path> chooseExportFile(ExportMode mode, std::string_view wadName,
                                         const fs::path& programFolder, Dialogs& dialogs)
{
    const bool isBackup = mode == ExportMode::All;
    const std::string name = wadName.empty() ? "sounds" : utf8FromCodePage(wadName);
    return dialogs.chooseFile({captionOf(mode),
                               isBackup
                                   ? BilingualText("Backup files (*.tob)", "Fichiers backup (*.tob)")
                                   : BilingualText("Exchange files (*.tox)", "Fichiers d'échange (*.tox)"),
                               {isBackup ? "*.tob" : "*.tox"},
                               makeBackupsFolder(programFolder),
                               name + (isBackup ? "_backup.tob" : ".tox"),
                               false,
                               true});
}

bool confirmExchangeExport(const ExportRequest& request, Dialogs& dialogs)
{
    if (isOwnFile(request)) {
        const Failure refusal =
            wrongContent(request.file,
                         {"This is a file of the level editor or of Tavrel. Choose another name.",
                          "C'est un fichier de l'éditeur de niveaux ou de Tavrel. Choisissez un autre nom."});
        dialogs.show(report(request, MessageIcon::Exclamation, refusal.text));
        return false;
    }
    return confirmCutLines(request, dialogs) && confirmDroppedText(request, dialogs) &&
           confirmKind(request, dialogs) && confirmReplacing(request, dialogs);
}

ExportOutcome saveExport(const ExportRequest& request, Progress& progress)
{
    std::error_code error;
    const fs::path file = fs::absolute(request.file, error);
    if (error) {
        return nothingSaved(request, cannotWrite(request.file, error).text, std::nullopt);
    }
    std::optional<SamplesFolderSwap> samples;
    SampleCopies copies;
    if (request.withSamples) {
        samples.emplace(samplesFolderOf(file));
        copies = samples->copy(sampleNamesOf(request.rows), request.samplesFolder, progress);
    }
    if (copies.end == CopyEnd::Cancelled) {
        return nothingSaved(request, {"Cancelled.", "Annulé."}, samples);
    }
    if (copies.failure) {
        return nothingSaved(request, copies.failure->text, samples);
    }
    std::vector<ExchangeRecord> records;
    for (const ExportRow& row : request.rows) {
        records.push_back({static_cast<std::int64_t>(row.number), row.savedLine});
    }
    if (const Problem problem = writeExchangeFile(file, records)) {
        return nothingSaved(request, problem->text, samples);
    }
    return samples ? putSamplesInPlace(request, *samples, copies) : ExportOutcome{true, std::nullopt};
}

std::vector<ObjectGroup> objectGroups(std::span<const SoundObject> objects)
{
    std::vector<ObjectGroup> groups;
    for (const SoundObject& object : objects) {
        auto group = std::ranges::find(groups, object.type, &ObjectGroup::type);
        if (group == groups.end() && groups.size() < ObjectGroup::mostGroups) {
            group = groups.insert(group, {object.type, {}});
        }
        if (group != groups.end() && group->objects.size() < ObjectGroup::mostObjects) {
            group->objects.push_back(&object);
        }
    }
    return groups;
}

BilingualText countOfLines(std::size_t listed, std::size_t ticked)
{
    const std::string first = std::to_string(listed);
    const std::string second = std::to_string(ticked);
    return {first + " lines listed - " + second + " lines selected",
            first + " lignes listées - " + second + " lignes sélectionnées"};
}

} // namespace tavrel
