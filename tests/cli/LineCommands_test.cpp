// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundLine.h"
#include "cli/Cli.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace tavrel;

namespace {

const std::string manySamples = withSamples("MANY:", 51) + "\tVOL08";

} // namespace

TEST(LineCommands, ParseWritesTheFieldsOfEachLine)
{
    const std::string lines = withTabs("LARA_FEET:>>feet1 feet2>>VOL8>P V>CH1>PIT-5>RAD08>#g #ab\r\n"
                                       "BOTH:>a>>>VOL12>P   R N>>>>\n"
                                       "no name>\n"
                                       "\n"
                                       "LAST:>a b");
    const CliRun run = runCli({"parse"}, lines);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.messages, "");
    const auto object = [](const char* name, const char* text, std::vector<std::string> samples,
                           std::vector<std::string> fields) {
        return nlohmann::json{{"Name", name},        {"SampleText", text}, {"Samples", samples},
                              {"Vol", fields[0]},    {"FlagP", fields[1]}, {"FlagV", fields[2]},
                              {"FlagRN", fields[3]}, {"FlagL", fields[4]}, {"Ch", fields[5]},
                              {"Pit", fields[6]},    {"Rad", fields[7]},   {"Letters", fields[8]}};
    };
    const std::vector<std::string> nothing(9);
    EXPECT_EQ(objectsOf(run.output),
              (std::vector<nlohmann::json>{
                  object("LARA_FEET:", "feet1 feet2", {"feet1", "feet2"},
                         {"VOL08", "P", "V", "", "", "CH01", "PIT-05", "RAD08", "#g #ab"}),
                  object("BOTH:", "a", {"a"}, {"VOL12", "P", "", "N", "", "", "", "", ""}),
                  object("", "no name", {"no", "name"}, nothing),
                  object("", "", {}, nothing),
                  object("LAST:", "a", {"a"}, nothing),
              }));
}

TEST(LineCommands, FiltersGiveTheLiteralResults)
{
    struct Case
    {
        std::vector<std::string> arguments;
        const char* line;
        const char* result;
    };
    const Case cases[] = {
        {{"compose"}, "N:>a>>>>VOL8>>>>>>#g#ab", "N:>>>a>>>>VOL08>>>>>#g #ab"},
        {{"compose"}, "N\xE9:>\xFF >VOL8", "N\xE9:>>>\xFF>>>>VOL08>>>>>"},
        {{"line", "add-letter", "ab"}, "N:>a>VOL08>", "N:>a>VOL08>#ab"},
        {{"line", "add-letter", "\u00E9\u20AC"}, "N:>a>", "N:>a>#\xE9\x80"},
        {{"line", "remove-letter", "a"}, "N:>a>VOL08>#ab #c", "N:>>>a>>>>VOL08>>>>>#c"},
        {{"line", "replace-letter", "ab", "g"}, "N:>#ab #ab", "N:>#g #ab"},
        {{"line", "erase-letter", "ab"}, "N:>RAD08>#g #ab #ef", "N:>RAD08>#g #ef"},
        {{"line", "erase-letter", "--", "-b"}, "N:>#g #-b", "N:>#g"},
        {{"line", "erase-letter", ""}, "N: #ab", "N:ab"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.back() + " / " + c.line);
        for (const char* const ending : {"\n", "\r\n", ""}) {
            const CliRun run = runCli(c.arguments, withTabs(c.line) + ending);
            EXPECT_EQ(run.output, withTabs(c.result) + "\n");
            EXPECT_EQ(run.status, 0);
        }
    }
}

TEST(LineCommands, ALineOfTooManySamplesPassesWithAMessage)
{
    const std::string text = manySamples + "\r\n" + withTabs("N:>a>#ab") + "\n";
    const CliRun parsed = runCli({"parse", "--language", "F"}, text);
    EXPECT_EQ(parsed.status, 1);
    const std::vector<nlohmann::json> objects = objectsOf(parsed.output);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0],
              (nlohmann::json{{"error", "Une ligne de son ne peut contenir plus de 50 samples."}}));
    EXPECT_EQ(objects[1]["Name"], "N:");
    for (const std::vector<std::string>& filter : {std::vector<std::string>{"compose"},
                                                   {"line", "add-letter", "ab"},
                                                   {"line", "remove-letter", "zz"},
                                                   {"line", "replace-letter", "MANY", "x"},
                                                   {"line", "erase-letter", "zz"}}) {
        const CliRun run = runCli(filter, text);
        EXPECT_EQ(run.status, 1) << filter.back();
        EXPECT_TRUE(run.output.starts_with(manySamples + "\nN:")) << filter.back();
        EXPECT_NE(run.messages.find("Line 1 "), std::string::npos) << filter.back();
    }
}

TEST(LineCommands, EndCleanlyWithTheirStreams)
{
    const std::string million = "yes 'N: a b VOL08' | head -1000000 | ";
    struct Case
    {
        std::string line;
        int status;
    };
    const Case cases[] = {
        {million + "{ \"$CLI\" parse; echo $? >&3; } | head -1", 0}, // the reader goes away
        {million + "{ \"$CLI\" compose; echo $? >&3; } | head -1", 0},
        {"\"$CLI\" parse </; echo $? >&3", 3},
        {"\"$CLI\" parse <&-; echo $? >&3", 3},
        {"yes 'N: a ' | head -9 | { \"$CLI\" compose >/dev/full; echo $? >&3; }", 3},
        {"head -c 20000000 /dev/zero | { \"$CLI\" compose; echo $? >&3; }", 3}, // no line of that length
    };
    for (const Case& c : cases) {
        EXPECT_EQ(runShell("{ " + c.line + "; } 3>&2 2>/dev/null").messages, std::to_string(c.status) + "\n")
            << c.line;
    }
    EXPECT_EQ(runCli({"parse"}).output, "");
}

#ifndef __SANITIZE_ADDRESS__ // which needs a lot of memory itself
TEST(LineCommands, NeedConstantMemory)
{
    const CliRun run = runShell("ulimit -v 40000; yes 'SOUND: sample1 sample2 VOL08 #ab' | head -1000000 | "
                                "\"$CLI\" parse | tail -1");
    EXPECT_EQ(objectsOf(run.output).at(0)["Letters"], "#ab");
}
#endif
