// SPDX-License-Identifier: GPL-3.0-or-later
#include "BenchmarkFolders.h"
#include "session/RecoveryLog.h"
#include "session/Session.h"

#include <benchmark/benchmark.h>

using namespace tavrel;

namespace {

// A step that changed every line, taken back.
void undoStep(benchmark::State& state)
{
    const BenchmarkFolders folders;
    folders.growTo(static_cast<std::size_t>(state.range(0)));
    Session session(folders.program, LoadSettings(folders.program).settings);
    if (!session.load()) {
        state.SkipWithError("not loaded");
        return;
    }
    SoundCatalogue& catalogue = session.catalogue();
    {
        std::vector<SoundCatalogue::LineChange> changes;
        for (std::size_t k = 0; k < catalogue.size(); ++k) {
            changes.push_back({k, catalogue.currentLine(k) + " #zz"});
        }
        const Step step(catalogue, {"Step", "Étape"});
        if (catalogue.setCurrentLines(std::move(changes))) {
            state.SkipWithError("not changed");
            return;
        }
    }
    for (auto _ : state) {
        session.undo();
        state.PauseTiming();
        session.redo();
        state.ResumeTiming();
    }
}
BENCHMARK(undoStep)->Arg(370)->Arg(100000)->Unit(benchmark::kMillisecond);

// One changed line, where a flush costs nothing.
void recoveryRecord(benchmark::State& state)
{
    const std::filesystem::path memory = "/dev/shm";
    const std::filesystem::path folder =
        (std::filesystem::exists(memory) ? memory : std::filesystem::temp_directory_path()) /
        "tavrel-recovery-benchmark";
    std::filesystem::create_directories(folder);
    {
        RecoveryLog log(folder);
        HistoryTrack track;
        HistoryStep step{1, {"Step", "Étape"}, {}, {}, {}, {}};
        step.lines.push_back({LineDelta::Kind::Changed, 1, std::string(80, 'a'), std::string(80, 'b')});
        if (log.begin({folder / "Sounds.txt", 1, 1, {}}, track)) {
            state.SkipWithError("not begun");
        }
        for (auto _ : state) {
            if (log.stepDone(step, track)) {
                state.SkipWithError("not written");
                break;
            }
        }
    }
    std::filesystem::remove_all(folder);
}
BENCHMARK(recoveryRecord)->Unit(benchmark::kMicrosecond);

} // namespace
