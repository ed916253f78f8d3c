// SPDX-License-Identifier: GPL-3.0-or-later
// The import of a list of samples: so many samples against so many lines.
#include "references/WadImport.h"

#include <benchmark/benchmark.h>

using namespace tavrel;

namespace {

void planSamplesImport(benchmark::State& state)
{
    SoundCatalogue catalogue;
    for (int k = 0; k < state.range(1); ++k) {
        const std::string number = std::to_string(k);
        const std::string line = "SOUND_" + number + ":\t\tsample" + number + " other" + number +
                                 "\t\tVOL50\tP V\tCH50\tPIT10\tRAD10\t#ab #cd";
        catalogue.append(line, line, catalogue.size() + 1);
    }
    WadList list;
    for (int i = 0; i < state.range(0); ++i) {
        list.values.push_back({"sample" + std::to_string(i) + ".wav", static_cast<std::size_t>(i) + 1});
    }
    for (auto _ : state) {
        const ImportPlan plan = planSamplesImport(catalogue, {}, list, "zz");
        if (plan.linesWithNewLetter == 0) {
            state.SkipWithError("no line got the letter");
        }
    }
}
BENCHMARK(planSamplesImport)->Args({500, 370})->Args({5000, 4000})->Unit(benchmark::kMillisecond);

} // namespace
