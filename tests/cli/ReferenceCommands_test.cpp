// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cli.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

std::string carriers(const DemoCli& cli, const std::string& letter)
{
    std::string numbers;
    for (std::size_t k = 0; k < stockLines().size(); ++k) {
        if (cli.lineOf(k).ends_with("#" + letter)) {
            numbers += std::to_string(k) + " ";
        }
    }
    return numbers;
}

} // namespace

TEST(ReferenceCommands, TheRegisterIsListedExtendedAndShortened)
{
    const DemoCli cli;
    EXPECT_TRUE(
        cli.run({"refs", "list"})
            .output.ends_with("oasis\toa\tThe oasis of Amun\ntomb_of_wind\ttw\tThe tomb of the wind\n"));
    writeBytes(cli.levelEditor / "graphics" / "wads" / "new.was", "");
    writeBytes(cli.levelEditor / "graphics" / "wads" / "new.sam", "");
    EXPECT_EQ(cli.run({"refs", "add", "new", "#nw", "The n\u00E9w \u20AC"}).status, 0);
    EXPECT_TRUE(readBytes(cli.program / "Tavrel.paw").ends_with("\"The n\xE9w \x80\",\"nw\",\"new\"\r\n"));
    EXPECT_TRUE(cli.run({"refs", "list"}).output.ends_with("new\tnw\tThe n\u00E9w \u20AC\n"));

    const std::string before = readBytes(cli.program / "Tavrel.paw");
    const std::string lines = readBytes(cli.sounds);
    struct Case
    {
        std::vector<std::string> arguments;
        const char* said;
    };
    const Case refused[] = {
        {{"--yes", "refs", "add", "gone", "ab", "T"}, "No [gone.WAS] File"},
        {{"--yes", "refs", "add", "new", "ab", "T"}, "already assigned to [#nw"},
        {{"--yes", "refs", "delete", "gone"}, "None of your references is named [gone]"},
        {{"--yes", "refs", "delete", "karnak"}, "This reference shouldn't be modified"},
        {{"refs", "delete", "oasis"}, "Delete [oasis/#oa] reference"},
    };
    for (const Case& c : refused) {
        const CliRun run = cli.run(c.arguments);
        EXPECT_EQ(run.status, 1) << run.messages;
        EXPECT_NE(run.messages.find(c.said), std::string::npos) << run.messages;
    }
    EXPECT_EQ(readBytes(cli.program / "Tavrel.paw"), before);
    EXPECT_EQ(readBytes(cli.sounds), lines);

    ASSERT_EQ(cli.agreeing({"letters", "add", "oa", "63"}).status, 0);
    EXPECT_EQ(carriers(cli, "oa"), "63 ");
    EXPECT_EQ(cli.agreeing({"refs", "delete", "oasis"}).status, 0);
    EXPECT_EQ(carriers(cli, "oa"), "");
    EXPECT_EQ(readBytes(cli.program / "Tavrel.paw").find("oasis"), std::string::npos);
}

TEST(ReferenceCommands, ImportsGiveTheLetterOfTheirWad)
{
    const DemoCli cli;
    const CliRun samples = cli.agreeing({"import-sam", "oasis"});
    EXPECT_EQ(samples.status, 0) << samples.messages;
    EXPECT_EQ(samples.output, "well01\n") << "the sample that no sound uses";
    EXPECT_NE(samples.messages.find("sounds got the letter"), std::string::npos);
    const std::string once = carriers(cli, "oa");
    EXPECT_NE(once, "");
    EXPECT_EQ(cli.agreeing({"import-sam", "oasis"}).status, 0);
    EXPECT_EQ(carriers(cli, "oa"), once);
    EXPECT_EQ(cli.agreeing({"import-was", "tomb_of_wind"}).status, 0);
    EXPECT_NE(carriers(cli, "tw").find("60 "), std::string::npos);
}

TEST(ReferenceCommands, WhatCouldNotBeReadIsSaid)
{
    const DemoCli cli;
    writeBytes(cli.program / "Tavrel.paw", readBytes(cli.program / "Tavrel.paw") + "\"no reference\"\r\n");
    const CliRun oddLine = cli.run({"refs", "list"});
    EXPECT_EQ(oddLine.status, 0);
    EXPECT_NE(oddLine.messages.find("not a reference of three fields"), std::string::npos)
        << oddLine.messages;
    writeBytes(cli.program / "Tavrel.paw", std::string("\0\0", 2));
    const CliRun unreadable = cli.run({"refs", "list"});
    EXPECT_EQ(unreadable.status, 3);
    EXPECT_NE(unreadable.messages.find("Tavrel.paw"), std::string::npos) << unreadable.messages;
    EXPECT_NE(unreadable.output, "") << "the built-in ones";
}

TEST(ReferenceCommands, WithoutTheTableOfObjectsTheSoundUnderWaterGetsItsLetter)
{
    const DemoCli cli;
    std::filesystem::remove(cli.program / "Tavrel.too");
    const CliRun run = cli.agreeing({"import-was", "tomb_of_wind"});
    EXPECT_NE(run.messages.find("Tavrel.too"), std::string::npos) << run.messages;
    EXPECT_EQ(carriers(cli, "tw"), "60 ");
}

TEST(ReferenceCommands, ImportsThatCannotBeDoneChangeNothing)
{
    const DemoCli cli;
    const std::string before = readBytes(cli.sounds);
    EXPECT_EQ(cli.agreeing({"import-sam", "karnak"}).status, 1) << "a built-in reference";
    EXPECT_EQ(cli.run({"import-sam", "oasis"}).status, 1) << "a question without answer";
    std::filesystem::remove(cli.levelEditor / "graphics" / "wads" / "oasis.was");
    EXPECT_EQ(cli.agreeing({"import-was", "oasis"}).status, 3);
    writeBytes(cli.program / "sounds" / "oasis.tor", "");
    cli.changeSettings([](ProgramSettings& settings) { settings.loadWadAfterChanges = false; });
    const CliRun forbidden = cli.agreeing({"import-sam", "oasis"});
    EXPECT_EQ(forbidden.status, 1);
    EXPECT_NE(forbidden.messages.find("Off while modifications are pending or saved"), std::string::npos);
    EXPECT_EQ(readBytes(cli.sounds), before);
}
