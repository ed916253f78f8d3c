// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExportCommands.h"
#include "backup/ImportCommands.h"
#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Progress.h"
#include "cli/Commands.h"
#include "cli/Opening.h"

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
    return ExitStatus::Refused;
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
    if (!confirmExport(request, console.dialogs)) {
        return ExitStatus::Refused;
    }
    SilentProgress progress;
    const ExportOutcome outcome = saveExport(request, progress);
    const ExitStatus status = tell(outcome.report, console);
    if (!outcome.saved) {
        return ExitStatus::FileFailure;
    }
    const std::string count = std::to_string(request.rows.size());
    console.dialogs.say({count + " line(s) saved.", count + " ligne(s) sauvegardée(s)."});
    return status;
}

BilingualText inRow(const ImportRow& row, const BilingualText& text)
{
    return BilingualText::same(std::to_string(row.id) + " " + shownLine(row.line) + "\n") + text;
}

// The rows that can be applied, once the user agrees to leave the others out.
std::optional<std::vector<std::size_t>> applicableRows(const ImportFile& file, Console& console)
{
    std::vector<std::size_t> rows;
    std::vector<Failure> refusals;
    std::vector<Failure> remarks;
    for (std::size_t i = 0; i < file.rows.size(); ++i) {
        const ImportRow& row = file.rows[i];
        if (!row.applicable()) {
            refusals.push_back({inRow(row, row.refusal)});
            continue;
        }
        rows.push_back(i);
        if (!row.remark.empty()) {
            remarks.push_back({inRow(row, row.remark)});
        }
    }
    if (!remarks.empty()) {
        console.dialogs.say(listOf(remarks));
    }
    if (!refusals.empty()) {
        console.dialogs.refuse(listOf(refusals));
    }
    const std::string refused = std::to_string(file.rows.size() - rows.size());
    const Question question{actionOf(file.kind),
                            {refused + " line(s) cannot be applied. Apply the others?",
                             refused + " ligne(s) inapplicable(s). Appliquer les autres ?"},
                            Buttons::YesNo,
                            true};
    const bool agreed = rows.size() == file.rows.size() || console.dialogs.ask(question) == Answer::Yes;
    return agreed ? std::optional(std::move(rows)) : std::nullopt;
}

std::vector<std::string> samplesOf(const ImportFile& file, const std::vector<std::size_t>& rows)
{
    std::vector<std::string> names;
    for (const std::size_t row : rows) {
        const std::vector<std::string> offered = offeredSamples(file.rows[row]);
        names.insert(names.end(), offered.begin(), offered.end());
    }
    return names;
}

// The samples come last: without sounds.txt, nobody would use them.
ExitStatus importInto(Session& session, const ImportRequest& request, const ExchangeArguments& arguments,
                      Console& console)
{
    const ImportOutcome lines = importLines(session.catalogue(), request);
    tell(lines.report, console);
    if (!lines.linesApplied) {
        return ExitStatus::Refused;
    }
    const ExitStatus applied = apply(session, arguments.wadName, console);
    if (applied != ExitStatus::Done) {
        return applied;
    }
    SilentProgress progress;
    const ImportOutcome samples = copyImportedSamples(request, progress);
    const ExitStatus status = tell(samples.report, console);
    return samples.complete ? status : ExitStatus::FileFailure;
}

ExitStatus importFile(const ExchangeArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSessionToChange(
        console, arguments.wadName, arguments.withSamples ? SamplesToo::Yes : SamplesToo::No);
    if (!session) {
        return console.dialogs.status();
    }
    const std::optional<CurrentWad> wad = wadFor(*session, arguments, console);
    if (!wad) {
        return ExitStatus::Refused;
    }
    const Result<ImportFile> file = readImportFile(arguments.file, session->catalogue(), wad->letter);
    if (!file) {
        return console.dialogs.fail(file.failure());
    }
    if (!file->notices.empty()) {
        console.dialogs.say(listOf(file->notices));
    }
    if (arguments.withSamples && !file->samplesFolder) {
        return console.dialogs.fail(wrongContent(
            arguments.file, {"No samples come with the file.", "Aucun sample n'accompagne le fichier."}));
    }
    if (arguments.withSamples) {
        tellCutRestores(session->places(), console);
    }
    std::optional<std::vector<std::size_t>> rows = applicableRows(*file, console);
    if (!rows) {
        return ExitStatus::Refused;
    }
    const std::vector<std::string> samples = samplesOf(*file, *rows);
    const ImportRequest request{*file,   std::move(*rows),         *wad, arguments.withSamples,
                                samples, session->places().samples};
    return confirmImport(request, console.dialogs) ? importInto(*session, request, arguments, console)
                                                   : ExitStatus::Refused;
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
        .wad(imported->wadName);
}

} // namespace tavrel
