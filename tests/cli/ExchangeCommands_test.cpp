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
    const CliRun withSamples = cli.run({"export", "modified", at("s.tox"), "--samples"});
    EXPECT_EQ(withSamples.status, 0);
    EXPECT_NE(withSamples.messages.find("1 line saved. 1 sample copied."), std::string::npos);
    EXPECT_EQ(namesIn(cli.root / "s_Samples"), std::vector<std::string>{"foot.wav"});

    writeBytes(at("m.tox"), "another's");
    EXPECT_EQ(cli.run({"export", "modified", at("m.tox")}).status, 1) << "a question without answer";
    EXPECT_EQ(readBytes(at("m.tox")), "another's");
    EXPECT_EQ(cli.agreeing({"export", "modified", at("m.tox")}).status, 0);
    EXPECT_EQ(readBytes(at("m.tox")), modified);
    EXPECT_EQ(cli.run({"export", "modified", at("missing/m.tox")}).status, 3);
    EXPECT_EQ(cli.run({"export", "some", at("m.tox")}).status, 2);
    EXPECT_EQ(cli.run({"export", "letter", at("z.tox"), "--letter", "oz"}).status, 1) << "nobody's letter";
    EXPECT_FALSE(std::filesystem::exists(at("z.tox")));
}

TEST_F(ExchangeCommands, NoExportTakesThePlaceOfAFileOfTheProgramOrTheLevelEditor)
{
    std::filesystem::create_hard_link(cli.sounds, cli.root / "linked.tob");
    std::filesystem::create_symlink(cli.program / "Tavrel.paw", cli.root / "symbolic.tob");
    const std::filesystem::path files[] = {cli.sounds,
                                           cli.creator / "sounds.TXT",
                                           cli.creator / "Orig_Sounds.txt", // to come
                                           cli.creator / ".." / "LevelSFX Creator" / "Sounds.txt",
                                           cli.root / "linked.tob",
                                           cli.root / "symbolic.tob",
                                           cli.program / "Tavrel.par",
                                           cli.program / "tavrel.new",
                                           cli.program / "SFX_Eng1.txt"};
    const std::string sounds = readBytes(cli.sounds);
    const std::string references = readBytes(cli.program / "Tavrel.paw");
    const std::vector<std::string> creator = namesIn(cli.creator);
    const std::vector<std::string> program = namesIn(cli.program);
    for (const std::filesystem::path& file : files) {
        const CliRun run = cli.agreeing({"export", "all", file.string()});
        EXPECT_EQ(run.status, 1) << file;
        EXPECT_NE(run.messages.find("This is a file of the level editor or of Tavrel"), std::string::npos)
            << run.messages;
    }
    EXPECT_EQ(readBytes(cli.sounds), sounds);
    EXPECT_EQ(readBytes(cli.program / "Tavrel.paw"), references);
    EXPECT_EQ(namesIn(cli.creator), creator);
    EXPECT_EQ(namesIn(cli.program), program);
    EXPECT_EQ(cli.run({"export", "all", (cli.program / "other.tob").string()}).status, 0);
}

TEST_F(ExchangeCommands, AFolderThatHasGoneIsNoCrash)
{
    const std::string start = "mkdir '" + at("gone") + "' && cd '" + at("gone") + "' && rmdir '" +
                              at("gone") + "' && $CLI --yes --program-folder '" + cli.program.string() + "' ";
    for (const char* const command :
         {"export all x.tob", "export modified x.tox --samples", "import x.tox"}) {
        const CliRun run = runShell(start + command);
        EXPECT_EQ(run.status, 3) << run.messages;
        EXPECT_NE(run.messages.find("[x.to"), std::string::npos) << run.messages;
    }
}

TEST_F(ExchangeCommands, SamplesThatAreLeftOutShowInTheStatus)
{
    writeBytes(cli.sounds, textOf({line("S0", "a", "#g"), line("S1", "..\\foot", "#oa")}));
    const CliRun run = cli.run({"export", "letter", at("s.tox"), "--samples"});
    EXPECT_EQ(run.status, 4) << run.messages;
    EXPECT_NE(run.messages.find("..\\foot"), std::string::npos) << run.messages;
    EXPECT_NE(run.messages.find("1 line saved"), std::string::npos) << run.messages;
    writeBytes(cli.root / "s_Samples" / "b.wav", "");
    const CliRun imported = cli.agreeing({"import", at("s.tox"), "--letter", "tw", "--samples"});
    EXPECT_EQ(imported.status, 4) << imported.messages;
    const CliRun all = cli.run({"export", "all", at("a.tob"), "--samples"});
    EXPECT_EQ(all.status, 4);
    EXPECT_NE(all.messages.find("1 sample is not in the level editor's samples folder and was not "
                                "saved:\na.wav\n"),
              std::string::npos)
        << all.messages;
}

TEST_F(ExchangeCommands, ADryRunOnlyTells)
{
    const std::string before = readBytes(cli.sounds);
    writeBytes(at("x.tox"), record(3, line("S3", "foot", "")) + record(1, line("S1", "foot", "")));
    const CliRun run = cli.run({"import", at("x.tox"), "--dry-run"});
    EXPECT_EQ(run.status, 0) << run.messages;
    EXPECT_NE(run.messages.find("tavrel-cli: 3: S3: "), std::string::npos) << run.messages;
    EXPECT_NE(run.messages.find("2 lines would come in, 1 of the catalogue's would change"),
              std::string::npos)
        << run.messages;
    EXPECT_EQ(readBytes(cli.sounds), before);
    const CliRun done = cli.agreeing({"--quiet", "import", at("x.tox")});
    EXPECT_EQ(done.status, 0) << done.messages;
    EXPECT_NE(done.messages.find("2 lines imported."), std::string::npos) << done.messages;
    EXPECT_EQ(done.messages.find("[y/n]"), std::string::npos) << done.messages;
}

TEST_F(ExchangeCommands, ABackupBringsEverythingBack)
{
    const std::string before = readBytes(cli.sounds);
    ASSERT_EQ(cli.run({"export", "all", at("a.tob")}).status, 0);
    ASSERT_EQ(cli.agreeing({"letters", "erase", "oa"}).status, 0);
    EXPECT_NE(readBytes(cli.sounds), before);
    EXPECT_EQ(cli.run({"import", at("a.tob")}).status, 1) << "a question without answer";
    EXPECT_NE(readBytes(cli.sounds), before);
    const CliRun run = cli.agreeing({"import", at("a.tob")});
    EXPECT_EQ(run.status, 4) << "samples are missing";
    EXPECT_NE(run.messages.find("3 samples of the lines are not in the level editor's samples folder:\n"
                                "a.wav\nb.wav\nc.wav\n"),
              std::string::npos)
        << run.messages;
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
    EXPECT_NE(readBytes(cli.program / "sounds" / "tomb_of_wind.tor").find("3,\"S3:"), std::string::npos)
        << "the WAD of the letter";
    EXPECT_EQ(cli.agreeing({"import", at("x.tox"), "--wad", "OASIS"}).status, 0) << "in any letter case";
    EXPECT_NE(readBytes(cli.program / "sounds" / "oasis.tor").find("3,\"S3:"), std::string::npos);
}

TEST_F(ExchangeCommands, AnImportNeedsAReference)
{
    cli.changeSettings([](ProgramSettings& settings) { settings.lastWad.clear(); });
    const CliRun run = cli.agreeing({"import", at("missing.tox")});
    EXPECT_EQ(run.status, 1) << "before the file is looked for";
    EXPECT_NE(run.messages.find("Select a WAD/Letter reference first: --letter X"), std::string::npos)
        << run.messages;
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
    // Nothing of a file reaches the terminal raw, and not more than anybody reads.
    std::string hostile = "\xEF\xBB\xBF";
    for (int i = 0; i < 20; ++i) {
        hostile += record(3, "S3:\t\x1B]0;title\x07" + std::string(500, 'x') + "\t");
    }
    writeBytes(at("hostile.tox"), hostile);
    const CliRun shown = cli.run({"import", at("hostile.tox")});
    EXPECT_EQ(shown.status, 1);
    EXPECT_NE(shown.messages.find("?]0;title?"), std::string::npos) << shown.messages;
    EXPECT_NE(shown.messages.find("... and 12 more"), std::string::npos) << shown.messages;
    EXPECT_NE(shown.messages.find("UTF-8 mark"), std::string::npos) << shown.messages;
    EXPECT_EQ(shown.messages.find_first_of("\x1B\x07"), std::string::npos);
    EXPECT_LT(shown.messages.size(), 4000U);
    EXPECT_EQ(readBytes(cli.sounds), before);
    EXPECT_EQ(cli.agreeing({"import", at("x.tox")}).status, 4) << "one line was refused";
    EXPECT_EQ(cli.lineOf(3), line("S3", "new", " #oa")) << "the other came in";
}
