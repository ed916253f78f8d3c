// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cli.h"
#include "demo/WavFile.h"
#include "support/Generation.h"

#include <gtest/gtest.h>

#include <chrono>

using namespace tavrel;

TEST(GenerationCommands, StatsPrintsFourRowsWhateverHappens)
{
    struct Case
    {
        const char* script;
        int status;
        const char* rows;
        const char* said;
    };
    const char* const nothing = "0\t0\t0\n0\t0\t0\n0\t0\t0\n0\t0\t0\n";
    const Case cases[] = {
        {"[Level]\r\nTriggerGroup= 1, $2000, $2000\r\n[Level]\r\ntriggergroup=2\r\norganizer=1,$9000\r\nend\r\n",
         0, "1\t1\t2\n0\t0\t0\n0\t1\t1\n2\t1\t3\n", ""},
        {"organizer=1\nend\n", 1, nothing, "[Level]"},
        {"organizer=1\n[Level]\n[Level]\n[Level]\n[Level]\nend\n", 4, "0\t0\t0\n0\t0\t0\n1\t0\t1\n0\t0\t0\n",
         "4 [Level] sections"},
    };
    const TemporaryFolder folder;
    for (const Case& c : cases) {
        writeBytes(folder / "script.txt", c.script);
        const CliRun run = runCli({"stats", (folder / "script.txt").string()});
        EXPECT_EQ(run.output, c.rows) << c.script;
        EXPECT_EQ(run.status, c.status) << c.script;
        EXPECT_NE(run.messages.find(c.said), std::string::npos) << run.messages;
    }
    const CliRun missing = runCli({"stats", (folder / "missing.txt").string()});
    EXPECT_EQ(missing.output, nothing);
    EXPECT_EQ(missing.status, 3);
    const DemoCli cli;
    EXPECT_EQ(cli.run({"stats"}).output, "1\t0\t1\n1\t0\t1\n0\t1\t1\n1\t0\t1\n");
}

TEST(GenerationCommands, RestorePutsTheCatalogueBack)
{
    const DemoCli cli;
    ASSERT_EQ(cli.agreeing({"set", "63", "--vol", "1"}).status, 0);
    const CliRun nothing = cli.run({"restore"});
    EXPECT_EQ(nothing.status, 2);
    EXPECT_NE(nothing.messages.find("--catalogue, --samples, --sfx"), std::string::npos) << nothing.messages;
    EXPECT_EQ(cli.run({"restore", "--samples"}).status, 3) << "without reference copies";
    EXPECT_NE(readBytes(cli.sounds), textOf(stockLines()));
    const CliRun run = cli.run({"restore", "--catalogue"});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.messages.find("[Sounds.txt] File"), std::string::npos);
    EXPECT_EQ(readBytes(cli.sounds), textOf(stockLines()));
}

// Whatever may be there and cannot be looked at stays.
TEST(GenerationCommands, RestoreReplacesNothingInAFolderThatCannotBeListed)
{
    const DemoCli cli;
    const std::string before = readBytes(cli.sounds);
    const CliRun run = runShell("'" TAVREL_STRACE "' -qq -o /dev/null -P '" + cli.creator.string() +
                                "' -e inject=getdents64:error=EACCES $CLI --program-folder '" +
                                cli.program.string() + "' restore --catalogue");
    EXPECT_EQ(run.status, 3);
    EXPECT_NE(run.messages.find(cli.creator.string()), std::string::npos) << run.messages;
    EXPECT_EQ(readBytes(cli.sounds), before);
}

TEST(GenerationCommands, GenerateRefusesBeforeAnythingIsWritten)
{
    const DemoCli cli;
    const std::vector<std::string> before = namesIn(cli.creator);
    EXPECT_EQ(cli.agreeing({"generate", "karnak"}).status, 1) << "a built-in reference";
    EXPECT_EQ(cli.run({"generate", "oasis"}).status, 1) << "a question without answer";
    writeBytes(cli.levelEditor / "sound" / "Samples" / "foot02.wav", wavBytes({.channels = 2}));
    const CliRun wrong = cli.agreeing({"generate", "oasis"});
    EXPECT_EQ(wrong.status, 1);
    EXPECT_NE(wrong.messages.find("[foot02.wav]"), std::string::npos) << wrong.messages;
    EXPECT_EQ(namesIn(cli.creator), before);
}

// Our batch file with a stand-in for the tool.
TEST(GenerationCommandsUnderWine, GenerateWaitsForTheTool)
{
    useWineOfTheTests();
    const DemoCli cli;
    writeBytes(cli.levelEditor / "sound" / "Samples" / "foot01.wav", wavBytes({.seconds = 0}));
    const std::filesystem::path wads = cli.levelEditor / "graphics" / "wads";
    const CliRun without = cli.agreeing({"generate", "oasis"});
    EXPECT_EQ(without.status, 1) << "without the tool";
    const std::size_t said = without.messages.find("No new .SAM and .SFX files");
    EXPECT_NE(said, std::string::npos) << without.messages;
    EXPECT_EQ(without.messages.find("No new .SAM and .SFX files", said + 1), std::string::npos)
        << without.messages;
    installTool(cli.creator);
    const ToolSetting slow("TAVREL_TOOL_STARTS_AFTER", "4500");
    const auto start = std::chrono::steady_clock::now();
    const CliRun run = cli.agreeing({"generate", "oasis"});
    EXPECT_EQ(run.status, 0) << run.messages;
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(4500));
    EXPECT_NE(run.messages.find("files of [oasis] are generated"), std::string::npos);
    EXPECT_TRUE(readBytes(wads / "oasis.sfx").starts_with("RIFF"));
    EXPECT_EQ(namesIn(cli.creator), (std::vector<std::string>{"Sounds.txt", "pcwadsfx.exe"}));
}
