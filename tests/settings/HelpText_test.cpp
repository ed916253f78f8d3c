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
