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
    } cases[] = {{"", ""}, {"A:\r\nB:\r\n", "A:\r\nB:"}, {"A:\nB:", "A:\r\nB:"}, {"A:\r\n\r\n", "A:\r\n"}};
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
    expectFinds("LARA", false, {0, 16, all.size() - 4});
    expectFinds("LARA", true, {0});
    expectFinds("vol", false, {10});
    expectFinds("vol", true, {});
    expectFinds("aa", true, {5, 6}); // overlapping
    expectFinds("\xC9", false, {21});
    expectFinds("", false, {});

    text.setPosition(1);
    EXPECT_EQ(text.findNext("lara", false), 16U);
    EXPECT_EQ(text.findNext("nowhere", false), std::nullopt);
    EXPECT_EQ(text.findNext("lara", false), all.size() - 4) << "a search in vain keeps the position";
}

TEST(SoundsText, AFieldCountsALineEndAsOneCharacter)
{
    const SoundsText text({"ab", "", "c"}); // a b CR LF CR LF c
    const struct
    {
        std::size_t offset;
        std::size_t inField;
    } places[] = {{0, 0}, {2, 2}, {4, 3}, {6, 4}, {7, 5}};
    for (const auto& [offset, inField] : places) {
        EXPECT_EQ(text.toFieldOffset(offset), inField);
        EXPECT_EQ(text.fromFieldOffset(inField), offset);
    }
    EXPECT_EQ(text.toFieldOffset(3), 2U);
    const SoundsText empty({});
    EXPECT_EQ(empty.fromFieldOffset(0), 0U);
    EXPECT_EQ(empty.toFieldOffset(0), 0U);
}
