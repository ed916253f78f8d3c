// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the samples that sounds use: each is read once and told once.
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"
#include "checks/Sizes.h"

namespace tavrel {

namespace {

// Calls for each file that a sound uses, with what it says.
template <typename Look>
void forEachUsedSample(CheckRun& run, Look look)
{
    const auto& readings = run.readings();
    for (std::size_t i = 0; i < readings.size(); ++i) {
        if (readings[i]) {
            look(i, *readings[i]);
        }
    }
}

Finding& addForFile(CheckRun& run, std::string_view check, Severity severity, std::size_t file,
                    const BilingualText& text)
{
    Finding& finding = run.add(check, severity, text);
    finding.file = run.samples()[file].name;
    finding.sounds = run.uses()[file];
    return finding;
}

void offerRepair(const CheckRun& run, Finding& finding, std::size_t file)
{
    if (const auto& repair = run.subject().repairSample) {
        finding.fix = Fix{{"Repair the file", "Réparer le fichier"},
                          FileFix([repair, path = run.samples()[file].path] { return repair(path); })};
    }
}

BilingualText named(const CheckRun& run, std::size_t file)
{
    const std::string name = bracketed(run.samples()[file].name);
    return {name + ": ", name + " : "};
}

} // namespace

void checks::sampleFormat(CheckRun& run)
{
    forEachUsedSample(run, [&run](std::size_t file, const SampleReading& sample) {
        if (!sample.verdict.valid()) {
            offerRepair(run,
                        addForFile(run, "sample-format", Severity::Error, file,
                                   named(run, file) + faultsOf(sample) + "."),
                        file);
        }
    });
}

void checks::sampleBits(CheckRun& run)
{
    forEachUsedSample(run, [&run](std::size_t file, const SampleReading& sample) {
        constexpr std::uint32_t rightBits = 16;
        if (sample.verdict.valid() && sample.bits != rightBits) {
            const std::string bits = std::to_string(sample.bits);
            offerRepair(run,
                        addForFile(run, "sample-bits", Severity::Warning, file,
                                   named(run, file) + BilingualText(bits + " bits instead of 16.",
                                                                    bits + " bits au lieu de 16.")),
                        file);
        }
    });
}

void checks::sampleChunks(CheckRun& run)
{
    forEachUsedSample(run, [&run](std::size_t file, const SampleReading& sample) {
        if (sample.verdict.valid() && sample.hasChunksBehindData) {
            offerRepair(
                run,
                addForFile(run, "sample-chunks", Severity::Warning, file,
                           named(run, file) + BilingualText("there is something after the sound data.",
                                                            "quelque chose suit les données du son.")),
                file);
        }
    });
}

void checks::sampleSilent(CheckRun& run)
{
    forEachUsedSample(run, [&run](std::size_t file, const SampleReading& sample) {
        if (sample.verdict.valid() && sample.isSilent) {
            addForFile(run, "sample-silent", Severity::Warning, file,
                       named(run, file) +
                           BilingualText("there is nothing to hear in it.", "il n'y a rien à entendre."));
        }
    });
}

void checks::sampleUnused(CheckRun& run)
{
    for (std::size_t i = 0; i < run.samples().size(); ++i) {
        if (!run.uses()[i].empty()) {
            continue;
        }
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(run.samples()[i].path, error);
        Finding& finding = run.add("sample-unused", Severity::Note,
                                   named(run, i) +
                                       BilingualText("no line uses it (", "aucune ligne ne "
                                                                          "l'utilise (") +
                                       shownSize(error ? 0 : size) + ").");
        finding.file = run.samples()[i].name;
    }
}

} // namespace tavrel
