// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/PastedLines.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

class PastedLinesTest : public testing::Test
{
protected:
    PastedLinesTest()
    {
        for (const char* line : {"DOOR:>a>", "FOOT:>b>", "DOOR:>c>", "LAST:>d>"}) {
            catalogue.append(withTabs(line), withTabs(line), 0);
        }
    }

    SoundCatalogue catalogue;
};

TEST_F(PastedLinesTest, FindTheSoundsByNumberOrName)
{
    const std::vector<std::size_t> selected = {2};
    const struct
    {
        const char* text;
        std::vector<std::pair<std::size_t, std::string>> lines;
        std::vector<std::string> homeless;
    } cases[] = {
        {"FOOT:>x>", {{1, "FOOT:>x>"}}, {}},
        {"a comment\r\n\r\nLAST:>x>\r\nFOOT:>y>\r\n", {{1, "FOOT:>y>"}, {3, "LAST:>x>"}}, {}},
        {"DOOR:>x>", {{2, "DOOR:>x>"}}, {}}, // the selected one of two
        {"  0: OTHER:>x>", {{0, "OTHER:>x>"}}, {}},
        {"99: FOOT:>x>", {{1, "FOOT:>x>"}}, {}},
        {"foot:>x>\nNONE:>x>", {}, {"foot", "NONE"}},
        {"FOOT:>x>\nFOOT:>y>", {{1, "FOOT:>y>"}}, {}},
        {"VOL80", {}, {}},
    };
    for (const auto& c : cases) {
        const PastedLines found = findPastedLines(catalogue, withTabs(c.text), selected);
        std::vector<std::pair<std::size_t, std::string>> lines;
        for (const SoundCatalogue::LineChange& line : found.lines) {
            lines.emplace_back(line.number, line.text);
        }
        auto expected = c.lines;
        for (auto& [number, line] : expected) {
            line = withTabs(line);
        }
        EXPECT_EQ(lines, expected) << c.text;
        EXPECT_EQ(found.homeless, c.homeless) << c.text;
    }
    EXPECT_EQ(findPastedLines(catalogue, "DOOR:\tx\t", {}).homeless, std::vector<std::string>{"DOOR"});
}

TEST_F(PastedLinesTest, AreShownBeforeTheyChangeAnything)
{
    const std::string text = withTabs("FOOT:>new>\nDOOR:>x>\nLAST:>d>");
    ScriptedDialogs dialogs{Answer::No, Answer::Yes};
    EXPECT_FALSE(pasteLines(catalogue, text, {}, dialogs));
    EXPECT_FALSE(catalogue.differsFromFile());
    const std::optional<SoundsChanged> changed = pasteLines(catalogue, text, {}, dialogs);
    ASSERT_TRUE(changed);
    EXPECT_EQ(changed->changed, 1U) << "a line that is there already is none";
    EXPECT_EQ(catalogue.currentLine(1), withTabs("FOOT:>new>"));
    EXPECT_EQ(dialogs.said()[0].details.english, "1\n- FOOT: b\n+ FOOT: new");
    EXPECT_NE(dialogs.said()[0].text.french.find("[DOOR]"), std::string::npos);
    EXPECT_FALSE(pasteLines(catalogue, "no line", {}, dialogs));
    EXPECT_EQ(dialogs.said().back().kind, "exclamation");
}

} // namespace
