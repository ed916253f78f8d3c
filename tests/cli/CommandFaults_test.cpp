// SPDX-License-Identifier: GPL-3.0-or-later
// Every command that writes: a full disk, or the plug pulled, at each of its system calls.
#include "base/SafeFile.h"
#include "cli/Cli.h"
#include "support/FaultyProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

// Those that write, and the lookups that a write depends on: a program for the console makes hundreds of
// others.
constexpr Fault fullDiskAtWrites{"FullDisk", "error=ENOSPC", false,
                                 "write,fsync,rename,renameat2,unlink,mkdir,fchmod,fchown,flock,getdents64"};
constexpr Fault killedAtWrites{"Killed", "signal=KILL", true, "write,fsync,rename,renameat2,unlink,mkdir"};

struct Writer
{
    const char* name;
    std::vector<std::string> arguments;
};

void PrintTo(const Writer& writer, std::ostream* stream)
{
    *stream << writer.name;
}

class CommandFaults : public testing::TestWithParam<std::tuple<Writer, Fault>>
{
protected:
    CommandFaults()
    {
        writeBytes(cli.sounds, textOf({withTabs("S0:>>>a>>>>>>>>>#g"), withTabs("S1:>>>b>>>>>>>>>#oa")}));
        for (const char* const ending : {".was", ".sam"}) {
            writeBytes(cli.levelEditor / "graphics" / "wads" / (std::string("new") + ending), "");
        }
        writeBytes(cli.levelEditor / "sound" / "Samples" / "c.wav", ""); // of the import
        writeBytes(cli.program / "Backups" / "in.tox", "\"1\",\"S1:\tc\tVOL9\"\r\n");
        writeBytes(cli.program / "Backups" / "out.tob", "an earlier export");
        fs::copy(cli.root.path(), start, fs::copy_options::recursive);
        before = filesOf();
    }

    using Files = std::map<std::string, std::string>;
    Files filesOf() const
    {
        Files files;
        for (const auto& [file, bytes] : everyFile(cli.root.path())) {
            // A version is named after the second in which it was kept.
            const bool isVersion = file.parent_path().filename() == "Sounds_versions";
            const fs::path name = isVersion ? file.parent_path() / "version" : file;
            files[fs::relative(name, cli.root.path()).string()] = bytes;
        }
        return files;
    }

    // Copies, backups and notes hold what was there, or what an undisturbed run puts there.
    void expectOldOrNew(const Files& now, const std::string& said) const
    {
        for (const auto& [name, bytes] : now) {
            const bool isOld = before.contains(name) && before.at(name) == bytes;
            const bool isNew = after.contains(name) && after.at(name) == bytes;
            const bool isCopy = !before.contains(name) && before.at(soundsName) == bytes;
            const bool isNote = name.ends_with("Tavrel.tol");
            EXPECT_TRUE(isOld || isNew || isCopy || isNote) << name << " holds " << bytes << "\n" << said;
        }
        for (const auto& [name, bytes] : before) {
            EXPECT_TRUE(now.contains(name)) << name << " is lost";
        }
    }

    const Writer& writer() const { return std::get<0>(GetParam()); }
    const Fault& fault() const { return std::get<1>(GetParam()); }

    std::vector<std::string> command() const
    {
        std::vector<std::string> words = {TAVREL_CLI, "--program-folder", cli.program.string(), "--yes"};
        for (std::string word : writer().arguments) {
            const bool isFile = word.ends_with(".tox") || word.ends_with(".tob");
            words.push_back(isFile ? (cli.program / "Backups" / word).string() : word);
        }
        return words;
    }

    const DemoCli cli;
    const std::string soundsName = fs::relative(cli.sounds, cli.root.path()).string();
    const TemporaryFolder aside;
    const fs::path start = aside / "start";
    Files before;
    Files after;
};

TEST_P(CommandFaults, LeaveOldFilesOrNewOnes)
{
    const FaultyProgram program(command(), aside.path());
    bool isFirst = true;
    program.strikeEach(start, cli.root.path(), fault(), [&](int status) {
        for (const fs::path& folder : {cli.creator, cli.creator / "Sounds_versions", cli.program,
                                       cli.program / "sounds", cli.program / "Backups"}) {
            removeUnfinishedWrites(folder); // as the next one does who has the locks
        }
        const Files now = filesOf();
        if (std::exchange(isFirst, false)) {
            after = now;
            EXPECT_NE(after, before);
        }
        const std::string said = readBytes(aside / "said");
        expectOldOrNew(now, said);
        if (status == 0 && !program.mayBeEither(fault())) {
            for (const auto& [name, bytes] : after) {
                EXPECT_TRUE(now.contains(name) && now.at(name) == bytes) << name << " is not done\n" << said;
            }
        }
        if (std::string_view(writer().name) == "LettersReplace" && status != 0) {
            program.runUndisturbed();
            EXPECT_EQ(readBytes(cli.sounds), after.at(soundsName)) << "starting it again completes it";
            EXPECT_EQ(readBytes(cli.program / "Tavrel.paw"), after.at("program/Tavrel.paw"));
        }
    });
}

INSTANTIATE_TEST_SUITE_P(
    EachCall, CommandFaults,
    testing::Combine(testing::Values(Writer{"Set", {"set", "1", "--vol", "77"}},
                                     Writer{"LettersAdd", {"letters", "add", "tw", "1"}},
                                     Writer{"LettersReplace", {"letters", "replace", "oa", "ob"}},
                                     Writer{"RefsAdd", {"refs", "add", "new", "nw", "title"}},
                                     Writer{"Export", {"export", "all", "out.tob"}},
                                     Writer{"Import", {"import", "in.tox", "--letter", "oa"}},
                                     Writer{"Restore", {"restore", "--catalogue"}}),
                     testing::Values(fullDiskAtWrites, killedAtWrites)),
    [](const auto& test) {
        return std::string(std::get<0>(test.param).name) + std::get<1>(test.param).name;
    });

} // namespace
