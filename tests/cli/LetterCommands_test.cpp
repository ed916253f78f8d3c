// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cli.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

// Sound 0 belongs to all levels; 1 to 4 carry the letters named here.
class LetterCommandsTest : public testing::Test
{
protected:
    LetterCommandsTest()
    {
        writeBytes(cli.sounds, textOf({withTabs("S0:>>>a>>>>>>>>>#g"), plain("S1"), plain("S2") + "#oa",
                                       plain("S3") + "#tw #oa", plain("S4") + "#xx"}));
    }
    static std::string plain(const std::string& name) { return withTabs(name + ":>>>a>>>>>>>>>"); }
    std::string letters() const
    {
        std::string text;
        for (std::size_t k = 0; k < 5; ++k) {
            const std::string line = cli.lineOf(k);
            text += line.substr(line.rfind('\t') + 1) + "|";
        }
        return text;
    }

    DemoCli cli;
};

} // namespace

TEST_F(LetterCommandsTest, ChangeWhatIsNamed)
{
    struct Step
    {
        std::vector<std::string> arguments;
        int status;
        const char* letters;
        const char* said;
    };
    const Step steps[] = {
        {{"add", "oa", "1", "4"}, 0, "#g|#oa|#oa|#tw #oa|#xx #oa|", "Confirm modification"},
        {{"add", "tw", "0", "1", "3"}, 4, "#g|#oa #tw|#oa|#tw #oa|#xx #oa|", "Sound 3 stays as it is"},
        {{"add", "zz", "1"},
         1,
         "#g|#oa #tw|#oa|#tw #oa|#xx #oa|",
         "None of your references has the letter [#zz]"},
        {{"add", "9F", "1"}, 1, "#g|#oa #tw|#oa|#tw #oa|#xx #oa|", "None of your references"},
        {{"add", "oa", "2", "99"}, 1, "#g|#oa #tw|#oa|#tw #oa|#xx #oa|", "There is no sound 99"},
        {{"replace", "oa", "xx"}, 1, "#g|#oa #tw|#oa|#tw #oa|#xx #oa|", "1 line already carries #xx"},
        {{"remove", "#xx", "4"}, 0, "#g|#oa #tw|#oa|#tw #oa|#oa|", ""},
        {{"remove", "tw", "1", "2"}, 4, "#g|#oa|#oa|#tw #oa|#oa|", "Sound 2 stays as it is"},
        {{"remove", "g", "0"}, 1, "#g|#oa|#oa|#tw #oa|#oa|", "Letter [#g] shoudn't be removed"},
        {{"replace", "oa", "tw"}, 1, "#g|#oa|#oa|#tw #oa|#oa|", "The letter [#tw] is already used"},
        {{"replace", "oa", "abc"}, 1, "#g|#oa|#oa|#tw #oa|#oa|", "2 characters long"},
        {{"replace", "oa", "ob"}, 0, "#g|#ob|#ob|#tw #ob|#ob|", "Replace #oa letter by #ob"},
        {{"erase", "oa"}, 1, "#g|#ob|#ob|#tw #ob|#ob|", "None of your references has the letter [#oa]"},
        {{"erase", "ob"}, 0, "#g|||#tw||", "Remove all [#ob]"},
        {{"erase", "ob"}, 0, "#g|||#tw||", "No line changes"},
    };
    for (const Step& step : steps) {
        std::vector<std::string> arguments = step.arguments;
        arguments.insert(arguments.begin(), "letters");
        const CliRun run = cli.agreeing(arguments);
        EXPECT_EQ(run.status, step.status) << run.messages;
        EXPECT_EQ(letters(), step.letters) << run.messages;
        EXPECT_NE(run.messages.find(step.said), std::string::npos) << run.messages;
    }
    EXPECT_TRUE(
        readBytes(cli.program / "Tavrel.paw").starts_with("\"The oasis of Amun\",\"ob\",\"oasis\"\r\n"));
}

TEST_F(LetterCommandsTest, WithoutAnAnswerNothingChanges)
{
    const std::string lines = readBytes(cli.sounds);
    const std::string references = readBytes(cli.program / "Tavrel.paw");
    EXPECT_EQ(cli.run({"letters", "replace", "oa", "ob"}).status, 1);
    EXPECT_EQ(cli.run({"letters", "erase", "oa"}).status, 1);
    EXPECT_EQ(readBytes(cli.sounds), lines);
    EXPECT_EQ(readBytes(cli.program / "Tavrel.paw"), references);
    // The register follows only when the lines are written.
    std::filesystem::permissions(cli.sounds, std::filesystem::perms::owner_read);
    EXPECT_EQ(cli.agreeing({"letters", "replace", "oa", "ob"}).status, 3);
    EXPECT_EQ(readBytes(cli.program / "Tavrel.paw"), references);
}

// sounds.txt is written first; the register follows, or the next start knows that it did not.
TEST_F(LetterCommandsTest, AReplacementCutInTwoIsToldAndCompleted)
{
    const std::filesystem::path references = cli.program / "Tavrel.paw";
    const auto isTold = [](const CliRun& run) {
        return run.messages.find("the reference still has the old one") != std::string::npos;
    };
    std::filesystem::permissions(references, std::filesystem::perms::owner_read);
    EXPECT_TRUE(isTold(cli.agreeing({"letters", "replace", "oa", "ob"})));
    EXPECT_EQ(letters(), "#g||#ob|#tw #ob|#xx|");
    EXPECT_TRUE(isTold(cli.run({"list"})));
    std::filesystem::permissions(references, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
    EXPECT_EQ(cli.agreeing({"letters", "replace", "oa", "ob"}).status, 0);
    EXPECT_FALSE(isTold(cli.run({"list"})));
    EXPECT_NE(readBytes(references).find("\"ob\",\"oasis\""), std::string::npos) << readBytes(references);
    EXPECT_FALSE(std::filesystem::exists(cli.program / "Tavrel.tol"));
}
