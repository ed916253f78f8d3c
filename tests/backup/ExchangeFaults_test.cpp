// SPDX-License-Identifier: GPL-3.0-or-later
// A full disk, or the plug pulled, at every system call of an export and an import with samples.
#include "backup/SamplesFolderSwap.h"
#include "base/SafeFile.h"
#include "support/FaultyProgram.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

const std::string firstLine = "A:\tfoot bell gone\tVOL44\t#oa";

class ExchangeFaults : public testing::TestWithParam<Fault>
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

    FaultyProgram programFor(const char* command) const
    {
        return {{TAVREL_EXCHANGE_ONCE, command, (work / "program").string(), (work / "creator").string(),
                 (work / "all.tox").string(), (work / "samples").string()},
                root.path()};
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
    writeBytes(start / "all_Samples" / "gone.wav", "the only copy");
    writeBytes(start / "all_Samples" / "notes.txt", "the user's");
    const std::string oldFile = readBytes(start / "all.tox");
    const fs::path samples = work / "all_Samples";
    const FaultyProgram program = programFor("export");
    const std::map<std::string, int> calls = program.strikeEach(start, work, GetParam(), [&](int status) {
        {
            const SamplesFolderSwap next(samples); // brings the folder in order
        }
        removeStagedFolders(work);
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
        const bool areNewSamples = namesIn(samples) == Names{"bell.wav", "foot.wav", "gone.wav", "notes.txt"};
        EXPECT_EQ(areNewSamples, hasNewSamples);
        EXPECT_TRUE(areNewSamples ||
                    (namesIn(samples) == Names{"foot.wav", "gone.wav", "notes.txt", "stale.wav"}));
        EXPECT_EQ(readBytes(samples / "foot.wav"), areNewSamples ? "new foot" : "old foot");
        EXPECT_EQ(readBytes(samples / "gone.wav"), "the only copy");
        EXPECT_EQ(readBytes(samples / "notes.txt"), "the user's");
        EXPECT_EQ(namesIn(work), (Names{"all.tox", "all_Samples", "creator", "program", "samples"}));
        EXPECT_TRUE(isNewFile || !areNewSamples);
        if (!program.mayBeEither(GetParam())) {
            EXPECT_EQ(areNewSamples, status == 0);
        }
    });
    EXPECT_GE(calls.at("fsync"), 4);
    EXPECT_GE(calls.at("renameat2"), 3); // the old folder, the new one, the user's file
}

TEST_P(ExchangeFaults, AnImportLeavesEachSampleOldOrNew)
{
    writeBytes(start / "all_Samples" / "foot.wav", "new foot");
    writeBytes(start / "samples" / "FOOT.wav", "old foot");
    writeBytes(start / "samples" / "bell.wav", "untouched");
    const FaultyProgram program = programFor("import");
    program.strikeEach(start, work, GetParam(), [&](int status) {
        removeUnfinishedWrites(work / "samples");
        const Names names = namesIn(work / "samples");
        const bool isNew = fs::exists(work / "samples" / "foot.wav");
        EXPECT_TRUE(isNew || names == (Names{"FOOT.wav", "bell.wav"}));
        EXPECT_EQ(readBytes(work / "samples" / (isNew ? "foot.wav" : "FOOT.wav")),
                  isNew ? "new foot" : "old foot");
        EXPECT_EQ(readBytes(work / "samples" / "bell.wav"), "untouched");
        if (!program.mayBeEither(GetParam()) && status == 0) {
            EXPECT_TRUE(isNew);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(EachCall, ExchangeFaults, testing::Values(fullDisk, killed),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
