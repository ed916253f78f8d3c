// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundLine.h"
#include "cli/Cli.h"
#include "demo/WavFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

using namespace tavrel;

namespace {

std::size_t countLines(const std::string& text)
{
    return static_cast<std::size_t>(std::ranges::count(text, '\n'));
}

} // namespace

TEST(CatalogueCommands, ListShowsWhatIsAskedFor)
{
    const DemoCli cli;
    const CliRun all = cli.run({"list"});
    EXPECT_EQ(all.status, 0);
    EXPECT_EQ(countLines(all.output), 370U);
    EXPECT_EQ(lineStarting(all.output, "  0:"), "  0: LARA_FEET                     #g");
    EXPECT_EQ(lineStarting(all.output, " 62:"), " 62:     lara_pickup");
    EXPECT_EQ(cli.run({"list", "--modified"}).output, "");
    EXPECT_EQ(cli.run({"list", "--letter", "oa"}).output, "");

    ASSERT_EQ(cli.agreeing({"letters", "add", "oa", "63", "65"}).status, 0);
    const CliRun carriers = cli.run({"list", "--letter", "#oa"});
    EXPECT_EQ(countLines(carriers.output), 2U);
    EXPECT_EQ(lineStarting(carriers.output, " 63:"), " 63: PUSHABLE_SOUND              * #oa");
    std::vector<std::size_t> numbers;
    for (const nlohmann::json& object : objectsOf(cli.run({"list", "--modified", "--json"}).output)) {
        numbers.push_back(object["Number"]);
        EXPECT_EQ(object["Modified"], true);
        EXPECT_EQ(object["Letters"], "#oa");
        EXPECT_EQ(object["Line"], cli.lineOf(numbers.back()));
    }
    EXPECT_EQ(numbers, (std::vector<std::size_t>{63, 65}));
}

TEST(CatalogueCommands, ShowTellsAllOfASound)
{
    const DemoCli cli;
    ASSERT_EQ(cli.agreeing({"set", "63", "--vol", "7", "--pit=", "--ch=", "--rad", "9"}).status, 0);
    const CliRun run = cli.run({"show", "63"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(lineStarting(run.output, "Current"), "Current   " + cli.lineOf(63));
    EXPECT_EQ(lineStarting(run.output, "Original"), "Original  " + stockLines()[63]);
    EXPECT_EQ(lineStarting(run.output, "Values"), "Values    VOL07 RAD09");
    EXPECT_EQ(lineStarting(cli.run({"show", "0"}).output, "Letter"), "Letter    #g - All levels");
    EXPECT_EQ(cli.run({"show", "370"}).status, 1);
}

TEST(CatalogueCommands, SetChangesOneLineByTheRulesOfTheBoxes)
{
    struct Case
    {
        std::vector<std::string> options;
        const char* after;
    };
    const char* const before = "N:>>>a b>>>>VOL20>P V>CH10>PIT05>RAD10>#g";
    const Case cases[] = {
        {{"--vol", "8"}, "N:>>>a b>>>>VOL08>P V>CH10>PIT05>RAD10>#g"},
        {{"--vol", "", "--rad=", "--ch", "0"}, "N:>>>a b>>>>>P V>>PIT05>>#g"},
        {{"--pit", "-7"}, "N:>>>a b>>>>VOL20>P V>CH10>PIT-07>RAD10>#g"},
        {{"--vol", "0008", "--rad=007", "--ch", "000"}, "N:>>>a b>>>>VOL08>P V>>PIT05>RAD07>#g"},
        {{"--flags", "LN"}, "N:>>>a b>>>>VOL20>    N L>CH10>PIT05>RAD10>#g"},
        {{"--flags", ""}, "N:>>>a b>>>>VOL20>>CH10>PIT05>RAD10>#g"},
        {{"--samples", " new  a "}, "N:>>>new a>>>>VOL20>P V>CH10>PIT05>RAD10>#g"},
        {{"--samples", "new", "--vol", "1"}, "N:>>>new>>>>VOL01>P V>CH10>PIT05>RAD10>#g"},
    };
    const DemoCli cli;
    writeBytes(cli.levelEditor / "sound" / "Samples" / "new.wav", wavBytes({.seconds = 0}));
    for (const Case& c : cases) {
        writeBytes(cli.sounds, textOf({"Z:\t", withTabs(before)}));
        std::vector<std::string> arguments = {"set", "1"};
        arguments.insert(arguments.end(), c.options.begin(), c.options.end());
        const CliRun run = cli.agreeing(arguments);
        EXPECT_EQ(run.status, 0) << run.messages;
        EXPECT_EQ(readBytes(cli.sounds), textOf({"Z:\t", withTabs(c.after)})) << c.after;
    }
}

TEST(CatalogueCommands, SetChangesRangesAndWhatAFilterLists)
{
    const std::vector<std::string> before = {
        withTabs("A:>>>a>>>>VOL20>>CH10>>>#oa"), withTabs("B:>>>b>>>>VOL95>>CH19>>>#oa"),
        withTabs("C:>>>c>>>>>>CH20>>>#oa"), withTabs("D:>>>d>>>>VOL50>>>>>#g"), withTabs("E:>>>>>>>>>>>>")};
    // clang-format off
    const struct
    {
        std::vector<std::string> arguments;
        std::vector<std::pair<std::size_t, const char*>> after;
        int status;
    } cases[] = {
        {{"0,2-3", "--vol-by", "10"}, {{0, "A:>>>a>>>>VOL30>>CH10>>>#oa"}, {3, "D:>>>d>>>>VOL60>>>>>#g"}}, 0},
        {{"--where", "#oa ch<20", "--rad", "10"}, {{0, "A:>>>a>>>>VOL20>>CH10>>RAD10>#oa"}, {1, "B:>>>b>>>>VOL95>>CH19>>RAD10>#oa"}}, 0},
    };
    // clang-format on
    const DemoCli cli;
    for (const auto& c : cases) {
        writeBytes(cli.sounds, textOf(before));
        std::vector<std::string> arguments = {"set"};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        std::vector<std::string> after = before;
        for (const auto& [number, line] : c.after) {
            after[number] = withTabs(line);
        }
        const CliRun run = cli.agreeing(arguments);
        EXPECT_EQ(run.status, c.status) << run.messages;
        EXPECT_EQ(readBytes(cli.sounds), textOf(after)) << c.arguments.front();
    }
    writeBytes(cli.sounds, textOf(before));
    ASSERT_EQ(cli.agreeing({"letters", "remove", "oa", "1-3"}).status, 0);
    EXPECT_EQ(cli.lineOf(1), withTabs("B:>>>b>>>>VOL95>>CH19>>>"));
    ASSERT_EQ(cli.agreeing({"letters", "add", "oa", "--where", "b"}).status, 0);
    EXPECT_EQ(cli.lineOf(1), before[1]);
    writeBytes(cli.sounds, textOf({withTabs("A:>a>VOL100>"), before[0]}));
    const CliRun lossy = cli.agreeing({"set", "0-1", "--ch", "5"});
    EXPECT_NE(lossy.messages.find("0: A\nLost: [VOL100]"), std::string::npos) << lossy.messages;
    const std::string written = readBytes(cli.sounds);
    for (const auto& [arguments, status] : std::initializer_list<std::pair<std::vector<std::string>, int>>{
             {{"set", "--vol", "5"}, 2},
             {{"set", "3-1", "--vol", "5"}, 2},
             {{"set", "1", "--vol", "5", "--vol-by", "1"}, 2},
             {{"set", "1,", "--vol", "5"}, 2},
             {{"set", "0-9", "--vol", "5"}, 1},
             {{"set", "--where", "vol<", "--vol", "5"}, 1},
             {{"set", "--where", "nothing", "--vol", "5"}, 1},
             {{"set", "0-2", "--samples", "a"}, 1}}) {
        EXPECT_EQ(cli.agreeing(arguments).status, status) << arguments[1];
    }
    EXPECT_EQ(readBytes(cli.sounds), written);
}

TEST(CatalogueCommands, SetKeepsThePromisesOfApplying)
{
    const DemoCli cli;
    writeBytes(cli.levelEditor / "sound" / "Samples" / "new.wav", wavBytes({.seconds = 0}));
    ASSERT_EQ(cli.agreeing({"set", "63", "--samples", "new"}).status, 0);
    EXPECT_EQ(readBytes(cli.program / "sounds" / "oasis.tor"), "63,\"" + cli.lineOf(63) + "\"\r\n");
    const CliRun unknown = cli.agreeing({"set", "65", "--vol", "9", "--wad", "other"});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_NE(unknown.messages.find("No reference is named [other]"), std::string::npos) << unknown.messages;
    EXPECT_EQ(namesIn(cli.program / "sounds"), std::vector<std::string>{"oasis.tor"});
    const std::filesystem::path references = cli.program / "Tavrel.paw";
    writeBytes(references, readBytes(references) + "\"Another level\",\"ot\",\"other\"\r\n");
    ASSERT_EQ(cli.agreeing({"set", "65", "--vol", "9", "--wad", "other"}).status, 0);
    EXPECT_EQ(namesIn(cli.program / "sounds"), (std::vector<std::string>{"oasis.tor", "other.tor"}));
    const std::string applied = readBytes(cli.sounds);
    EXPECT_EQ(cli.run({"set", "65", "--vol", "9"}).status, 0) << "nothing to ask about";
    EXPECT_EQ(readBytes(cli.sounds), applied);
    // As if an apply had been cut short between its two files.
    std::filesystem::remove(cli.program / "sounds" / "oasis.tor");
    const CliRun completed = cli.run({"set", "65", "--vol", "9"});
    EXPECT_NE(completed.messages.find("was missing and is written"), std::string::npos) << completed.messages;
    EXPECT_EQ(readBytes(cli.program / "sounds" / "oasis.tor"), "63,\"" + cli.lineOf(63) + "\"\r\n");
}

TEST(CatalogueCommands, SetRefusesAndChangesNothing)
{
    const DemoCli cli;
    writeBytes(cli.levelEditor / "sound" / "Samples" / "stereo.wav", wavBytes({.channels = 2}));
    const std::string before = readBytes(cli.sounds);
    struct Case
    {
        std::vector<std::string> arguments;
        const char* said;
    };
    const Case cases[] = {
        {{"--yes", "set", "27", "--vol", "1"}, "This line should not be modified"},
        {{"--yes", "set", "370", "--vol", "1"}, "There is no sound 370"},
        {{"--yes", "set", "63", "--vol", "1", "--samples", "stereo"}, "[stereo.wav] must be"},
        {{"--yes", "set", "63", "--samples", "gone"}, "gone.wav"},
        {{"--yes", "set", "63", "--samples="}, "You must enter a sample name"},
        {{"set", "63", "--vol", "1"}, "--yes agrees to it"},
    };
    for (const Case& c : cases) {
        const CliRun run = cli.run(c.arguments);
        EXPECT_EQ(run.status, 1);
        EXPECT_NE(run.messages.find(c.said), std::string::npos) << run.messages;
    }
    EXPECT_EQ(readBytes(cli.sounds), before);
    EXPECT_EQ(namesIn(cli.creator), std::vector<std::string>{"Sounds.txt"});
}

TEST(CatalogueCommands, AFileThatCannotBeWrittenEndsWithThree)
{
    const DemoCli cli;
    const std::string before = readBytes(cli.sounds);
    std::filesystem::permissions(cli.sounds, std::filesystem::perms::owner_read);
    const CliRun run = cli.agreeing({"set", "63", "--vol", "1"});
    EXPECT_EQ(run.status, 3) << run.messages;
    EXPECT_EQ(readBytes(cli.sounds), before);
}
