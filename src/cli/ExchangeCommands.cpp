// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeExport.h"
#include "backup/ExchangeImport.h"
#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/Progress.h"
#include "cli/Commands.h"
#include "cli/Opening.h"
#include "versions/PendingChanges.h"

#include <algorithm>
#include <memory>

namespace tavrel {

namespace {

struct ExchangeArguments
{
    std::string mode;
    std::filesystem::path file;
    std::optional<std::string> letter;
    bool withSamples = false;
    bool dryRun = false;
    std::optional<std::string> wadName;
};

constexpr std::pair<std::string_view, ExportMode> exportModes[] = {
    {"modified", ExportMode::Modified}, {"letter", ExportMode::ModifiedAndAdded}, {"all", ExportMode::All}};

ExportMode modeNamed(std::string_view name)
{
    return std::ranges::find(exportModes, name, &std::pair<std::string_view, ExportMode>::first)->second;
}

std::optional<BilingualText> checkMode(std::string& argument)
{
    for (const auto& [name, mode] : exportModes) {
        if (argument == name) {
            return std::nullopt;
        }
    }
    return BilingualText("[" + argument + "] is none of modified, letter, all",
                         "[" + argument + "] n'est ni modified, ni letter, ni all");
}

// The one with the letter that was asked for, else that of the settings.
std::optional<CurrentWad> wadFor(const Session& session, const ExchangeArguments& arguments, Console& console)
{
    return arguments.letter ? wadWithLetter(session, *arguments.letter, console) : session.wad();
}

// What was left out, or left behind, is for the user to look at.
ExitStatus tell(const std::optional<Message>& report, Console& console)
{
    if (!report) {
        return ExitStatus::Done;
    }
    console.dialogs.show(*report);
    return ExitStatus::DoneWithMessages;
}

ExitStatus exportLines(const ExchangeArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSession(console);
    if (!session) {
        return ExitStatus::FileFailure;
    }
    const std::optional<CurrentWad> wad = wadFor(*session, arguments, console);
    if (!wad) {
        return ExitStatus::Refused;
    }
    if (arguments.withSamples) {
        tellCutRestores(session->places(), console);
    }
    const ExportMode mode = modeNamed(arguments.mode);
    const ExportRequest request{mode,
                                listForExport(session->catalogue(), mode, wad->letter),
                                arguments.file,
                                arguments.withSamples,
                                session->places().samples,
                                session->catalogue().file().path,
                                console.programFolder};
    if (!confirmExchangeExport(request, console.dialogs)) {
        return ExitStatus::Refused;
    }
    SilentProgress progress;
    const ExportOutcome outcome = saveExport(request, progress);
    const ExitStatus status = tell(outcome.report, console);
    if (!outcome.saved) {
        return ExitStatus::FileFailure;
    }
    BilingualText text = counted(request.rows.size(), {"line saved.", "ligne sauvegardée."},
                                 {"lines saved.", "lignes sauvegardées."});
    if (request.withSamples) {
        text += BilingualText::same(" ") + counted(outcome.samplesCopied, {"sample copied.", "sample copié."},
                                                   {"samples copied.", "samples copiés."});
    }
    console.dialogs.say(text);
    return status;
}

BilingualText inRow(const ImportFile& file, std::size_t row, const BilingualText& text)
{
    return BilingualText::same(std::to_string(file.id(row)) + " " + shownLine(file.line(row)) + "\n") + text;
}

// About the rows that cannot be applied or should be looked at.
void tellRows(const ImportFile& file, Console& console)
{
    NoticeList refusals;
    NoticeList remarks;
    for (std::size_t i = 0; i < file.rows(); ++i) {
        if (!file.isApplicable(i)) {
            refusals.add(inRow(file, i, file.whyRefused(i)));
        } else if (file.hasRemark(i)) {
            remarks.add(inRow(file, i, file.remark(i)));
        }
    }
    if (!remarks.empty()) {
        console.dialogs.say(remarks.text());
    }
    if (!refusals.empty()) {
        console.dialogs.refuse(refusals.text());
    }
}

bool confirmApplyingTheOthers(const ImportFile& file, Console& console)
{
    const std::size_t applicable = file.tickedRows();
    const Question question{
        actionOf(file.kind()),
        counted(
            file.rows() - applicable,
            {"line cannot be applied. Apply the others?", "ligne inapplicable. Appliquer les autres ?"},
            {"lines cannot be applied. Apply the others?", "lignes inapplicables. Appliquer les autres ?"}),
        Buttons::YesNo, true};
    return applicable == file.rows() || (applicable > 0 && console.dialogs.ask(question) == Answer::Yes);
}

std::vector<std::string> offeredSamples(const ImportFile& file)
{
    std::vector<std::string> names;
    for (std::size_t row = 0; row < file.rows(); ++row) {
        const std::vector<std::string> offered = offeredSamples(file, row);
        names.insert(names.end(), offered.begin(), offered.end());
    }
    return names;
}

// The samples come last: without sounds.txt, nobody would use them.
ExitStatus importInto(Session& session, const ImportRequest& request,
                      const std::optional<std::string>& wadName, Console& console)
{
    const ImportOutcome lines = importTickedLines(session.catalogue(), request);
    tell(lines.report, console);
    if (!lines.linesApplied) {
        return ExitStatus::Refused;
    }
    const ExitStatus applied = apply(session, wadName, console);
    if (applied != ExitStatus::Done) {
        return applied;
    }
    const std::size_t count = request.file.tickedRows();
    console.dialogs.say(request.file.kind() == ExchangeKind::Backup
                            ? counted(count, {"line restored.", "ligne restaurée."},
                                      {"lines restored.", "lignes restaurées."})
                            : counted(count, {"line imported.", "ligne importée."},
                                      {"lines imported.", "lignes importées."}));
    SilentProgress progress;
    const ImportOutcome samples = copyImportedSamples(request, progress);
    const ExitStatus status = tell(samples.report, console);
    return samples.complete ? status : ExitStatus::FileFailure;
}

// What would change, in memory alone.
ExitStatus tellImport(Session& session, const ImportRequest& request, Console& console)
{
    if (const ImportOutcome lines = importTickedLines(session.catalogue(), request); !lines.linesApplied) {
        tell(lines.report, console);
        return ExitStatus::Refused;
    }
    const std::vector<PendingChange> changes = pendingChanges(session.catalogue());
    for (const PendingChange& change : changes) {
        console.dialogs.say(describe(change));
    }
    const std::string changed = std::to_string(changes.size());
    console.dialogs.say(counted(request.file.tickedRows(), {"line would come in, ", "ligne serait reprise, "},
                                {"lines would come in, ", "lignes seraient reprises, "}) +
                        BilingualText(changed + " of the catalogue's would change. Nothing is written.",
                                      changed + " du catalogue changeraient. Rien n'a été écrit."));
    return ExitStatus::Done;
}

// What makes all of it impossible, before a file is read.
std::optional<BilingualText> refusalOf(const ExchangeArguments& arguments, const CurrentWad& wad)
{
    if (kindOfFile(arguments.file) == ExchangeKind::Backup) {
        return arguments.withSamples ? std::optional(samplesOfBackup(arguments.file)) : std::nullopt;
    }
    if (wad.letter.empty() || wad.wadName.empty()) {
        return BilingualText(
            "Select a WAD/Letter reference first: --letter X names one by its letter.",
            "Sélectionnez d'abord une référence WAD/Lettre : --letter X en indique une par sa "
            "lettre.");
    }
    return std::nullopt;
}

// Shows a message, and returns no file, when it cannot be used.
std::optional<ImportFile> fileToImport(const ExchangeArguments& arguments, const Session& session,
                                       const CurrentWad& wad, Console& console)
{
    Result<ImportFile> file = readImportFile(arguments.file, session.catalogue(), wad.letter);
    if (!file) {
        console.dialogs.fail(file.failure());
        return std::nullopt;
    }
    if (const std::vector<Failure> notices = file->notices(); !notices.empty()) {
        console.dialogs.say(listOf(notices));
    }
    if (arguments.withSamples && !file->samplesFolder()) {
        console.dialogs.fail(wrongContent(
            arguments.file, {"No samples come with the file.", "Aucun sample n'accompagne le fichier."}));
        return std::nullopt;
    }
    return std::move(*file);
}

ExitStatus importFile(const ExchangeArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session =
        arguments.dryRun ? openSession(console)
                         : openSessionToChange(console, arguments.wadName,
                                               arguments.withSamples ? SamplesToo::Yes : SamplesToo::No);
    if (!session) {
        return graver(console.dialogs.status(), ExitStatus::Refused);
    }
    const std::optional<CurrentWad> wad = wadFor(*session, arguments, console);
    if (!wad) {
        return ExitStatus::Refused;
    }
    if (const std::optional<BilingualText> refusal = refusalOf(arguments, *wad)) {
        return console.dialogs.refuse(*refusal);
    }
    const std::optional<ImportFile> file = fileToImport(arguments, *session, *wad, console);
    if (!file) {
        return ExitStatus::FileFailure;
    }
    if (arguments.withSamples) {
        tellCutRestores(session->places(), console);
    }
    tellRows(*file, console);
    const ImportRequest request{*file, *wad, arguments.withSamples,
                                arguments.withSamples ? offeredSamples(*file) : std::vector<std::string>(),
                                session->places().samples};
    if (arguments.dryRun) {
        return tellImport(*session, request, console);
    }
    if (!confirmApplyingTheOthers(*file, console) || !confirmExchangeImport(request, console.dialogs)) {
        return ExitStatus::Refused;
    }
    // The WAD of the letter is the one that is worked on, whatever the settings say.
    const std::optional<std::string> usual = arguments.letter ? std::optional(wad->wadName) : std::nullopt;
    return importInto(*session, request, arguments.wadName ? arguments.wadName : usual, console);
}

} // namespace

void addExchangeCommands(const Menu& menu)
{
    const BilingualText letter("The letter of the WAD; usually that of the settings",
                               "La lettre du WAD ; d'habitude celle des paramètres");
    const auto exported = std::make_shared<ExchangeArguments>();
    menu.command("export",
                 {"Save lines to an exchange file or a backup",
                  "Sauvegarder des lignes dans un fichier d'échange ou une sauvegarde"},
                 [exported](Console& console) { return exportLines(*exported, console); })
        .text(
            "MODE",
            {"modified: changed lines of the WAD; letter: all lines of the WAD; all: every line, as a backup",
             "modified : lignes modifiées du WAD ; letter : toutes les lignes du WAD ; all : toutes les lignes, "
             "en sauvegarde"},
            exported->mode, checkMode)
        .path("FILE", {"A .tox file; for a backup a .tob file", "Un fichier .tox ; .tob pour une sauvegarde"},
              exported->file)
        .optionalLetter("--letter", letter, exported->letter)
        .flag("--samples", {"With the samples of the lines", "Avec les samples des lignes"},
              exported->withSamples);
    const auto imported = std::make_shared<ExchangeArguments>();
    menu.command(
            "import",
            {"Import lines of an exchange file, or restore a backup, and write sounds.txt",
             "Importer les lignes d'un fichier d'échange ou restaurer une sauvegarde, et écrire sounds.txt"},
            [imported](Console& console) { return importFile(*imported, console); })
        .path("FILE", {"A .tox or .tob file", "Un fichier .tox ou .tob"}, imported->file)
        .optionalLetter("--letter", letter, imported->letter)
        .flag("--samples",
              {"With the samples that come with the file", "Avec les samples qui accompagnent le fichier"},
              imported->withSamples)
        .flag("--dry-run", {"Only tell what would change", "Dire seulement ce qui changerait"},
              imported->dryRun)
        .wad(imported->wadName, {"that of --letter, else that of the settings",
                                 "celui de --letter, sinon celui des paramètres"});
}

} // namespace tavrel
