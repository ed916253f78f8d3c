// SPDX-License-Identifier: GPL-3.0-or-later
// A check of everything beside the least that it must do: list the samples and open each of them once.
#include "BenchmarkFolders.h"
#include "base/FileNames.h"
#include "catalogue/CatalogueLoading.h"
#include "checks/Checks.h"
#include "demo/WavFile.h"

#include <benchmark/benchmark.h>

#include <array>
#include <fcntl.h>
#include <fstream>
#include <unistd.h>

using namespace tavrel;

namespace {

// The catalogue grown to so many lines, whose samples are all there, and so many samples in all.
struct ProjectForBenchmark : BenchmarkFolders
{
    ProjectForBenchmark(std::size_t lines, std::size_t samples)
    {
        growTo(lines);
        std::filesystem::create_directories(folders.samples);
        catalogue = std::move(loadCatalogue({program, creator, false})->catalogue);
        references = std::move(loadRegister(program)->references);
        const std::string bytes = wavBytes({.seconds = 0.01});
        const auto write = [&](const std::string& name) {
            std::ofstream(folders.samples / (name + ".wav"), std::ios::binary) << bytes;
        };
        std::size_t count = 0;
        for (std::size_t k = 0; k < std::min<std::size_t>(catalogue.size(), 370); ++k) {
            for (const std::string& name : ParseSoundLine(catalogue.currentLine(k)).Samples) {
                write(name);
            }
        }
        for (auto& entry : std::filesystem::directory_iterator(folders.samples)) {
            count += entry.is_regular_file() ? 1 : 0;
        }
        for (; count < samples; ++count) {
            write("more" + std::to_string(count));
        }
        file.emplace(*readTextFile(creator, soundsFileName));
        wad = currentWad(references.findUserWad("oasis"));
    }

    CheckFolders folders{creator, levelEditor / "sound" / "Samples", levelEditor / "graphics" / "wads"};
    SoundCatalogue catalogue;
    ReferenceRegister references;
    std::optional<TextFile> file;
    CurrentWad wad;
};

void listAndOpen(benchmark::State& state)
{
    const ProjectForBenchmark project(370, static_cast<std::size_t>(state.range(1)));
    for (auto _ : state) {
        for (const auto& entry : std::filesystem::directory_iterator(project.folders.samples)) {
            std::array<char, 44> header{};
            const int descriptor = ::open(entry.path().c_str(), O_RDONLY);
            benchmark::DoNotOptimize(::read(descriptor, header.data(), header.size()));
            ::close(descriptor);
        }
    }
}
BENCHMARK(listAndOpen)->Args({370, 500})->Args({370, 10000})->Unit(benchmark::kMillisecond);

void checkProject(benchmark::State& state)
{
    const auto lineCount = static_cast<std::size_t>(state.range(0));
    const ProjectForBenchmark project(lineCount, static_cast<std::size_t>(state.range(1)));
    const CheckSubject subject{project.catalogue, project.references, project.wad, project.folders,
                               &*project.file};
    for (auto _ : state) {
        SilentProgress progress;
        if (runChecks(subject, progress).findings.empty()) {
            state.SkipWithError("nothing was found");
        }
    }
}
BENCHMARK(checkProject)->Args({370, 500})->Args({100000, 10000})->Unit(benchmark::kMillisecond);

} // namespace
