// SPDX-License-Identifier: GPL-3.0-or-later
// The check of a folder of samples against the least that any check must do, the repair of one against
// another program that converts, and the picture of a sample.
#include "demo/WavFile.h"
#include "samples/SampleRepair.h"
#include "samples/SamplesFolder.h"
#include "samples/Waveform.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <unistd.h>

using namespace tavrel;

namespace {

constexpr int fileCount = 10000;

class SamplesFolderForBenchmark
{
public:
    SamplesFolderForBenchmark()
    {
        std::filesystem::create_directories(path);
        const std::string bytes = wavBytes({.seconds = 0.01});
        for (int i = 0; i < fileCount; ++i) {
            std::ofstream(path / ("sample" + std::to_string(i) + ".wav"), std::ios::binary) << bytes;
        }
    }
    SamplesFolderForBenchmark(const SamplesFolderForBenchmark&) = delete;
    SamplesFolderForBenchmark& operator=(const SamplesFolderForBenchmark&) = delete;
    ~SamplesFolderForBenchmark() { std::filesystem::remove_all(path); }

    std::filesystem::path path = std::filesystem::temp_directory_path() / "tavrel-benchmark-samples";
};

void openReadClose(benchmark::State& state)
{
    const SamplesFolderForBenchmark folder;
    const auto files = listSamples(folder.path);
    for (auto _ : state) {
        for (const SampleFile& file : *files) {
            std::array<char, 40> header{};
            const int descriptor = ::open(file.path.c_str(), O_RDONLY);
            benchmark::DoNotOptimize(::read(descriptor, header.data(), header.size()));
            ::close(descriptor);
        }
    }
    state.SetItemsProcessed(state.iterations() * fileCount);
}
BENCHMARK(openReadClose)->Unit(benchmark::kMillisecond);

void checkFolder(benchmark::State& state)
{
    const SamplesFolderForBenchmark folder;
    for (auto _ : state) {
        SamplesCheck check(*listSamples(folder.path));
        while (!check.finished()) {
            if (!check.checkNext().valid()) {
                state.SkipWithError("a right sample was found wrong");
            }
        }
        if (check.count() != fileCount) {
            state.SkipWithError("not all files were checked");
        }
    }
    state.SetItemsProcessed(state.iterations() * fileCount);
}
BENCHMARK(checkFolder)->Unit(benchmark::kMillisecond);

constexpr int wrongCount = 200;

// Samples of 5 s, 44100 Hz, stereo, put in place anew before each repair.
class WrongSamplesForBenchmark
{
public:
    WrongSamplesForBenchmark() { restore(); }
    WrongSamplesForBenchmark(const WrongSamplesForBenchmark&) = delete;
    WrongSamplesForBenchmark& operator=(const WrongSamplesForBenchmark&) = delete;
    ~WrongSamplesForBenchmark() { std::filesystem::remove_all(root); }

    void restore()
    {
        std::filesystem::remove_all(root);
        std::filesystem::create_directories(root / "Samples");
        files.clear();
        for (int i = 0; i < wrongCount; ++i) {
            files.push_back(root / "Samples" / ("sample" + std::to_string(i) + ".wav"));
            std::ofstream(files.back(), std::ios::binary) << bytes;
        }
    }

    std::filesystem::path root = std::filesystem::temp_directory_path() / "tavrel-benchmark-repair";
    std::string bytes = wavBytes({.channels = 2, .sampleRate = 44100, .seconds = 5});
    std::vector<std::filesystem::path> files;
};

void repairFolder(benchmark::State& state)
{
    WrongSamplesForBenchmark samples;
    for (auto _ : state) {
        state.PauseTiming();
        samples.restore();
        state.ResumeTiming();
        SilentProgress progress;
        if (runOnSamples(SampleTask::Repair, samples.files, progress).failures() > 0) {
            state.SkipWithError("a sample was not repaired");
        }
    }
    state.SetItemsProcessed(state.iterations() * wrongCount);
}
BENCHMARK(repairFolder)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

// Once for each file, as a script would; it keeps no original and does not wait for the disk.
void soxForEachFile(benchmark::State& state)
{
    if (std::system("sox --version >/dev/null 2>&1") != 0) {
        state.SkipWithError("sox is not installed");
        return;
    }
    WrongSamplesForBenchmark samples;
    for (auto _ : state) {
        for (const std::filesystem::path& file : samples.files) {
            const std::string command =
                "sox " + file.string() + " -r 22050 -c 1 -b 16 " + file.string() + ".new.wav";
            if (std::system(command.c_str()) != 0) {
                state.SkipWithError("sox failed");
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * wrongCount);
}
BENCHMARK(soxForEachFile)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

void waveformOfFiveSeconds(benchmark::State& state)
{
    const WrongSamplesForBenchmark samples;
    for (auto _ : state) {
        benchmark::DoNotOptimize(readWaveform(samples.files.front()));
    }
}
BENCHMARK(waveformOfFiveSeconds)->Unit(benchmark::kMillisecond);

} // namespace
