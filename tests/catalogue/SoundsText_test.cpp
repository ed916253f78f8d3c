// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundsText.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

TEST(SoundsText, IsTheFileWithItsLinesJoined)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(SoundsText::load(folder.path()));
    const struct
    {
        const char* file;
        const char* text;
    } cases[] = {{"", ""}, {"A:\r\nB:\r\n", "A:\nB:"}, {"A:\nB:", "A:\nB:"}, {"A:\r\n\r\n", "A:\n"}};
    for (const auto& [file, text] : cases) {
        writeBytes(folder / "SOUNDS.TXT", file);
        const Result<SoundsText> sounds = SoundsText::load(folder.path());
        ASSERT_TRUE(sounds) << file;
        EXPECT_EQ(sounds->text(), text);
    }
}

TEST(SoundsText, TheSearchGoesOnOneCharacterBehindTheStartOfTheMatch)
{
    SoundsText text({"LARA aaa", "VOL08 lara \xE9", "Lara"});
    const std::string& all = text.text();
    const auto expectFinds = [&](std::string_view wanted, bool matchCase,
                                 std::initializer_list<std::size_t> places) {
        SCOPED_TRACE(wanted);
        text.setPosition(0);
        for (const std::size_t place : places) {
            EXPECT_EQ(text.findNext(wanted, matchCase), place);
        }
        EXPECT_EQ(text.findNext(wanted, matchCase), std::nullopt);
    };
    expectFinds("LARA", false, {0, 15, all.size() - 4});
    expectFinds("LARA", true, {0});
    expectFinds("vol", false, {9});
    expectFinds("vol", true, {});
    expectFinds("aa", true, {5, 6}); // overlapping
    expectFinds("\xC9", false, {20});
    expectFinds("", false, {});

    text.setPosition(1);
    EXPECT_EQ(text.findNext("lara", false), 15U);
    EXPECT_EQ(text.findNext("nowhere", false), std::nullopt);
    EXPECT_EQ(text.findNext("lara", false), all.size() - 4) << "a search in vain keeps the position";
}
