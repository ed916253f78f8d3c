// SPDX-License-Identifier: GPL-3.0-or-later
// A full disk, or the plug pulled, at every system call of keeping a version and of bringing a set back.
#include "base/FileNames.h"
#include "base/SafeFile.h"
#include "support/FaultyProgram.h"
#include "support/Files.h"
#include "versions/KeptVersions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

class KeptVersionsFaults : public testing::TestWithParam<Fault>
{
protected:
    TemporaryFolder root;
    fs::path start = root / "start";
    fs::path work = root / "work";
};

TEST_P(KeptVersionsFaults, KeepOneVersionMoreOrNone)
{
    const std::string sounds = "A:\ta\t\r\n";
    const fs::path folder = fs::path(versionsFolderName);
    writeBytes(start / "Sounds.txt", sounds);
    writeBytes(start / folder / "notes.txt", "the user's");
    std::set<std::string> names = {"notes.txt"};
    for (std::size_t i = 0; i < mostVersions; ++i) {
        const std::string name =
            "20" + std::to_string(10 + i % 80) + "-01-01_00-00-" + (i < 80 ? "00" : "01") + ".txt";
        writeBytes(start / folder / name, name);
        names.insert(name);
    }
    const FaultyProgram program({TAVREL_VERSIONS_ONCE, "keep", (work / "Sounds.txt").string()}, root.path());
    program.strikeEach(start, work, GetParam(), [&](int status) {
        EXPECT_EQ(readBytes(work / "Sounds.txt"), sounds);
        removeUnfinishedWrites(work / folder);
        std::size_t kept = 0;
        std::size_t added = 0;
        for (const std::string& name : namesIn(work / folder)) {
            const bool isNew = !names.contains(name);
            EXPECT_EQ(readBytes(work / folder / name), isNew                 ? sounds
                                                       : name == "notes.txt" ? "the user's"
                                                                             : name);
            kept += isNew ? 0 : 1;
            added += isNew ? 1 : 0;
        }
        EXPECT_LE(added, 1U);
        // One that is too many goes when the new one is there, and may stay for once.
        EXPECT_GE(kept, names.size() - added);
        EXPECT_TRUE(status != 0 || program.hitTheSanitizer() || added == 1);
    });
}

TEST_P(KeptVersionsFaults, BringASetBackWholeOrNotAtAll)
{
    for (const char* name : {"one.wav", "two.wav"}) {
        writeBytes(start / "Samples_replaced" / name, "old");
        writeBytes(start / "Samples" / name, "new");
    }
    const FaultyProgram program({TAVREL_VERSIONS_ONCE, "bring_back", (work / "Samples").string()},
                                root.path());
    program.strikeEach(start, work, GetParam(), [&](int status) {
        // Wherever they are.
        std::multiset<std::string> contents;
        for (const std::string& folder : namesIn(work)) {
            for (const std::string& name : namesIn(work / folder)) {
                contents.insert(readBytes(work / folder / name));
            }
        }
        EXPECT_GE(contents.count("old"), 2U);
        EXPECT_GE(contents.count("new"), 2U);
        if (!GetParam().isKill && !program.hitTheSanitizer()) {
            for (const char* name : {"one.wav", "two.wav"}) {
                EXPECT_EQ(readBytes(work / "Samples" / name), status == 0 ? "old" : "new");
            }
        }
    });
}

INSTANTIATE_TEST_SUITE_P(EachCall, KeptVersionsFaults, testing::Values(fullDisk, killed),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
