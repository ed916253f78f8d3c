// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleCommands.h"

#include "base/CodePage.h"
#include "base/Folder.h"
#include "cli/Commands.h"
#include "cli/Json.h"
#include "cli/Opening.h"
#include "samples/SampleConversion.h"
#include "samples/SampleRepair.h"
#include "samples/SamplesFolder.h"
#include "samples/Waveform.h"

#include <algorithm>
#include <memory>

namespace tavrel {

namespace {

// The folder's samples by name, so that two lists can be compared. Nothing, and a message, when it cannot be
// read.
std::optional<std::vector<SampleFile>> samplesIn(const std::optional<std::filesystem::path>& asked,
                                                 Console& console)
{
    std::filesystem::path folder;
    if (asked) {
        folder = *asked;
    } else if (const std::optional<ProgramSettings> settings = openSettings(console)) {
        const Places places = derivePlaces(console.programFolder, settings->LevelEditorFolder);
        tellCutRestores(places, console);
        folder = places.samples;
    } else {
        return std::nullopt;
    }
    Result<std::vector<SampleFile>> samples = listSamples(folder);
    if (!samples) {
        console.dialogs.fail(samples.failure());
        return std::nullopt;
    }
    std::ranges::sort(*samples, {},
                      [](const SampleFile& file) { return std::pair(upperCase(file.name), file.name); });
    return std::move(*samples);
}

ExitStatus listNames(const std::optional<std::filesystem::path>& folder, Console& console)
{
    const std::optional<std::vector<SampleFile>> samples = samplesIn(folder, console);
    if (!samples) {
        return ExitStatus::FileFailure;
    }
    for (const SampleFile& sample : *samples) {
        console.output.writeLine(displayPath(sample.path.filename()));
    }
    return ExitStatus::Done;
}

ExitStatus checkSamples(const std::optional<std::filesystem::path>& folder, Console& console)
{
    std::optional<std::vector<SampleFile>> samples = samplesIn(folder, console);
    if (!samples) {
        return ExitStatus::FileFailure;
    }
    const auto write = [&console](const BilingualText& text) {
        console.output.writeLine(console.dialogs.inLanguage(text));
    };
    write(anomalyTitle());
    write(anomalyColumns());
    std::size_t rows = 0;
    for (SamplesCheck check(std::move(*samples)); !check.finished();) {
        const SampleFile& sample = check.next();
        const SampleFormatVerdict verdict = check.checkNext();
        if (!verdict.valid()) {
            console.output.writeLine(
                utf8FromCodePage(checkedRow(sample.path, sample.name, verdict, console.language)));
            ++rows;
        }
    }
    write(anomalyCount(rows));
    return rows == 0 ? ExitStatus::Done : ExitStatus::Refused;
}

// repair

struct RepairArguments
{
    std::optional<std::filesystem::path> folder;
    std::vector<std::string> only;
    bool dryRun = false;
};

// The named samples, in any format; without names, those in a wrong one. Nothing when a name is no sample's.
std::optional<std::vector<std::filesystem::path>>
samplesToRepair(const std::vector<SampleFile>& samples, const RepairArguments& arguments, Console& console)
{
    std::vector<std::filesystem::path> chosen;
    if (arguments.only.empty()) {
        for (const SampleFile& sample : samples) {
            if (!CheckSampleFormatDetailed(sample.path).valid()) {
                chosen.push_back(sample.path);
            }
        }
        return chosen;
    }
    for (const std::string& name : arguments.only) {
        const auto found = std::ranges::find_if(samples, [&name](const SampleFile& sample) {
            return sameName(sample.name, name) || sameName(sample.name, sampleFileName(name));
        });
        if (found == samples.end()) {
            const std::string shown = bracketed(name);
            console.dialogs.refuse({"The folder has no sample " + shown + ".",
                                    "Le répertoire n'a pas de sample " + shown + "."});
            return std::nullopt;
        }
        chosen.push_back(found->path);
    }
    return chosen;
}

bool allAreRight(const std::vector<std::filesystem::path>& samples)
{
    return std::ranges::all_of(samples, [](const std::filesystem::path& sample) {
        return CheckSampleFormatDetailed(sample).valid();
    });
}

ExitStatus repairSamples(const RepairArguments& arguments, Console& console)
{
    const std::optional<std::vector<SampleFile>> samples = samplesIn(arguments.folder, console);
    if (!samples) {
        return ExitStatus::FileFailure;
    }
    const auto chosen = samplesToRepair(*samples, arguments, console);
    if (!chosen) {
        return ExitStatus::Refused;
    }
    std::vector<std::filesystem::path> all;
    for (const SampleFile& sample : *samples) {
        all.push_back(sample.path);
    }
    const auto statusNow = [&all] { return allAreRight(all) ? ExitStatus::Done : ExitStatus::Refused; };
    if (chosen->empty()) {
        console.output.writeLine(console.dialogs.inLanguage(anomalyCount(0)));
        return statusNow();
    }
    if (arguments.dryRun) {
        for (const std::filesystem::path& sample : *chosen) {
            console.output.writeLine(displayPath(sample.filename()));
        }
        return statusNow();
    }
    const Question question = repairQuestion(*chosen);
    if (console.dialogs.ask(question) != Answer::Yes) {
        return ExitStatus::Refused;
    }
    SilentProgress progress;
    const SampleReport report = runOnSamples(SampleTask::Repair, *chosen, progress);
    console.output.writeLine(console.dialogs.inLanguage(report.text()));
    const bool anyDone = report.failures() < report.outcomes.size();
    return anyDone && !allAreRight(all) ? ExitStatus::DoneWithMessages : statusNow();
}

void addRepair(const Menu& samples)
{
    const auto arguments = std::make_shared<RepairArguments>();
    samples
        .command(
            "repair",
            {"Convert samples to the right format; the originals are kept in a folder beside",
             "Convertir des samples au bon format ; les originaux sont conservés dans un répertoire voisin"},
            [arguments](Console& console) { return repairSamples(*arguments, console); })
        .optionalPath("FOLDER",
                      {"Usually the samples folder of the level editor",
                       "D'habitude le répertoire de samples de l'éditeur de niveaux"},
                      arguments->folder)
        .texts("--only",
               {"Only this sample, in whatever format it is; may be given more than once",
                "Seulement ce sample, quel que soit son format ; peut être répété"},
               arguments->only)
        .flag("--dry-run", {"Only list what would be converted", "Énumérer seulement ce qui serait converti"},
              arguments->dryRun);
}

// info

struct InfoArguments
{
    std::vector<std::filesystem::path> files;
    bool json = false;
};

void appendFacts(std::string& text, const std::filesystem::path& file, const Waveform& waveform)
{
    const SoundFormat& format = waveform.format;
    JsonObject object(text);
    object.utf8("File", displayPath(file))
        .utf8("Kind", format.kind)
        .utf8("Encoding", format.encoding)
        .number("Rate", format.rate)
        .number("Channels", format.channels)
        .number("Bits", format.bits)
        .number("Frames", format.frames)
        .decimal("Seconds", decimalText(waveform.seconds, 3).english)
        .decimal("Peak", decimalText(waveform.peak, 6).english)
        .bytes("Chunks", format.chunks)
        .flag("CutOff", format.cutOff)
        .flag("RightFormat", CheckSampleFormatDetailed(file).valid());
    object.end();
}

ExitStatus showInfo(const InfoArguments& arguments, Console& console)
{
    for (const std::filesystem::path& file : arguments.files) {
        const Result<Waveform> waveform = readWaveform(file);
        if (!waveform) {
            console.dialogs.fail(waveform.failure());
        } else if (arguments.json) {
            appendFacts(console.output.pending(), file, *waveform);
            console.output.endLine();
        } else {
            console.output.writeLine(displayPath(file) + console.dialogs.inLanguage(
                                                             BilingualText(": ", " : ") + waveform->facts()));
        }
    }
    return ExitStatus::Done; // a file that could not be read counts by its message
}

void addInfo(const Menu& samples)
{
    const auto arguments = std::make_shared<InfoArguments>();
    samples
        .command("info", {"Tell what sound files of any kind are", "Décrire des fichiers son de toute sorte"},
                 [arguments](Console& console) { return showInfo(*arguments, console); })
        .paths("FILE", {"Sound files", "Des fichiers son"}, arguments->files)
        .flag("--json", {"One JSON object for each file", "Un objet JSON par fichier"}, arguments->json);
}

// add

struct AddArguments
{
    std::size_t number = 0;
    std::vector<std::filesystem::path> files;
    std::optional<std::string> wadName;
};

ExitStatus addFiles(const AddArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSessionToChange(console, arguments.wadName);
    if (!session) {
        return console.dialogs.status();
    }
    if (!hasSound(*session, arguments.number, console)) {
        return ExitStatus::Refused;
    }
    LineEditor editor(session->catalogue());
    editor.select(arguments.number);
    if (!editor.canEdit()) {
        console.dialogs.show(protectedLineRefusal());
        return ExitStatus::Refused;
    }
    const SampleResult added = addSoundFiles(editor, arguments.files, session->places().samples,
                                             SampleNames::AsProposed, console.dialogs);
    return added.changed ? apply(*session, arguments.wadName, console) : ExitStatus::Refused;
}

void addAdd(const Menu& samples)
{
    const auto arguments = std::make_shared<AddArguments>();
    samples
        .command("add",
                 {"Convert sound files of any kind into samples of one sound and write sounds.txt",
                  "Convertir des fichiers son de toute sorte en samples d'un son et écrire sounds.txt"},
                 [arguments](Console& console) { return addFiles(*arguments, console); })
        .number("N", {"The sound's number", "Le numéro du son"}, arguments->number)
        .paths("FILE", {"Sound files", "Des fichiers son"}, arguments->files)
        .wad(arguments->wadName);
}

using Run = ExitStatus (*)(const std::optional<std::filesystem::path>&, Console&);

void addCommand(const Menu& menu, const std::string& name, const BilingualText& what, Run run)
{
    const auto folder = std::make_shared<std::optional<std::filesystem::path>>();
    menu.command(name, what, [folder, run](Console& console) { return run(*folder, console); })
        .optionalPath("FOLDER",
                      {"Usually the samples folder of the level editor",
                       "D'habitude le répertoire de samples de l'éditeur de niveaux"},
                      *folder);
}

} // namespace

void addSampleCommands(const Menu& menu)
{
    const Menu samples = menu.group("samples", {"A folder of samples", "Un répertoire de samples"});
    addCommand(samples, "check",
               {"List the samples in a wrong format", "Lister les samples au mauvais format"}, checkSamples);
    addCommand(samples, "list", {"List all samples", "Lister tous les samples"}, listNames);
    addRepair(samples);
    addInfo(samples);
    addAdd(samples);
}

} // namespace tavrel
