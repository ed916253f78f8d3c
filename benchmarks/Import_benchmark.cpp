// SPDX-License-Identifier: GPL-3.0-or-later
// The import of a list of samples from its files: so many samples against so many lines.
#include "base/SafeFile.h"
#include "catalogue/ChangedLines.h"
#include "references/WadListImport.h"

#include <benchmark/benchmark.h>

using namespace tavrel;

namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const std::string& bytes)
{
    fs::create_directories(file.parent_path());
    if (writeFileSafely(file, bytes)) {
        throw std::runtime_error("cannot write for the benchmark");
    }
}

class ImportFiles
{
public:
    explicit ImportFiles(const std::string& list) { write(places.wads / "level.sam", list); }
    ImportFiles(const ImportFiles&) = delete;
    ImportFiles& operator=(const ImportFiles&) = delete;
    ~ImportFiles() { fs::remove_all(root); }

    ImportPlan plan(const SoundCatalogue& catalogue) const
    {
        const Result<WadList> list = readWadList(places.wads, "level", WadListKind::Samples);
        const Result<ChangedLines> saved = readChangedLines(places.program, "level", catalogue);
        return planSamplesImport(catalogue, *saved, *list, "zz");
    }

    fs::path root = fs::temp_directory_path() / "tavrel-import-benchmark";
    Places places{root / "program", {}, {}, {}, root / "wads"};
};

// Half of the lines are among the saved ones.
void importSamples(benchmark::State& state)
{
    SoundCatalogue catalogue;
    std::string saved;
    for (int k = 0; k < state.range(1); ++k) {
        const std::string number = std::to_string(k);
        const std::string line = "SOUND_" + number + ":\t\tsample" + number + " other" + number +
                                 "\t\tVOL50\tP V\tCH50\tPIT10\tRAD10\t#ab #cd";
        catalogue.append(line, line, catalogue.size() + 1);
        if (k % 2 == 0) {
            saved += number + ",\"" + line + "\"\r\n";
        }
    }
    std::string list;
    for (int i = 0; i < state.range(0); ++i) {
        list += "sample" + std::to_string(i) + ".wav\r\n";
    }
    const ImportFiles files(list);
    write(files.places.program / "sounds" / "level.tor", saved);
    for (auto _ : state) {
        if (files.plan(catalogue).linesWithNewLetter == 0) {
            state.SkipWithError("no line got the letter");
        }
    }
}
BENCHMARK(importSamples)->Args({500, 370})->Args({5000, 4000})->Unit(benchmark::kMillisecond);

// The largest list that is read at all, with nothing in it.
void importBlankLines(benchmark::State& state)
{
    const ImportFiles files(std::string(8U << 20U, '\n'));
    for (auto _ : state) {
        if (files.plan(SoundCatalogue()).notices.size() != 1) {
            state.SkipWithError("the blank lines are told once");
        }
    }
}
BENCHMARK(importBlankLines)->Unit(benchmark::kMillisecond);

} // namespace
