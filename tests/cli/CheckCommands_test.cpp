// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cli.h"
#include "demo/WavFile.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace tavrel;

namespace {

class CheckCommands : public testing::Test
{
protected:
    CheckCommands()
    {
        lines = {withTabs("; Notes: mine"), withTabs("S0:>a>>VOL00>P>>>>#oa"),
                 withTabs("S1:>b>>VOL50>P>>>>#tw"), withTabs("S2:>a>>VOL50>P>>>>#oa #oa")};
        writeSounds();
        writeBytes(cli.creator / "pcwadsfx.exe", "the tool");
        writeBytes(cli.levelEditor / "sound" / "Samples" / "a.wav", wavBytes({}));
    }
    void writeSounds() const { writeBytes(cli.sounds, textOf(lines)); }

    DemoCli cli;
    std::vector<std::string> lines;
};

} // namespace

TEST_F(CheckCommands, ListWhatTheyFind)
{
    const CliRun errors = cli.run({"check", "--severity", "error"});
    EXPECT_EQ(errors.status, 1);
    EXPECT_EQ(errors.output,
              "error sample-missing [2 S1] [b.wav] is not in the samples folder.\n"
              "error value-zero [1 S0] VOL00: the level editor's tool takes it for the name of a sample.\n"
              "error colon-comment [0 ; Notes] Line 1, a comment, reads as a sound because of its colon: "
              "[; Notes: mine]\n");
    const CliRun french = cli.run({"--language", "F", "check", "--letter", "tw", "--severity", "error"});
    EXPECT_EQ(
        french.output,
        "error sample-missing [2 S1] [b.wav] n'est pas dans le répertoire des samples.\n"
        "error colon-comment [0 ; Notes] La ligne 1, un commentaire, est lue comme un son à cause de ses "
        "deux-points : [; Notes: mine]\n")
        << "what is wrong with the file concerns every level";

    const CliRun all = cli.run({"check", "--json"});
    EXPECT_EQ(all.status, 1);
    bool foundMissing = false;
    bool foundReference = false;
    for (const nlohmann::json& finding : objectsOf(all.output)) {
        EXPECT_EQ(finding.size(), 6U) << finding;
        if (finding["check"] == "sample-missing") {
            foundMissing = true;
            EXPECT_EQ(finding["severity"], "error");
            EXPECT_EQ(finding["sound"], 2);
            EXPECT_EQ(finding["file"], "b.wav");
            EXPECT_EQ(finding["fixable"], true);
        }
        if (finding["check"] == "list-sample") {
            foundReference = true;
            EXPECT_TRUE(finding["sound"].is_null());
            EXPECT_EQ(finding["fixable"], false);
        }
    }
    EXPECT_TRUE(foundMissing && foundReference) << all.output;
}

TEST_F(CheckCommands, MendAndWriteWhatIsAskedFor)
{
    const CliRun fixed = cli.agreeing({"check", "--fix", "value-zero", "--fix", "colon-comment", "--fix",
                                       "letter-twice", "--severity", "error"});
    EXPECT_EQ(fixed.output, "error sample-missing [1 S1] [b.wav] is not in the samples folder.\n");
    EXPECT_EQ(fixed.status, 1);
    EXPECT_NE(fixed.messages.find("VOL01"), std::string::npos) << "what changes is told";
    EXPECT_EQ(readBytes(cli.sounds),
              textOf({withTabs("S0:>a>>VOL01>P>>>>#oa"), withTabs("S1:>b>>VOL50>P>>>>#tw"),
                      withTabs("S2:>a>>VOL50>P>>>>#oa")}));
    const CliRun right =
        cli.agreeing({"check", "--wad", "tomb_of_wind", "--fix", "sample-missing", "--severity", "error"});
    EXPECT_EQ(right.output, "");
    EXPECT_EQ(right.status, 0);
    EXPECT_EQ(cli.lineOf(1), withTabs("S1:>a>>VOL50>P>>>>#tw"));
}

TEST_F(CheckCommands, RefuseWhatTheyDoNotKnow)
{
    const struct
    {
        std::vector<std::string> arguments;
        int status;
    } cases[] = {
        {{"check", "--fix", "nonsense"}, 2},
        {{"check", "--fix", "letter-unknown"}, 2},
        {{"check", "--severity", "bad"}, 2},
        {{"check", "--wad", "nowhere"}, 1},
        {{"check", "--fix", "ch-low"}, 2},
        {{"check", "--letter", "##"}, 1},
        {{"check", "--fix", "value-case", "extra"}, 2},
    };
    const std::string before = readBytes(cli.sounds);
    for (const auto& test : cases) {
        const CliRun run = cli.agreeing(test.arguments);
        EXPECT_EQ(run.status, test.status) << testing::PrintToString(test.arguments) << run.messages;
        EXPECT_EQ(run.output, "");
    }
    EXPECT_EQ(readBytes(cli.sounds), before);
    std::filesystem::remove_all(cli.levelEditor / "sound" / "Samples");
    EXPECT_EQ(cli.run({"check"}).status, 3);
}

TEST_F(CheckCommands, CountTheLevels)
{
    lines[2] = withTabs("S1:>b>>VOL50>P>>>>#g");
    writeSounds();
    const CliRun run = cli.run({"levels"});
    EXPECT_EQ(run.status, 0);
    const std::string size = std::to_string(wavBytes({}).size());
    const std::string oasis = lineStarting(run.output, "oasis");
    EXPECT_TRUE(oasis.starts_with("oasis\t#oa\t2\t1\t2\t" + size + "\t1\t")) << oasis;
    EXPECT_TRUE(oasis.ends_with("\tThe oasis of Amun"));
    const std::vector<nlohmann::json> json = objectsOf(cli.run({"levels", "--json"}).output);
    ASSERT_EQ(json.size(), 2U);
    const nlohmann::json& tomb = json[1];
    EXPECT_EQ(tomb["wad"], "tomb_of_wind");
    EXPECT_EQ(tomb["ownSounds"], 0);
    EXPECT_EQ(tomb["globalSounds"], 1);
    EXPECT_EQ(tomb["bytes"], 0);
    EXPECT_EQ(tomb["missing"], 1);
    EXPECT_GT(tomb["errors"], 0);
}
