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

TEST(HelpText, HeadingsLeadToSections)
{
    const std::string text =
        "=====\r\nCONTENTS\r\n=====\r\n\r\n   1. Start\r\n\r\n=====\r\n1. START\r\n=====\r\n"
        "\r\nSamples\r\n   a panel\r\n\r\nno heading\r\nbut text\r\nof three lines\r\n"
        "\r\n=====\r\n4. WINDOWS\r\n=====\r\n\r\nLetter\r\n   of a level, or \"Choose a\r\n   file\"\r\n"
        "\r\nFile -\r\n   a name\r\n"
        "\r\n=====\r\n5. MESSAGES\r\n=====\r\n\r\nAdd, Letter,\r\nRename (a sample)\r\n   text\r\n"
        "\r\n=====\r\n9. CHECKS\r\n=====\r\n\r\nSamples\r\n   kinds\r\n";
    const std::vector<HelpSection> sections = helpSections(text);
    std::vector<std::string> titles;
    for (const HelpSection& section : sections) {
        titles.push_back(section.title);
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"1. START", "Samples", "4. WINDOWS", "Letter", "File -",
                                                "5. MESSAGES", "Add, Letter, Rename (a sample)", "9. CHECKS",
                                                "Samples"}));
    EXPECT_EQ(sections[1].line, 10U);

    const struct
    {
        const char* title;
        HelpAbout about;
        int found; // -1: none
    } cases[] = {
        {"9. CHECKS", HelpAbout::Window, 7},    {"Letter", HelpAbout::Window, 3},
        {"Letter", HelpAbout::Message, 6},      {"Rename", HelpAbout::Window, 6},
        {"File - city", HelpAbout::Message, 4}, {"Choose a file", HelpAbout::Message, 3},
        {"Samples", HelpAbout::Message, -1},
    };
    for (const auto& [title, about, found] : cases) {
        const HelpSection* const section = findHelpSection(text, sections, title, about);
        EXPECT_EQ(section == nullptr ? -1 : section - sections.data(), found) << title;
    }
}
