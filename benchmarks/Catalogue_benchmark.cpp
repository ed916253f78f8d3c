// SPDX-License-Identifier: GPL-3.0-or-later
#include "BenchmarkFolders.h"
#include "catalogue/CatalogueLoading.h"
#include "catalogue/SoundLine.h"
#include "references/ReferenceRegister.h"

#include <benchmark/benchmark.h>

using namespace tavrel;

namespace {

constexpr std::string_view line =
    "AHMET_ATTACK:\t\tahmet_02 ahmet_03 ahmet_05\tVOL90\tP V\tCH50\tPIT-25\tRAD13\t#g #ab #cd";

void parseLine(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(ParseSoundLine(line));
    }
}
BENCHMARK(parseLine);

void composeLine(benchmark::State& state)
{
    SoundLine record = ParseSoundLine(line);
    for (auto _ : state) {
        benchmark::DoNotOptimize(record);
        benchmark::DoNotOptimize(ComposeSoundLine(record));
    }
}
BENCHMARK(composeLine);

// sounds.txt of so many lines with all working files.
void loadEverything(benchmark::State& state)
{
    const BenchmarkFolders folders;
    const auto lineCount = static_cast<std::size_t>(state.range(0));
    folders.growTo(lineCount);
    for (auto _ : state) {
        const auto references = loadRegister(folders.program);
        const auto loaded = loadCatalogue({folders.program, folders.creator, false});
        if (!references || !loaded || loaded->catalogue.size() != lineCount) {
            state.SkipWithError("not loaded");
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(loadEverything)->Arg(370)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
