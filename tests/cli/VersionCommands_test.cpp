// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cli.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace tavrel;

namespace {

TEST(VersionCommands, DiffTellsEachSoundThatDiffers)
{
    const DemoCli cli;
    const std::string same = (cli.root / "same.txt").string();
    writeBytes(same, readBytes(cli.sounds));
    EXPECT_EQ(cli.run({"diff", same}).status, 0);
    ASSERT_EQ(cli.agreeing({"set", "63", "--vol", "7"}).status, 0);
    const CliRun words = cli.run({"diff", same});
    EXPECT_EQ(words.status, 1);
    EXPECT_TRUE(words.output.starts_with("63 PUSHABLE_SOUND: VOL 07 → ")) << words.output;
    EXPECT_EQ(lineStarting(words.output, "- "), "- " + cli.lineOf(63));
    EXPECT_EQ(cli.run({"diff", (cli.root / "none.txt").string()}).status, 3);

    // Neither settings nor a level editor are needed for two files.
    const std::string shorter = (cli.root / "shorter.txt").string();
    writeBytes(shorter, "; remark\r\nA:\ta\tVOL08\t#ab\r\nC:\tc \xE9\t\r\n");
    const std::string longer = (cli.root / "longer.txt").string();
    writeBytes(longer, "A:\ta\tVOL09\tP\t\r\nB:\tb\t\r\nC:\tc \xE9\t\r\n");
    const CliRun json = runCli({"diff", shorter, longer, "--json"});
    EXPECT_EQ(json.status, 1);
    const std::vector<nlohmann::json> objects = objectsOf(json.output);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0], nlohmann::json::parse(R"({"sound": 0, "fields": ["vol", "flags", "letters"],
        "a": "A:\ta\tVOL08\t#ab", "b": "A:\ta\tVOL09\tP\t"})"));
    EXPECT_EQ(objects[1], nlohmann::json::parse(R"({"sound": 1, "fields": [], "a": null, "b": "B:\tb\t"})"));
    EXPECT_NE(json.messages.find("by their names"), std::string::npos);

    const std::string part = (cli.root / "part.tox").string();
    writeBytes(part, "\"63\",\"" + cli.lineOf(63) + "\"\r\n\"999\",\"N:\tn\t\"\r\n");
    const std::vector<nlohmann::json> beyond = objectsOf(cli.run({"diff", "--json", part}).output);
    ASSERT_EQ(beyond.size(), 1U) << "a file of some sounds says nothing of the others";
    EXPECT_EQ(beyond[0]["sound"], 999);
    EXPECT_EQ(cli.run({"diff", part, same}).status, 3);
}

TEST(VersionCommands, MergeKeepsMineInAConflictAndNamesIt)
{
    const TemporaryFolder folder;
    const auto file = [&](const char* name, const char* content) {
        writeBytes(folder / name, content);
        return (folder / name).string();
    };
    const std::string base = file("base", "A:\ta\tVOL08\t\r\nB:\tb\tVOL08\t\r\nC:\tc\t\r\n");
    const std::string mine =
        file("mine", "; first\r\nA:\ta\tVOL09\t\r\nB:\tb\tVOL08\t\r\n; of C\r\nC:\tc\t\r\n; last\r\n");
    const std::string theirs = file("theirs", "A:\ta\tVOL07\t\r\nB:\tb\tVOL44\t\r\nC:\tc\t\r\nD:\td\t\r\n");
    const CliRun run = runCli({"merge", base, mine, theirs});
    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.output,
              "; first\r\nA:\ta\tVOL09\t\r\nB:\tb\tVOL44\t\r\n; of C\r\nC:\tc\t\r\nD:\td\t\r\n; last\r\n");
    EXPECT_NE(
        run.messages.find("Conflict at sound 0 A, mine is kept. Mine: VOL 08 → 09; theirs: VOL 08 → 07"),
        std::string::npos)
        << run.messages;
    EXPECT_EQ(runCli({"merge", base, base, theirs}).status, 0);
    EXPECT_EQ(runCli({"merge", base, base, file("part.tox", "\"1\",\"B:\tb\t\"\r\n")}).status, 3);
}

TEST(VersionCommands, ListShowAndRestoreWhatIsKept)
{
    const DemoCli cli;
    const std::string before = cli.lineOf(63);
    ASSERT_EQ(cli.agreeing({"set", "63", "--vol", "7"}).status, 0);
    const std::string set = lineStarting(cli.run({"versions", "list"}).output, "Orig_Sounds.txt\t");
    EXPECT_NE(set.find("\t1 line\tBefore the first apply"), std::string::npos) << set;
    const CliRun shown = cli.run({"versions", "show", "Orig_Sounds.txt", "--json"});
    EXPECT_EQ(shown.status, 1);
    ASSERT_EQ(objectsOf(shown.output).size(), 1U);
    EXPECT_EQ(objectsOf(shown.output)[0]["b"], before);
    EXPECT_EQ(cli.run({"versions", "show", "none.txt"}).status, 1);
    EXPECT_EQ(cli.run({"versions", "restore", "Orig_Sounds.txt"}).status, 1) << "nobody agreed";
    EXPECT_EQ(cli.agreeing({"versions", "restore", "orig_sounds.txt"}).status, 0);
    EXPECT_EQ(cli.lineOf(63), before);

    const std::filesystem::path samples = cli.levelEditor / "sound" / "Samples";
    writeBytes(samples.parent_path() / "Samples_replaced" / "mine.wav", "mine");
    EXPECT_EQ(cli.run({"versions", "show", "Samples_replaced"}).status, 1);
    EXPECT_EQ(cli.agreeing({"versions", "restore", "Samples_replaced"}).status, 0);
    EXPECT_EQ(namesIn(samples), std::vector<std::string>{"mine.wav"});
}

} // namespace
