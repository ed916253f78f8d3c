// SPDX-License-Identifier: GPL-3.0-or-later
// The filters of the command line over a million lines: what they take of one processor.
#include "base/TextFile.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>

using namespace tavrel;

namespace {

constexpr int lineCount = 1000000;

class MillionLines
{
public:
    MillionLines()
    {
        const auto stock = readTextFile(std::filesystem::path(TAVREL_DATA) / "Tavrel.tos");
        const std::vector<std::string_view> lines = stock->lines();
        std::ofstream file(path, std::ios::binary);
        for (std::size_t i = 0; i < lineCount; ++i) {
            file << lines[i % lines.size()] << "\r\n";
        }
    }
    MillionLines(const MillionLines&) = delete;
    MillionLines& operator=(const MillionLines&) = delete;
    ~MillionLines() { std::filesystem::remove(path); }

    std::filesystem::path path = std::filesystem::temp_directory_path() / "tavrel-benchmark-lines.txt";
};

double seconds(const timeval& time)
{
    constexpr double microseconds = 1e6;
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / microseconds;
}

double processorSecondsOfChildren()
{
    rusage used = {};
    getrusage(RUSAGE_CHILDREN, &used);
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

void filterLines(benchmark::State& state, const std::string& filter)
{
    const MillionLines lines;
    const std::string command =
        "\"" TAVREL_CLI "\" " + filter + " <\"" + lines.path.string() + "\" >/dev/null";
    for (auto _ : state) {
        const double before = processorSecondsOfChildren();
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("the command failed");
        }
        state.SetIterationTime(processorSecondsOfChildren() - before);
    }
    state.SetItemsProcessed(state.iterations() * lineCount);
}
BENCHMARK_CAPTURE(filterLines, parse, "parse")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterLines, compose, "compose")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterLines, removeLetter, "line remove-letter oa")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
