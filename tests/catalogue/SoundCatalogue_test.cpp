// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundCatalogue.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tavrel;

namespace {

SoundCatalogue catalogueOf(std::size_t count, bool protectedLinesEditable)
{
    SoundCatalogue catalogue({}, protectedLinesEditable);
    for (std::size_t k = 0; k < count; ++k) {
        const std::string line = "Name\xC9_" + std::to_string(k) + ":\ta\t";
        catalogue.append(line, line, k + 1);
    }
    return catalogue;
}

TEST(SoundCatalogue, ListsNumberAndName)
{
    const auto padded = [](std::string name) {
        name.resize(22, ' ');
        return name;
    };
    const SoundCatalogue locked = catalogueOf(1'001, false);
    EXPECT_EQ(locked.listEntry(5), "  5: " + padded("Name\xC9_5"));
    EXPECT_EQ(locked.listEntry(62), " 62:     " + padded("name\xE9_62"));
    EXPECT_EQ(locked.listEntry(369), "369: " + padded("Name\xC9_369"));
    EXPECT_EQ(locked.listEntry(1'000), "1000: " + padded("Name\xC9_1000"));
    EXPECT_EQ(catalogueOf(70, true).listEntry(62), " 62: " + padded("Name\xC9_62"));

    SoundCatalogue catalogue;
    catalogue.append("ABCDEFGHIJKLMNOPQRSTUVWXYZ:\ta\t", "", 1);
    catalogue.append(":", "", 2);
    EXPECT_EQ(catalogue.listEntry(0), "  0: ABCDEFGHIJKLMNOPQRSTUV");
    EXPECT_EQ(catalogue.listEntry(1), "  1: " + std::string(22, ' '));
}

TEST(SoundCatalogue, ProtectsSoundsUnlessTheyMayBeEdited)
{
    const SoundCatalogue locked = catalogueOf(370, false);
    EXPECT_EQ(locked.protectedNumbers().size(), 11U);
    EXPECT_TRUE(std::ranges::all_of(locked.protectedNumbers(),
                                    [&locked](std::size_t sound) { return locked.isProtected(sound); }));
    EXPECT_FALSE(locked.isProtected(26));
    const SoundCatalogue open = catalogueOf(370, true);
    EXPECT_TRUE(open.protectedNumbers().empty());
    EXPECT_FALSE(open.isProtected(27));
}

TEST(SoundCatalogue, RefusesTextThatWouldShiftOrBreakTheLinesBehindIt)
{
    const std::string fifty = withSamples("N:", 50);
    const struct
    {
        const char* what;
        std::string text;
    } refused[] = {{"no colon", "NAME\ta\t"},           {"empty", ""},
                   {"line feed", "NAME:\ta\nB:"},       {"carriage return", "NAME:\ta\r"},
                   {"zero", std::string("NAME:\0", 6)}, {"51 samples", fifty + "s "}};
    SoundCatalogue catalogue = catalogueOf(3, false);
    const std::string before = catalogue.currentLine(1);
    for (const auto& c : refused) {
        SCOPED_TRACE(c.what);
        const Problem problem = catalogue.setCurrentLine(1, c.text);
        ASSERT_TRUE(problem);
        EXPECT_FALSE(problem->text.english.empty());
        EXPECT_FALSE(problem->text.french.empty());
        EXPECT_EQ(catalogue.currentLine(1), before);
        EXPECT_FALSE(catalogue.differsFromFile());
    }
    EXPECT_FALSE(catalogue.setCurrentLine(1, before));
    EXPECT_FALSE(catalogue.differsFromFile());
    EXPECT_FALSE(catalogue.setCurrentLine(1, fifty));
    EXPECT_TRUE(catalogue.differsFromFile());
    EXPECT_TRUE(catalogue.isModified(1));
    EXPECT_EQ(catalogue.originalLine(1), before);
    EXPECT_EQ(catalogue.listEntry(1).substr(0, 7), "  1: N ");
}

TEST(SoundCatalogue, AppliedLinesStayModifiedButAreNotPending)
{
    SoundCatalogue catalogue = catalogueOf(2, false);
    ASSERT_FALSE(catalogue.setCurrentLine(0, "N:\tb\t#g"));
    EXPECT_TRUE(catalogue.isGlobal(0));
    EXPECT_FALSE(catalogue.isGlobal(1));
    FileStamp stamp;
    stamp.size = 7;
    catalogue.markApplied(stamp, {1, 2});
    EXPECT_FALSE(catalogue.differsFromFile());
    EXPECT_TRUE(catalogue.isModified(0));
    EXPECT_EQ(catalogue.file().stamp, stamp);
}

} // namespace
