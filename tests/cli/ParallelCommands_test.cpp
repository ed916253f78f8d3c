// SPDX-License-Identifier: GPL-3.0-or-later
// Commands that run at the same time, and beside other programs.
#include "cli/Cli.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

using namespace tavrel;

namespace {

std::string commandOn(const std::filesystem::path& program)
{
    return "\"$CLI\" --program-folder '" + program.string() + "'";
}

// Two installations on one level editor, and commands that all start at once.
class TwoInstallations : public testing::Test
{
protected:
    TwoInstallations()
    {
        std::filesystem::copy(programs[0], programs[1], std::filesystem::copy_options::recursive);
    }

    void runBeside(const std::string& arguments)
    {
        m_script += commandOn(programs[++m_count % 2]) + " --yes " + arguments + " & jobs=\"$jobs $!\"; ";
    }
    void expectAllDone()
    {
        const CliRun run = runShell(m_script + "for job in $jobs; do wait $job || exit 9; done");
        EXPECT_EQ(run.status, 0) << run.messages;
        m_script = "jobs=; ";
    }
    std::string inBackups(const std::string& name) const { return (programs[0] / "Backups" / name).string(); }

    const DemoCli cli;
    const std::filesystem::path programs[2] = {cli.program, cli.program.parent_path() / "second"};
    const std::vector<std::size_t> sounds = {63, 65, 66, 67, 68, 69, 73, 74, 76, 79};

private:
    std::string m_script = "jobs=; ";
    std::size_t m_count = 0;
};

} // namespace

// A command that ends with 0 has done what it was asked to.
TEST_F(TwoInstallations, KeepEveryChange)
{
    const std::vector<std::string> wads = {"one", "ten", "six", "red"};
    const std::string before = cli.lineOf(80);
    const std::string name = before.substr(0, before.find(':'));
    writeBytes(cli.levelEditor / "sound" / "Samples" / "imported.wav", "");
    writeBytes(inBackups("in.tox"), "\"80\",\"" + name + ":\timported\tVOL9\"\r\n");
    for (const std::size_t sound : sounds) {
        runBeside("set " + std::to_string(sound) + " --vol 77");
        runBeside("letters add tw " + std::to_string(sound));
    }
    for (const std::string& wad : wads) {
        writeBytes(cli.levelEditor / "graphics" / "wads" / (wad + ".was"), "");
        writeBytes(cli.levelEditor / "graphics" / "wads" / (wad + ".sam"), "");
        runBeside("refs add " + wad + " " + wad.substr(0, 2) + " title");
        runBeside("export all '" + inBackups("same.tob") + "'");
    }
    runBeside("import '" + inBackups("in.tox") + "' --letter oa");
    expectAllDone();
    for (const std::size_t sound : sounds) {
        EXPECT_NE(cli.lineOf(sound).find("VOL77"), std::string::npos) << cli.lineOf(sound);
        EXPECT_TRUE(cli.lineOf(sound).ends_with("#tw")) << cli.lineOf(sound);
    }
    EXPECT_NE(cli.lineOf(80).find("imported"), std::string::npos);
    const std::string references =
        readBytes(programs[0] / "Tavrel.paw") + readBytes(programs[1] / "Tavrel.paw");
    for (const std::string& wad : wads) {
        EXPECT_NE(references.find("\"" + wad + "\""), std::string::npos) << references;
    }
    EXPECT_EQ(cli.run({"import", inBackups("same.tob")}).status, 1) << "whole, so that only the answer lacks";
}

// What a restore replaces is kept with the changes that were in it.
TEST_F(TwoInstallations, LoseNothingToARestoreInBetween)
{
    for (const std::size_t sound : sounds) {
        runBeside("set " + std::to_string(sound) + " --vol 77");
        if (sound % 4 == 1) {
            runBeside("restore --catalogue");
        }
    }
    expectAllDone();
    std::set<std::string> changed;
    for (const std::string& file : namesIn(cli.creator)) {
        if (std::filesystem::is_directory(cli.creator / file)) {
            continue;
        }
        std::istringstream lines(readBytes(cli.creator / file));
        for (std::string line; std::getline(lines, line);) {
            if (line.find("VOL77") != std::string::npos) {
                changed.insert(line.substr(0, line.find(':')));
            }
        }
    }
    for (const std::size_t sound : sounds) {
        const std::string line = cli.lineOf(sound);
        EXPECT_TRUE(changed.contains(line.substr(0, line.find(':')))) << line;
    }
}

TEST(ParallelCommands, OnlyOneThatChangesSomethingWaits)
{
    const DemoCli cli;
    const std::string before = readBytes(cli.sounds);
    struct Case
    {
        const char* command;
        int status; // `timeout` ends with 124
    };
    const std::string locked = "flock '" + (cli.program / "Tavrel.lock").string() + "' timeout 1 ";
    for (const Case& c : {Case{" list >/dev/null", 0},
                          {" refs list >/dev/null", 0},
                          {" --yes set 63 --vol 77", 124},
                          {" --yes letters add oa 63", 124},
                          {" --yes import-sam oasis", 124},
                          {" restore --catalogue", 124}}) {
        EXPECT_EQ(runShell(locked + commandOn(cli.program) + c.command).status, c.status) << c.command;
    }
    EXPECT_EQ(readBytes(cli.sounds), before);
    EXPECT_EQ(cli.agreeing({"set", "63", "--vol", "77"}).status, 0);
}

// From some read on, the file seems to be empty, as if it had become another one since it was loaded: before
// the questions, after them, and in the last moment, when a copy of it has been kept already.
TEST(ParallelCommands, YesDoesNotOverwriteWhatAnotherProgramHasChanged)
{
    for (const char* const read : {"3", "5", "7", "9"}) {
        SCOPED_TRACE(read);
        const DemoCli cli;
        const std::string before = readBytes(cli.sounds);
        const CliRun run = runShell("'" TAVREL_STRACE "' -qq -o /dev/null -P '" + cli.sounds.string() +
                                    "' -e trace=read -e inject=read:retval=0:when=" + read + "+ " +
                                    commandOn(cli.program) + " --yes set 63 --vol 77");
        EXPECT_EQ(run.status, 1);
        EXPECT_NE(run.messages.find("changed by another program"), std::string::npos) << run.messages;
        EXPECT_NE(run.messages.find("--yes does not agree to this question"), std::string::npos);
        EXPECT_EQ(readBytes(cli.sounds), before);
        EXPECT_EQ(namesIn(cli.sounds.parent_path()), std::vector<std::string>{"Sounds.txt"});
    }
}
