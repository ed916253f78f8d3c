// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "cli/Commands.h"
#include "cli/Opening.h"
#include "samples/SamplesFolder.h"

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
            console.output.writeLine(utf8FromCodePage(anomalyRow(sample.name, verdict, console.language)));
            ++rows;
        }
    }
    write(anomalyCount(rows));
    return rows == 0 ? ExitStatus::Done : ExitStatus::Refused;
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
}

} // namespace tavrel
