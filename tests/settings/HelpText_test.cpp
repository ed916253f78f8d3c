// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/HelpText.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

TEST(HelpText, IsReadInTheDisplayLanguageAndReplacesTheFormerHelp)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(loadHelp(folder.path(), Language::English));
    writeBytes(folder / "SFX_Eng1.txt", "Help\r\n\r\nlast");
    writeBytes(folder / "sfx_fra1.TXT", "Aide\r\n");
    writeBytes(folder / "TAVREL1.TXT", "of an earlier release");

    const Result<std::string> english = loadHelp(folder.path(), Language::English);
    ASSERT_TRUE(english);
    EXPECT_EQ(*english, "Help\r\n\r\nlast\r\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "TAVREL1.TXT"));
    const Result<std::string> french = loadHelp(folder.path(), Language::French);
    ASSERT_TRUE(french);
    EXPECT_EQ(*french, "Aide\r\n");
}

TEST(HelpText, ItsHeadingsAreChaptersAndLinesAtTheMargin)
{
    const std::string text =
        "=====\r\nCONTENTS\r\n=====\r\n\r\n   1. Windows\r\n\r\n=====\r\n1. WINDOWS\r\n=====\r\n"
        "\r\nLetter\r\n   of a level\r\n\r\nFile -\r\n   a name\r\n\r\nno heading\r\nbut text\r\n"
        "\r\n=====\r\n2. MESSAGES\r\n=====\r\n\r\nAdd, Letter (of a level)\r\n   text\r\n";
    const std::vector<HelpSection> sections = helpSections(text);
    std::vector<std::string> titles;
    for (const HelpSection& section : sections) {
        titles.push_back(section.title);
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"1. WINDOWS", "Letter", "File -", "2. MESSAGES",
                                                "Add, Letter (of a level)"}));
    EXPECT_EQ(sections[1].line, 10U);
}
