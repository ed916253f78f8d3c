// SPDX-License-Identifier: GPL-3.0-or-later
// Comparing and merging catalogues, beside the system's diff on the same files.
#include "base/TextFile.h"
#include "versions/CatalogueComparison.h"
#include "versions/CatalogueMerge.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

using namespace tavrel;

namespace {

enum class Change {
    Every, // line has another value
    Shift  // lines come and go in three places, and each tenth has another value
};

// The stock lines again and again, each with a name of its own but for the empty ones.
std::vector<std::string> manyLines(std::size_t count)
{
    const auto stock = readTextFile(std::filesystem::path(TAVREL_DATA) / "Tavrel.tos");
    const std::vector<std::string_view> lines = stock->lines();
    std::vector<std::string> result;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view line = lines[i % lines.size()];
        result.push_back((i < lines.size() ? "" : std::to_string(i)) + std::string(line));
    }
    return result;
}

std::vector<std::string> changed(std::vector<std::string> lines, Change change)
{
    const std::size_t step = change == Change::Every ? 1 : 10;
    for (std::size_t i = 0; i < lines.size(); i += step) {
        lines[i] += " #zz";
    }
    if (change == Change::Shift) {
        const auto at = [&](std::size_t quarters) {
            return lines.begin() + static_cast<std::ptrdiff_t>(lines.size() * quarters / 4);
        };
        lines.insert(at(1), "FIRST_NEW:\ta\t");
        lines.erase(at(2));
        lines.insert(at(3), "SECOND_NEW:\ta\t");
    }
    return lines;
}

struct Catalogues
{
    explicit Catalogues(const benchmark::State& state)
        : mine(manyLines(static_cast<std::size_t>(state.range(0)))),
          theirs(changed(mine, static_cast<Change>(state.range(1)))), myViews(mine.begin(), mine.end()),
          theirViews(theirs.begin(), theirs.end())
    {}

    std::vector<std::string> mine;
    std::vector<std::string> theirs;
    std::vector<std::string_view> myViews;
    std::vector<std::string_view> theirViews;
};

void compareTwo(benchmark::State& state)
{
    const Catalogues catalogues(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(compareCatalogues(catalogues.myViews, catalogues.theirViews));
    }
}

void mergeThree(benchmark::State& state)
{
    const Catalogues catalogues(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            mergeCatalogues(catalogues.myViews, catalogues.theirViews, catalogues.myViews));
    }
}

void systemDiff(benchmark::State& state)
{
    const Catalogues catalogues(state);
    const auto folder = std::filesystem::temp_directory_path();
    const auto write = [&](const char* name, const std::vector<std::string>& lines) {
        std::ofstream file(folder / name, std::ios::binary);
        for (const std::string& line : lines) {
            file << line << "\r\n";
        }
        return (folder / name).string();
    };
    const std::string command = "diff '" + write("tavrel-benchmark-mine.txt", catalogues.mine) + "' '" +
                                write("tavrel-benchmark-theirs.txt", catalogues.theirs) + "' >/dev/null";
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::system(command.c_str()));
    }
    std::filesystem::remove(folder / "tavrel-benchmark-mine.txt");
    std::filesystem::remove(folder / "tavrel-benchmark-theirs.txt");
}

void sizesAndChanges(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgsProduct({{370, 100000}, {0, 1}})->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(compareTwo)->Apply(sizesAndChanges);
BENCHMARK(mergeThree)->Apply(sizesAndChanges);
BENCHMARK(systemDiff)->Apply(sizesAndChanges);

} // namespace
