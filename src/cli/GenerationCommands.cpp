// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Progress.h"
#include "checks/FindingQuestions.h"
#include "checks/SessionChecks.h"
#include "cli/Commands.h"
#include "cli/Opening.h"
#include "generation/RestoreDefaults.h"
#include "generation/ScriptStatistics.h"
#include "generation/SfxGeneration.h"
#include "samples/SampleFormat.h"

#include <memory>
#include <thread>

namespace tavrel {

namespace {

// generate

ExitStatus refuseWrongSample(const std::string& name, Console& console)
{
    return console.dialogs.refuse(
        wrongSampleFormat(name) +
        BilingualText(
            "\nNothing was generated. The command [samples check] lists all samples in a wrong format.",
            "\nRien n'a été généré. La commande [samples check] liste tous les samples au mauvais "
            "format."));
}

// Until the interpreter has ended.
ExitStatus waitForResults(SfxGeneration& generation, Console& console)
{
    auto step = SfxGeneration::firstLook;
    do {
        std::this_thread::sleep_for(step);
        step = SfxGeneration::nextLook;
    } while (generation.poll(SfxGeneration::Clock::now()) != SfxGeneration::Phase::Idle);
    if (generation.hasResults()) {
        console.dialogs.say(generation.summary());
        return ExitStatus::Done;
    }
    if (!generation.summaryWasShown()) {
        console.dialogs.refuse(generation.summary());
    }
    return ExitStatus::Refused;
}

ExitStatus generate(const std::string& wadName, Console& console)
{
    const std::unique_ptr<Session> session = openSession(console);
    if (!session) {
        return ExitStatus::FileFailure;
    }
    const std::optional<CurrentWad> wad = wadNamed(*session, wadName, console);
    if (!wad) {
        return ExitStatus::Refused;
    }
    tellCutRestores(session->places(), console);
    const std::unique_ptr<BatchRunner> runner = makeSystemBatchRunner(BatchConsole::None);
    SfxGeneration generation(*runner, console.dialogs);
    SilentProgress progress;
    const auto acceptsErrors = [&] {
        const CheckReport report = checkSession(*session, *wad, progress);
        const auto errors = errorsBeforeGeneration(report, session->catalogue(), *wad);
        return errors.empty() ||
               console.dialogs.ask(carriedErrorsQuestion(errors, session->catalogue())) == Answer::Ok;
    };
    const GenerationRequest request{session->catalogue(), *wad, false, session->places(), acceptsErrors};
    switch (generation.begin(request, progress, SfxGeneration::Clock::now())) {
    case SfxGeneration::Begun::Started:
        return waitForResults(generation, console);
    case SfxGeneration::Begun::WrongSample:
        return refuseWrongSample(
            findWrongSample(session->catalogue(), *wad, session->places().samples, progress).value_or(""),
            console);
    case SfxGeneration::Begun::NotStarted:
        break;
    }
    return ExitStatus::Refused;
}

// restore

ExitStatus restore(const RestoreChoice& choice, Console& console)
{
    if (!choice.any()) {
        console.dialogs.say({"Choose what to restore: --catalogue, --samples, --sfx",
                             "Choisissez ce que vous voulez restaurer : --catalogue, --samples, --sfx"});
        return ExitStatus::WrongUsage;
    }
    const std::optional<ProgramSettings> settings = openSettings(console);
    if (!settings) {
        return ExitStatus::FileFailure;
    }
    const Places places = derivePlaces(console.programFolder, settings->LevelEditorFolder);
    const std::unique_ptr<ChangeLocks> locks = lockForChanges(console, places, SamplesToo::Yes);
    if (!locks) {
        return ExitStatus::FileFailure;
    }
    SilentProgress progress;
    const RestoreContext context{places, [] {}, progress, console.dialogs};
    return restoreDefaults(choice, context).complete ? ExitStatus::Done : ExitStatus::FileFailure;
}

// stats

void writeCounts(const ScriptStatistics& counts, Console& console)
{
    const EntryCounts none{};
    for (std::size_t row = 0; row < countedEntries; ++row) {
        console.output.writeLine(std::to_string(counts.first[row]) + "\t" +
                                 std::to_string(counts.second.value_or(none)[row]) + "\t" +
                                 std::to_string(counts.total[row]));
    }
}

// Without figures, and with a status, when the script cannot be counted.
ExitStatus count(const std::filesystem::path& file, ScriptStatistics& counts, Console& console)
{
    const auto say = [&console](MessageIcon icon, const BilingualText& text) {
        console.dialogs.show({icon, statisticsTitle(), text});
        return console.dialogs.status();
    };
    const Result<std::string> script = readScript(file);
    if (!script) {
        return say(MessageIcon::Critical, script.failure().text);
    }
    const Result<ScriptStatistics> counted = countScript(*script);
    if (!counted) {
        return say(MessageIcon::Exclamation, counted.failure().text);
    }
    counts = *counted;
    if (!counts.notices.empty()) {
        say(MessageIcon::Exclamation, listOf(counts.notices));
    }
    return ExitStatus::Done;
}

ExitStatus countEntries(const std::optional<std::filesystem::path>& asked, Console& console)
{
    ScriptStatistics counts;
    ExitStatus status = ExitStatus::FileFailure;
    if (asked) {
        status = count(*asked, counts, console);
    } else if (const std::optional<ProgramSettings> settings = openSettings(console)) {
        status = count(scriptFile(nativePath(settings->LevelEditorFolder)), counts, console);
    }
    writeCounts(counts, console); // whatever happened, a script finds its four rows
    return status;
}

} // namespace

void addGenerationCommands(const Menu& menu)
{
    const auto wadName = std::make_shared<std::string>();
    menu.command(
            "generate",
            {"Check the samples of a WAD, and make its SAM and SFX files with the level editor's tool",
             "Contrôler les samples d'un WAD et générer ses fichiers SAM et SFX avec l'outil de l'éditeur"},
            [wadName](Console& console) { return generate(*wadName, console); })
        .text("WAD", {"One of your WADs", "Un de vos WADs"}, *wadName);
    const auto choice = std::make_shared<RestoreChoice>();
    menu.command("restore",
                 {"Put files of the level editor back as they were installed",
                  "Restaurer des fichiers de l'éditeur de niveaux tels qu'installés"},
                 [choice](Console& console) { return restore(*choice, console); })
        .flag("--catalogue", BilingualText::same("sounds.txt"), choice->catalogue)
        .flag("--samples", {"All samples", "Tous les samples"}, choice->samples)
        .flag("--sfx",
              {"The SAM and SFX files of the stock levels", "Les fichiers SAM et SFX des niveaux d'origine"},
              choice->sfx);
    const auto script = std::make_shared<std::optional<std::filesystem::path>>();
    menu.command(
            "stats",
            {"Count the groups, global triggers, organizers and triggers of a script: first level, second "
             "level, total",
             "Compter les groupes, triggers globaux, organizers et triggers d'un script : premier niveau, "
             "deuxième niveau, total"},
            [script](Console& console) { return countEntries(*script, console); })
        .optionalPath(
            "FILE",
            {"Usually script.txt of the level editor", "D'habitude script.txt de l'éditeur de niveaux"},
            *script);
}

} // namespace tavrel
