// SPDX-License-Identifier: GPL-3.0-or-later
// A full disk, or the plug pulled, at every system call of an export and an import with samples.
#include "backup/SampleTransfer.h"
#include "base/SafeFile.h"
#include "support/FaultyRuns.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

struct Scenario
{
    const char* name;
    const char* fault; // for strace
    bool isKill;
};

void PrintTo(const Scenario& scenario, std::ostream* stream)
{
    *stream << scenario.name;
}

const std::string firstLine = "A:\tfoot bell\tVOL44\t#oa";

class ExchangeFaults : public testing::TestWithParam<Scenario>
{
protected:
    ExchangeFaults()
    {
        for (const char* name : {"Tavrel.tos", "Tavrel.tod", "Tavrel.too"}) {
            fs::create_directories(start / "program");
            fs::copy_file(dataFolder() / name, start / "program" / name);
        }
        writeBytes(start / "creator" / "Sounds.txt", firstLine + "\r\n");
        writeBytes(start / "all.tox", "\"0\",\"A:\tfoot\t\"\r\n");
    }

    FaultyRuns runsOf(const char* command) const
    {
        return {{TAVREL_EXCHANGE_ONCE, command, (work / "program").string(), (work / "creator").string(),
                 (work / "all.tox").string(), (work / "samples").string()},
                root.path(),
                [this] {
                    fs::remove_all(work);
                    fs::copy(start, work, fs::copy_options::recursive);
                }};
    }

    void expectNoCrash(const FaultyRuns::Run& run) const
    {
        EXPECT_TRUE(GetParam().isKill || run.hitTheSanitizer || WIFEXITED(run.status));
    }

    TemporaryFolder root;
    fs::path start = root / "start";
    fs::path work = root / "work";
};

TEST_P(ExchangeFaults, AnExportLeavesTheOldFilesOrTheNewOnes)
{
    writeBytes(start / "samples" / "foot.wav", "new foot");
    writeBytes(start / "samples" / "bell.wav", "new bell");
    writeBytes(start / "all_Samples" / "foot.wav", "old foot");
    writeBytes(start / "all_Samples" / "stale.wav", "old");
    writeBytes(start / "all_Samples" / "notes.txt", "the user's");
    const std::string oldFile = readBytes(start / "all.tox");
    const fs::path samples = work / "all_Samples";
    const auto check = [&](const FaultyRuns::Run& run) {
        expectNoCrash(run);
        const bool mayBeEither = GetParam().isKill || run.hitTheSanitizer;
        {
            const SamplesFolderSwap next(samples); // brings the folder in order
        }
        fs::remove_all(work / "all_Samples.tavrel-new");
        removeUnfinishedWrites(work);
        const bool hasNewSamples = readBytes(samples / "foot.wav") == "new foot";
        if (hasNewSamples) {
            // Old ones are not deleted but by the run that put new ones in their place.
            const fs::path old = work / "all_Samples.tavrel-old";
            EXPECT_TRUE(!fs::exists(old) || namesIn(old) == Names{"foot.wav"});
            fs::remove_all(old);
            fs::remove(samples / "stale.wav");
        }
        const bool isNewFile = readBytes(work / "all.tox") == "\"0\",\"" + firstLine + "\"\r\n";
        EXPECT_TRUE(isNewFile || readBytes(work / "all.tox") == oldFile);
        const bool areNewSamples = namesIn(samples) == Names{"bell.wav", "foot.wav", "notes.txt"};
        EXPECT_EQ(areNewSamples, hasNewSamples);
        EXPECT_TRUE(areNewSamples || (namesIn(samples) == Names{"foot.wav", "notes.txt", "stale.wav"}));
        EXPECT_EQ(readBytes(samples / "foot.wav"), areNewSamples ? "new foot" : "old foot");
        EXPECT_EQ(readBytes(samples / "notes.txt"), "the user's");
        EXPECT_EQ(namesIn(work), (Names{"all.tox", "all_Samples", "creator", "program", "samples"}));
        EXPECT_TRUE(isNewFile || !areNewSamples);
        if (!mayBeEither) {
            EXPECT_EQ(areNewSamples, run.status == 0);
        }
    };
    const FaultyRuns runs = runsOf("export");
    const std::map<std::string, int> calls = runs.countCalls();
    check({0, false});
    EXPECT_GE(calls.at("fsync"), 4);
    EXPECT_GE(calls.at("renameat2"), 3); // the old folder, the new one, the user's file
    runs.strikeEach(calls, GetParam().fault, check);
}

TEST_P(ExchangeFaults, AnImportLeavesEachSampleOldOrNew)
{
    writeBytes(start / "all_Samples" / "foot.wav", "new foot");
    writeBytes(start / "samples" / "FOOT.wav", "old foot");
    writeBytes(start / "samples" / "bell.wav", "untouched");
    const auto check = [&](const FaultyRuns::Run& run) {
        expectNoCrash(run);
        removeUnfinishedWrites(work / "samples");
        const Names names = namesIn(work / "samples");
        const bool isNew = fs::exists(work / "samples" / "foot.wav");
        EXPECT_TRUE(isNew || names == (Names{"FOOT.wav", "bell.wav"}));
        EXPECT_EQ(readBytes(work / "samples" / (isNew ? "foot.wav" : "FOOT.wav")),
                  isNew ? "new foot" : "old foot");
        EXPECT_EQ(readBytes(work / "samples" / "bell.wav"), "untouched");
        if (!GetParam().isKill && !run.hitTheSanitizer && run.status == 0) {
            EXPECT_TRUE(isNew);
        }
    };
    const FaultyRuns runs = runsOf("import");
    const std::map<std::string, int> calls = runs.countCalls();
    check({0, false});
    runs.strikeEach(calls, GetParam().fault, check);
}

INSTANTIATE_TEST_SUITE_P(EachCall, ExchangeFaults,
                         testing::Values(Scenario{"FullDisk", "error=ENOSPC", false},
                                         Scenario{"Killed", "signal=KILL", true}),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
