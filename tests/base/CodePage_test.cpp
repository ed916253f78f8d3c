// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"

#include <gtest/gtest.h>

#include <set>

using namespace tavrel;

namespace {

std::string everyByte()
{
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        bytes += static_cast<char>(i);
    }
    return bytes;
}

TEST(CodePage, EveryByteComesBack)
{
    const std::string bytes = everyByte();
    const CodePageText back = codePageFromUtf8(utf8FromCodePage(bytes));
    EXPECT_EQ(back.bytes, bytes);
    EXPECT_TRUE(back.exact);
    std::set<std::string> characters;
    for (const char byte : bytes) {
        characters.insert(utf8FromCodePage(std::string(1, byte)));
    }
    EXPECT_EQ(characters.size(), 256U);
}

TEST(CodePage, ReadsWindows1252)
{
    EXPECT_EQ(utf8FromCodePage("A\xE9\x80\x9F\xFF"), "A\u00E9\u20AC\u0178\u00FF");
    EXPECT_EQ(codePageFromUtf8("A\u00E9\u20AC\u0178\u00FF\u2019").bytes, "A\xE9\x80\x9F\xFF\x92");
}

TEST(CodePage, StandsAQuestionMarkForWhatItLacks)
{
    const struct
    {
        const char* utf8;
        const char* bytes;
    } cases[] = {
        {"a\u0416b", "a?b"}, {"\u4F60", "?"}, {"\U0001F600!", "?!"}, {"\xFFz", "?z"}, {"z\xC3", "z?"},
        {"\xC3z", "?z"},     {"\x80", "?"},   {"e\u0301", "e?"},     {"\u0100", "?"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.utf8);
        const CodePageText text = codePageFromUtf8(c.utf8);
        EXPECT_EQ(text.bytes, c.bytes);
        EXPECT_FALSE(text.exact);
    }
    // An overlong form is no second spelling of a separator.
    const CodePageText overlong = codePageFromUtf8("\xC0\xAF");
    EXPECT_EQ(overlong.bytes.find('/'), std::string::npos);
    EXPECT_FALSE(overlong.exact);
    EXPECT_TRUE(codePageFromUtf8("").exact);
}

// A terminal obeys control characters, those of one byte and those that UTF-8 spells with two.
TEST(CodePage, MessagesShowNoControlCharacters)
{
    const struct
    {
        const char* bytes;
        const char* shown;
    } cases[] = {
        {"caf\xE9\tx", "caf\u00E9\tx"}, {"a\x1B[31mb\x7F\r\n", "a?[31mb???"}, {"\x81\x9D\xA0", "??\u00A0"}};
    for (const auto& c : cases) {
        EXPECT_EQ(shownText(c.bytes), c.shown);
    }
    EXPECT_EQ(withoutControls("caf\u00E9\r\n\u009B1m\x07"), "caf\u00E9?\n?1m?");
    EXPECT_EQ(shownLine(std::string(120, 'x')), std::string(120, 'x'));
    EXPECT_EQ(shownLine(std::string(121, 'x')), std::string(120, 'x') + "...");
}

TEST(CodePage, PathsGoBothWays)
{
    const std::string name = "Caf\xE9 \x80.txt";
    EXPECT_TRUE(nativePath(name).u8string() == u8"Caf\u00E9 \u20AC.txt");
    EXPECT_EQ(codePagePath(nativePath(name)).bytes, name);
    EXPECT_EQ(displayPath(nativePath(name)), "Caf\u00E9 \u20AC.txt");
}

TEST(CodePage, FoldsTheCaseByteByByte)
{
    EXPECT_EQ(upperCase("abcxyz\xE9\xFF\x9A\x9C\x9E"), "ABCXYZ\xC9\x9F\x8A\x8C\x8E");
    EXPECT_EQ(lowerCase("ABCXYZ\xC9\x9F\x8A\x8C\x8E"), "abcxyz\xE9\xFF\x9A\x9C\x9E");
    const std::string noLetters = "09_@[`{\xD7\xF7\xDF\xAA\xB5";
    EXPECT_EQ(upperCase(noLetters), noLetters);
    EXPECT_EQ(lowerCase(noLetters), noLetters);
    for (const char byte : everyByte()) {
        const std::string one(1, byte);
        EXPECT_EQ(upperCase(lowerCase(one)), upperCase(one));
        EXPECT_EQ(lowerCase(upperCase(one)), lowerCase(one));
    }
    EXPECT_TRUE(sameName("SOUNDS.TXT", "sounds.txt"));
    EXPECT_TRUE(sameName("\xC9T\xC9", "\xE9t\xE9"));
    EXPECT_FALSE(sameName("sounds.txt", "sounds.tx"));
    EXPECT_FALSE(sameName("E", "\xE9"));
}

} // namespace
