// SPDX-License-Identifier: GPL-3.0-or-later
// Commands that run at the same time, and beside other programs.
#include "cli/Cli.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

std::string commandOn(const std::filesystem::path& program)
{
    return "\"$CLI\" --program-folder '" + program.string() + "'";
}

} // namespace

// Two installations, one level editor. A command may find the others at work for too long; one that ends with
// 0 has changed what it was asked to.
TEST(ParallelCommands, KeepEveryChange)
{
    const DemoCli cli;
    const std::filesystem::path programs[] = {cli.program, cli.program.parent_path() / "second"};
    std::filesystem::copy(programs[0], programs[1], std::filesystem::copy_options::recursive);
    const std::vector<std::size_t> sounds = {63, 65, 66, 67, 68, 69, 73, 74, 76, 79};
    std::string script = "jobs=; ";
    std::size_t count = 0;
    const auto runBeside = [&](const std::string& arguments) {
        script += commandOn(programs[++count % 2]) + " --yes " + arguments + " & jobs=\"$jobs $!\"; ";
    };
    for (const std::size_t sound : sounds) {
        runBeside("set " + std::to_string(sound) + " --vol 77");
        runBeside("letters add tw " + std::to_string(sound));
    }
    const std::vector<std::string> wads = {"one", "ten", "six", "red"};
    for (const std::string& name : wads) {
        writeBytes(cli.levelEditor / "graphics" / "wads" / (name + ".was"), "");
        writeBytes(cli.levelEditor / "graphics" / "wads" / (name + ".sam"), "");
        runBeside("refs add " + name + " " + name.substr(0, 2) + " title");
    }
    const CliRun run = runShell(script + "for job in $jobs; do wait $job || exit 9; done");
    ASSERT_EQ(run.status, 0) << run.messages;
    for (const std::size_t sound : sounds) {
        EXPECT_NE(cli.lineOf(sound).find("VOL77"), std::string::npos) << cli.lineOf(sound);
        EXPECT_TRUE(cli.lineOf(sound).ends_with("#tw")) << cli.lineOf(sound);
    }
    const std::string references =
        readBytes(programs[0] / "Tavrel.paw") + readBytes(programs[1] / "Tavrel.paw");
    for (const std::string& name : wads) {
        EXPECT_NE(references.find("\"" + name + "\""), std::string::npos) << references;
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
