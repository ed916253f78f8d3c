// SPDX-License-Identifier: GPL-3.0-or-later
// A full disk, or the plug pulled, at every system call of an apply.
#include "base/SafeFile.h"
#include "support/FaultyProgram.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

const std::string newLine = "LARA_FEET:\tother\tVOL44\t";
const std::string firstBackupText = "the very first file\r\n";
const std::string earlierCopyText = "; an earlier remark\r\n";
const std::string oldRecord = "5,\"an older record\"\r\n";

struct Scenario
{
    const char* name;
    bool appliedBefore; // what earlier applies keep is there, and a copy of the comments must be made
    Fault fault;
};

void PrintTo(const Scenario& scenario, std::ostream* stream)
{
    *stream << scenario.name;
}

class ApplyFaults : public testing::TestWithParam<Scenario>
{
protected:
    ApplyFaults()
    {
        sampleTexts();
        fs::create_directories(start / "program");
        for (const char* name : {"Tavrel.tos", "Tavrel.tod", "Tavrel.too"}) {
            fs::copy_file(dataFolder() / name, start / "program" / name);
        }
        writeBytes(start / "creator" / "Sounds.txt", oldText);
        if (GetParam().appliedBefore) {
            writeBytes(start / "creator" / "Orig_Sounds.txt", firstBackupText);
            writeBytes(start / "creator" / "Sounds_copy1.txt", earlierCopyText);
            writeBytes(start / "program" / "sounds" / "oasis.tor", oldRecord);
        }
    }

    void sampleTexts()
    {
        std::vector<std::string> lines = stockLines();
        oldText = "; remark\r\n" + textOf(lines);
        lines[0] = newLine;
        newText = textOf(lines);
        newRecord = "0,\"" + newLine + "\"\r\n";
    }

    void expectWholeFile(const fs::path& file, std::initializer_list<std::string> contents) const
    {
        const std::string bytes = readBytes(file);
        EXPECT_TRUE(std::ranges::find(contents, bytes) != contents.end())
            << file << " holds " << bytes.size() << " bytes: " << bytes.substr(0, 100);
    }

    void expectSoundFolders(int status) const
    {
        const fs::path creator = work / "creator";
        const fs::path records = work / "program" / "sounds";
        if (GetParam().fault.isKill ? status != 0 : program.hitTheSanitizer()) {
            expectWholeFile(creator / "Sounds.txt", {oldText, newText});
        } else {
            expectWholeFile(creator / "Sounds.txt", {status == 0 ? newText : oldText});
        }
        // What the next start does.
        removeUnfinishedWrites(creator);
        removeUnfinishedWrites(work / "program");
        removeUnfinishedWrites(records);
        expectNothingElse(creator, records);
    }

    void expectNothingElse(const fs::path& creator, const fs::path& records) const
    {
        const bool before = GetParam().appliedBefore;
        for (const std::string& name : namesIn(creator)) {
            if (name == "Orig_Sounds.txt") {
                expectWholeFile(creator / name, {before ? firstBackupText : oldText});
            } else if (name == "Sounds_copy1.txt" && before) {
                expectWholeFile(creator / name, {earlierCopyText});
            } else if (name == "Sounds_copy2.txt" && before) {
                expectWholeFile(creator / name, {oldText});
            } else {
                EXPECT_EQ(name, "Sounds.txt") << "stray file";
            }
        }
        EXPECT_TRUE(!before || fs::exists(creator / "Orig_Sounds.txt"));
        for (const std::string& name : namesIn(records)) {
            EXPECT_EQ(name, "oasis.tor") << "stray file";
            expectWholeFile(records / name, {newRecord, before ? oldRecord : newRecord});
        }
        EXPECT_LE(namesIn(work / "program").size(), 5U); // with the lock
    }

    TemporaryFolder root;
    fs::path start = root / "start";
    fs::path work = root / "work";
    std::string oldText;
    std::string newText;
    std::string newRecord;
    FaultyProgram program{
        {TAVREL_APPLY_ONCE, (work / "program").string(), (work / "creator").string(), newLine}, root.path()};
};

TEST_P(ApplyFaults, LeaveTheOldFileOrTheNewOneWhole)
{
    bool isFirst = true;
    const auto counts = program.strikeEach(start, work, GetParam().fault, [&](int status) {
        expectSoundFolders(status);
        if (std::exchange(isFirst, false)) {
            EXPECT_TRUE(fs::exists(work / "creator" / "Orig_Sounds.txt"));
            expectWholeFile(work / "program" / "sounds" / "oasis.tor", {newRecord});
        }
    });
    // A file for the backup or the copy, one for sounds.txt, one for the record.
    for (const char* call :
         {"openat", "write", "fsync", "rename", "renameat2", "close", "newfstatat", "read", "getdents64"}) {
        ASSERT_TRUE(counts.contains(call)) << call;
    }
    EXPECT_EQ(counts.at("rename"), 2);
    EXPECT_GE(counts.at("renameat2"), 1); // a second time where the name of a copy is taken
    EXPECT_GE(counts.at("fsync"), 3);
    EXPECT_GE(counts.at("write"), 3);
}

INSTANTIATE_TEST_SUITE_P(EachCall, ApplyFaults,
                         testing::Values(Scenario{"FirstApplyFullDisk", false, fullDisk},
                                         Scenario{"FirstApplyKilled", false, killed},
                                         Scenario{"LaterApplyFullDisk", true, fullDisk},
                                         Scenario{"LaterApplyKilled", true, killed}),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
