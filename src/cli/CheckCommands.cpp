// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "checks/Checks.h"
#include "checks/FindingTexts.h"
#include "checks/Levels.h"
#include "checks/SessionChecks.h"
#include "cli/Commands.h"
#include "cli/Json.h"
#include "cli/Opening.h"

#include <algorithm>
#include <memory>

namespace tavrel {

namespace {

struct CheckArguments
{
    std::optional<std::string> wadName;
    std::optional<std::string> letter;
    std::optional<std::string> severity;
    std::vector<std::string> fixes;
    bool json = false;
};

std::optional<BilingualText> checkSeverity(std::string& argument)
{
    if (argument == "error" || argument == "warning" || argument == "note") {
        return std::nullopt;
    }
    return BilingualText("The severity is error, warning or note", "La gravité est error, warning ou note");
}

std::optional<BilingualText> checkFix(std::string& argument)
{
    const Check* const check = findCheck(argument);
    const std::string shown = "[" + argument + "]";
    if (check == nullptr) {
        return BilingualText("There is no check " + shown, "Il n'y a pas de contrôle " + shown);
    }
    if (!check->mendable) {
        return BilingualText(shown + " has no fix", shown + " n'a pas de correction");
    }
    return std::nullopt;
}

Severity severityNamed(const std::optional<std::string>& name)
{
    return name == "error" ? Severity::Error : name == "warning" ? Severity::Warning : Severity::Note;
}

CheckReport check(const Session& session, const CurrentWad& wad)
{
    SilentProgress progress;
    return checkSession(session, wad, progress);
}

// The WAD that was asked for, none for the whole project; a message, and false, when there is no such one.
struct Scope
{
    bool isKnown = true;
    std::optional<CurrentWad> wad;
};

Scope scopeOf(const CheckArguments& arguments, const Session& session, Console& console)
{
    Scope scope;
    if (arguments.wadName) {
        scope.wad = wadNamed(session, *arguments.wadName, console);
    } else if (arguments.letter) {
        scope.wad = wadWithLetter(session, *arguments.letter, console);
    }
    scope.isKnown = scope.wad || (!arguments.wadName && !arguments.letter);
    return scope;
}

std::vector<const Finding*> inScope(const CheckReport& report, const Session& session, const Scope& scope)
{
    std::vector<const Finding*> findings;
    for (const Finding& finding : report.findings) {
        if (!scope.wad || concernsWad(finding, session.catalogue(), *scope.wad)) {
            findings.push_back(&finding);
        }
    }
    return findings;
}

void write(const Finding& finding, const SoundCatalogue& catalogue, bool json, Console& console)
{
    if (!json) {
        std::string line = std::string(nameOf(finding.severity)).append(" ").append(finding.check);
        const std::string place = placeOf(finding, catalogue);
        line += place.empty() ? "" : " [" + place + "]";
        console.output.writeLine(line + " " + console.dialogs.inLanguage(finding.text));
        return;
    }
    JsonObject object(console.output.pending());
    object.utf8("check", finding.check).utf8("severity", nameOf(finding.severity));
    finding.sounds.empty() ? object.null("sound") : object.number("sound", finding.sounds.front());
    finding.file.empty() ? object.null("file") : object.bytes("file", finding.file);
    object.utf8("text", console.dialogs.inLanguage(finding.text))
        .flag("fixable", finding.fix && !std::holds_alternative<RegisterFix>(finding.fix->action))
        .end();
    console.output.endLine();
}

// fix

std::vector<const Finding*> wanted(const CheckReport& report, const CheckArguments& arguments,
                                   const Session& session, const Scope& scope)
{
    std::vector<const Finding*> findings = inScope(report, session, scope);
    std::erase_if(findings, [&arguments](const Finding* finding) {
        return std::ranges::find(arguments.fixes, finding->check) == arguments.fixes.end();
    });
    return findings;
}

void repairFiles(const std::vector<const Finding*>& findings, Console& console)
{
    for (const Finding* const finding : findings) {
        const auto* const repair = finding->fix ? std::get_if<FileFix>(&finding->fix->action) : nullptr;
        const Problem problem = repair == nullptr ? std::nullopt : (*repair)();
        if (problem) {
            console.dialogs.fail(*problem);
        }
    }
}

ExitStatus mend(Session& session, const CheckArguments& arguments, const Scope& scope, const CurrentWad& wad,
                Console& console)
{
    CheckReport report = check(session, wad);
    const auto otherwise = linesToReadOtherwise(wanted(report, arguments, session, scope));
    if (!otherwise.empty()) {
        console.dialogs.say(BilingualText("Read otherwise:\n", "Lues autrement :\n") + previewOf(otherwise));
        if (!loadAgain(session, otherwise, console)) {
            return ExitStatus::FileFailure;
        }
        report = check(session, wad); // the sounds have other numbers
    }
    const std::vector<const Finding*> findings = wanted(report, arguments, session, scope);
    std::vector<SoundCatalogue::LineChange> changes = changesOf(findings, session.catalogue());
    if (!changes.empty()) {
        console.dialogs.say(BilingualText("Changed:\n", "Modifiées :\n") +
                            previewOf(changes, session.catalogue()));
    }
    if (const Problem problem = session.catalogue().setCurrentLines(std::move(changes))) {
        return console.dialogs.fail(*problem);
    }
    repairFiles(findings, console);
    return apply(session, std::nullopt, console);
}

ExitStatus checkProject(const CheckArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session =
        arguments.fixes.empty() ? openSession(console) : openSessionToChange(console);
    if (!session) {
        return ExitStatus::FileFailure;
    }
    const Scope scope = scopeOf(arguments, *session, console);
    if (!scope.isKnown) {
        return ExitStatus::Refused;
    }
    const CurrentWad wad = scope.wad.value_or(session->wad());
    if (!arguments.fixes.empty()) {
        const ExitStatus status = mend(*session, arguments, scope, wad, console);
        if (status != ExitStatus::Done) {
            return status;
        }
    }
    const CheckReport report = check(*session, wad);
    if (!report.notices.empty()) {
        console.dialogs.fail({listOf(report.notices)});
    }
    bool hasErrors = false;
    for (const Finding* const finding : inScope(report, *session, scope)) {
        hasErrors = hasErrors || finding->severity == Severity::Error;
        if (finding->severity <= severityNamed(arguments.severity)) {
            write(*finding, session->catalogue(), arguments.json, console);
        }
    }
    return hasErrors ? ExitStatus::Refused : ExitStatus::Done;
}

// levels

void writeJson(const LevelSurvey& level, Console& console)
{
    JsonObject object(console.output.pending());
    object.bytes("wad", level.reference.wadName)
        .bytes("letter", level.reference.letter)
        .bytes("title", level.reference.title)
        .number("ownSounds", level.ownSounds)
        .number("globalSounds", level.globalSounds)
        .number("samples", level.samples.size())
        .number("bytes", level.bytes)
        .number("missing", level.missingSamples)
        .number("errors", level.errors)
        .number("warnings", level.warnings)
        .number("notes", level.notes);
    level.made ? object.utf8("made", shownTime(*level.made)) : object.null("made");
    object.end();
    console.output.endLine();
}

void writeRow(const LevelSurvey& level, Console& console)
{
    std::string row =
        utf8FromCodePage(level.reference.wadName) + "\t#" + utf8FromCodePage(level.reference.letter);
    for (const std::uintmax_t number :
         {std::uintmax_t{level.ownSounds}, std::uintmax_t{level.globalSounds},
          std::uintmax_t{level.samples.size()}, level.bytes, std::uintmax_t{level.missingSamples},
          std::uintmax_t{level.errors}, std::uintmax_t{level.warnings}, std::uintmax_t{level.notes}}) {
        row += "\t" + std::to_string(number);
    }
    row += "\t" + (level.made ? shownTime(*level.made) : "-");
    console.output.writeLine(row + "\t" + utf8FromCodePage(level.reference.title));
}

ExitStatus listLevels(bool json, Console& console)
{
    const std::unique_ptr<Session> session = openSession(console);
    if (!session) {
        return ExitStatus::FileFailure;
    }
    const Result<std::vector<LevelSurvey>> levels = surveySession(*session);
    if (!levels) {
        return console.dialogs.fail(levels.failure());
    }
    for (const LevelSurvey& level : *levels) {
        json ? writeJson(level, console) : writeRow(level, console);
    }
    return ExitStatus::Done;
}

} // namespace

void addCheckCommands(const Menu& menu)
{
    const auto arguments = std::make_shared<CheckArguments>();
    menu.command("check",
                 {"Check the project: sounds, samples, letters, references",
                  "Contrôler le projet : sons, samples, lettres, références"},
                 [arguments](Console& console) { return checkProject(*arguments, console); })
        .optionalText("--wad", {"Only what concerns this WAD", "Seulement ce qui concerne ce WAD"},
                      arguments->wadName)
        .optionalLetter("--letter",
                        {"The same for the WAD with this letter", "De même pour le WAD qui a cette lettre"},
                        arguments->letter)
        .flag("--json", {"One JSON object for each finding", "Un objet JSON par constat"}, arguments->json)
        .optionalText("--severity",
                      {"The least severity to list: error, warning or note",
                       "La moindre gravité à lister : error, warning ou note"},
                      arguments->severity, checkSeverity)
        .texts("--fix",
               {"Mend the findings of this check first, and write sounds.txt; may be given several times",
                "Corriger d'abord les constats de ce contrôle, et écrire sounds.txt ; peut être "
                "répété"},
               arguments->fixes, checkFix);
    const auto json = std::make_shared<bool>(false);
    menu.command("levels", {"Your levels in numbers", "Vos niveaux en chiffres"},
                 [json](Console& console) { return listLevels(*json, console); })
        .flag("--json", {"One JSON object for each level", "Un objet JSON par niveau"}, *json);
}

} // namespace tavrel
