// SPDX-License-Identifier: GPL-3.0-or-later
// The check of a folder of samples against the least that any check must do.
#include "demo/WavFile.h"
#include "samples/SamplesFolder.h"

#include <benchmark/benchmark.h>

#include <array>
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

} // namespace
