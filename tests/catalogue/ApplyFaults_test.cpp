// SPDX-License-Identifier: GPL-3.0-or-later
// A full disk, or the plug pulled, at every system call of an apply.
#include "base/SafeFile.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <sstream>
#include <sys/wait.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

// Every call with which the program touches files or folders.
const char* const tracedCalls =
    "openat,read,write,close,fsync,rename,renameat2,fchmodat,chmod,mkdir,unlink,unlinkat,newfstatat,"
    "getdents64,access,readlink,lseek,writev,statx,ftruncate";

const std::string newLine = "LARA_FEET:\tother\tVOL44\t";
const std::string firstBackupText = "the very first file\r\n";
const std::string earlierCopyText = "; an earlier remark\r\n";
const std::string oldRecord = "5,\"an older record\"\r\n";

std::string quoted(const std::string& text)
{
    return "'" + text + "'";
}

struct Scenario
{
    const char* name;
    bool appliedBefore; // what earlier applies keep is there, and a copy of the comments must be made
    const char* fault;  // for strace
    bool isKill;
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

    // The exit status of the program on a fresh copy of the folders.
    int run(const std::string& straceOptions) const
    {
        fs::remove_all(work);
        fs::copy(start, work, fs::copy_options::recursive);
        // Under strace the leak check of a sanitized build cannot run.
        const std::string command = "ASAN_OPTIONS=detect_leaks=0 " + quoted(TAVREL_STRACE) + " -f -qq " +
                                    straceOptions + " " + quoted(TAVREL_APPLY_ONCE) + " " +
                                    quoted((work / "program").string()) + " " +
                                    quoted((work / "creator").string()) + " " + quoted(newLine) + " >'" +
                                    (root / "said").string() + "' 2>&1";
        return std::system(command.c_str());
    }

    // How often an undisturbed run makes each call.
    std::map<std::string, int> countCalls() const
    {
        const fs::path log = root / "calls";
        const int status = run("-o " + quoted(log.string()) + " -e trace=" + tracedCalls);
        EXPECT_EQ(status, 0) << readBytes(root / "said");
        std::map<std::string, int> counts;
        std::istringstream lines(readBytes(log));
        for (std::string line; std::getline(lines, line);) {
            const std::size_t start = line.find_first_not_of("0123456789 ");
            const std::size_t end = line.find('(');
            if (start < end && end != std::string::npos) {
                ++counts[line.substr(start, end - start)];
            }
        }
        return counts;
    }

    void expectWholeFile(const fs::path& file, std::initializer_list<std::string> contents) const
    {
        const std::string bytes = readBytes(file);
        EXPECT_TRUE(std::ranges::find(contents, bytes) != contents.end())
            << file << " holds " << bytes.size() << " bytes: " << bytes.substr(0, 100);
    }

    // A sanitized build reads and writes for itself. It ends, with any status, when the fault strikes there,
    // and says so.
    bool hitTheSanitizer() const
    {
        const std::string said = readBytes(root / "said");
        return std::ranges::any_of(
            std::array{"CHECK failed: sanitizer_", "does not point to an object of type",
                       "LeakSanitizer has encountered"},
            [&said](const char* complaint) { return said.find(complaint) != std::string::npos; });
    }

    void expectSoundFolders(int status) const
    {
        const fs::path creator = work / "creator";
        const fs::path records = work / "program" / "sounds";
        if (GetParam().isKill ? status != 0 : hitTheSanitizer()) {
            expectWholeFile(creator / "Sounds.txt", {oldText, newText});
        } else {
            EXPECT_TRUE(WIFEXITED(status)) << "the program crashed";
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
        EXPECT_LE(namesIn(work / "program").size(), 4U);
    }

    TemporaryFolder root;
    fs::path start = root / "start";
    fs::path work = root / "work";
    std::string oldText;
    std::string newText;
    std::string newRecord;
};

TEST_P(ApplyFaults, LeaveTheOldFileOrTheNewOneWhole)
{
    const std::map<std::string, int> counts = countCalls();
    expectSoundFolders(0);
    EXPECT_TRUE(fs::exists(work / "creator" / "Orig_Sounds.txt"));
    expectWholeFile(work / "program" / "sounds" / "oasis.tor", {newRecord});
    // A file for the backup or the copy, one for sounds.txt, one for the record.
    for (const char* call :
         {"openat", "write", "fsync", "rename", "renameat2", "close", "newfstatat", "read", "getdents64"}) {
        ASSERT_TRUE(counts.contains(call)) << call;
    }
    EXPECT_EQ(counts.at("rename"), 2);
    EXPECT_GE(counts.at("renameat2"), 1); // a second time where the name of a copy is taken
    EXPECT_GE(counts.at("fsync"), 3);
    EXPECT_GE(counts.at("write"), 3);

    int runs = 0;
    int failures = 0;
    for (const auto& [call, count] : counts) {
        for (int n = 1; n <= count; ++n) {
            SCOPED_TRACE(call + " number " + std::to_string(n));
            const int status = run("-o /dev/null -e trace=" + call + " -e inject=" + call + ":" +
                                   GetParam().fault + ":when=" + std::to_string(n));
            expectSoundFolders(status);
            ++runs;
            failures += status == 0 ? 0 : 1;
        }
    }
    EXPECT_GT(runs, 50);
    EXPECT_GT(failures, runs / 4) << "the faults did not reach the program";
}

INSTANTIATE_TEST_SUITE_P(EachCall, ApplyFaults,
                         testing::Values(Scenario{"FirstApplyFullDisk", false, "error=ENOSPC", false},
                                         Scenario{"FirstApplyKilled", false, "signal=KILL", true},
                                         Scenario{"LaterApplyFullDisk", true, "error=ENOSPC", false},
                                         Scenario{"LaterApplyKilled", true, "signal=KILL", true}),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
