// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cli.h"
#include "demo/WavFile.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

class ExchangeCommands : public testing::Test
{
protected:
    ExchangeCommands()
    {
        writeBytes(samples / "foot.wav", wavBytes({.seconds = 0}));
        writeBytes(cli.sounds, textOf({line("S0", "a", "#g"), line("S1", "foot", "#oa"),
                                       line("S2", "b", "#tw #oa"), line("S3", "c", "")}));
        writeBytes(cli.program / "Tavrel.tos", textOf({line("S0", "a", "#g"), line("S1", "was", "#xx"),
                                                       line("S2", "b", ""), line("S3", "c", "")}));
    }
    static std::string line(const std::string& name, const std::string& sample, const std::string& letters)
    {
        return withTabs(name + ":>>>" + sample + ">>>>VOL08>>>>>") + letters;
    }
    static std::string record(int id, const std::string& text)
    {
        return "\"" + std::to_string(id) + "\",\"" + text + "\"\r\n";
    }
    std::string at(const std::string& name) const { return (cli.root / name).string(); }

    DemoCli cli;
    std::filesystem::path samples = cli.levelEditor / "sound" / "Samples";
};

} // namespace

TEST_F(ExchangeCommands, ExportWritesTheLinesOfItsMode)
{
    struct Case
    {
        std::vector<std::string> arguments;
        std::string bytes;
    };
    const std::string modified = record(1, line("S1", "foot", "#xx"));
    const std::string added = record(2, line("S2", "b", ""));
    const Case cases[] = {
        {{"export", "modified", at("m.tox")}, modified},
        {{"export", "letter", at("l.tox")}, modified + added},
        {{"export", "letter", at("t.tox"), "--letter", "#tw"}, added},
        {{"export", "all", at("a.tob")},
         record(0, line("S0", "a", "#g")) + record(1, line("S1", "foot", "#oa")) +
             record(2, line("S2", "b", "#tw #oa")) + record(3, line("S3", "c", ""))},
    };
    for (const Case& c : cases) {
        const CliRun run = cli.run(c.arguments);
        EXPECT_EQ(run.status, 0) << run.messages;
        EXPECT_EQ(readBytes(c.arguments[2]), c.bytes);
    }
    EXPECT_EQ(cli.run({"export", "modified", at("s.tox"), "--samples"}).status, 0);
    EXPECT_EQ(namesIn(cli.root / "s_Samples"), std::vector<std::string>{"foot.wav"});

    writeBytes(at("m.tox"), "another's");
    EXPECT_EQ(cli.run({"export", "modified", at("m.tox")}).status, 1) << "a question without answer";
    EXPECT_EQ(readBytes(at("m.tox")), "another's");
    EXPECT_EQ(cli.agreeing({"export", "modified", at("m.tox")}).status, 0);
    EXPECT_EQ(readBytes(at("m.tox")), modified);
    EXPECT_EQ(cli.run({"export", "modified", at("missing/m.tox")}).status, 3);
    EXPECT_EQ(cli.run({"export", "some", at("m.tox")}).status, 2);
}

TEST_F(ExchangeCommands, ABackupBringsEverythingBack)
{
    const std::string before = readBytes(cli.sounds);
    ASSERT_EQ(cli.run({"export", "all", at("a.tob")}).status, 0);
    ASSERT_EQ(cli.agreeing({"letters", "erase", "oa"}).status, 0);
    EXPECT_NE(readBytes(cli.sounds), before);
    EXPECT_EQ(cli.run({"import", at("a.tob")}).status, 1) << "a question without answer";
    EXPECT_NE(readBytes(cli.sounds), before);
    EXPECT_EQ(cli.agreeing({"import", at("a.tob")}).status, 0);
    EXPECT_EQ(readBytes(cli.sounds), before);
}

TEST_F(ExchangeCommands, AnImportBringsLinesAndSamplesWithTheLetter)
{
    writeBytes(at("x.tox"), record(3, line("S3", "new", "#zz")));
    writeBytes(cli.root / "x_Samples" / "new.wav", "its sample");
    const CliRun run = cli.agreeing({"import", at("x.tox"), "--letter", "tw", "--samples"});
    EXPECT_EQ(run.status, 0) << run.messages;
    EXPECT_EQ(cli.lineOf(3), line("S3", "new", "#zz #tw"));
    EXPECT_EQ(readBytes(samples / "new.wav"), "its sample");
    EXPECT_NE(readBytes(cli.program / "sounds" / "oasis.tor").find("3,\"S3:"), std::string::npos);
}

TEST_F(ExchangeCommands, WhatCannotBeImportedIsNamed)
{
    const std::string before = readBytes(cli.sounds);
    writeBytes(at("x.tox"), record(99, line("S99", "a", "")) + record(3, line("S3", "new", "")));
    const CliRun asked = cli.run({"import", at("x.tox")});
    EXPECT_EQ(asked.status, 1);
    EXPECT_NE(asked.messages.find("The catalogue has no line 99"), std::string::npos) << asked.messages;
    writeBytes(at("damaged.tox"), record(3, line("S3", "new", "")) + "\"1\",\"never closed\r\n");
    EXPECT_EQ(cli.agreeing({"import", at("damaged.tox")}).status, 3);
    EXPECT_EQ(cli.agreeing({"import", at("missing.tox")}).status, 3);
    EXPECT_EQ(cli.agreeing({"import", at("x.tox"), "--samples"}).status, 3) << "none come with it";
    EXPECT_EQ(cli.agreeing({"import", at("x.tox"), "--letter", "zz"}).status, 1) << "nobody's letter";
    EXPECT_EQ(readBytes(cli.sounds), before);
    EXPECT_EQ(cli.agreeing({"import", at("x.tox")}).status, 1) << "one line was refused";
    EXPECT_EQ(cli.lineOf(3), line("S3", "new", " #oa")) << "the other came in";
}
