// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/ReferenceRegister.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

const std::string builtIn = "\"Karnak\",\"9F\",\"karnak\"\r\n\"All levels\",\"g\",\"all levels\"\r\n";

class ReferenceRegisterTest : public testing::Test
{
protected:
    ReferenceRegisterTest() { writeBytes(root / "TAVREL.TOW", builtIn); }

    LoadedRegister load() const
    {
        Result<LoadedRegister> loaded = loadRegister(root.path());
        if (!loaded) {
            throw std::runtime_error(loaded.failure().text.english);
        }
        return *loaded;
    }

    TemporaryFolder root;
};

TEST_F(ReferenceRegisterTest, HoldsTheInstalledReferencesThenTheUsers)
{
    EXPECT_EQ(load().references.all().size(), 2U);
    writeBytes(root / "tavrel.PAW",
               "\"A \"quoted\", title\",\"oa\",\"oasis\"\n\r\n\"Mine\",\"9F\",\"karnak\"");
    const LoadedRegister loaded = load();
    const ReferenceRegister& references = loaded.references;
    const std::vector<WadReference> expected = {{"karnak", "9F", "Karnak"},
                                                {"all levels", "g", "All levels"},
                                                {"oasis", "oa", "A \"quoted\", title"},
                                                {"karnak", "9F", "Mine"}};
    EXPECT_EQ(references.all(), expected);
    EXPECT_EQ(references.builtInCount(), 2U);
    EXPECT_TRUE(loaded.notices.empty());
    EXPECT_EQ(references.findLetter("9F")->title, "Karnak");
    EXPECT_EQ(references.findWad("karnak")->title, "Karnak");
    EXPECT_EQ(references.findUserWad("karnak")->title, "Mine");
    EXPECT_EQ(references.findUserWad("all levels"), nullptr);
    EXPECT_EQ(references.findLetter("9f"), nullptr);
    EXPECT_EQ(references.findLetter(""), nullptr);
    EXPECT_EQ(references.findWad("OASIS"), nullptr);
}

TEST_F(ReferenceRegisterTest, PassesOverWhatIsNoReferenceAndSaysWhere)
{
    writeBytes(root / "Tavrel.paw",
               "\"a\",\"aa\",\"a\"\r\nnonsense\r\n\"b\",\"bb\"\r\n\"c\",\"cc\",\"c\"\r\n");
    const LoadedRegister loaded = load();
    EXPECT_EQ(loaded.references.all().size(), 4U);
    ASSERT_EQ(loaded.notices.size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        const std::string& text = loaded.notices[i].text.english;
        EXPECT_EQ(text.find("[" + (root / "Tavrel.paw").string() + "], line " + std::to_string(i + 2)), 0U)
            << text;
    }
}

TEST_F(ReferenceRegisterTest, NeedsTheInstalledFileOnly)
{
    fs::create_directory(root / "Tavrel.paw");
    EXPECT_EQ(load().references.all().size(), 2U);
    EXPECT_EQ(load().notices.size(), 1U);
    fs::remove(root / "TAVREL.TOW");
    const Result<LoadedRegister> loaded = loadRegister(root.path());
    ASSERT_FALSE(loaded);
    EXPECT_NE(loaded.failure().text.english.find("Tavrel.tow"), std::string::npos);
}

// However the rows come in, the installed ones stand first.
TEST(ReferenceRegister, KeepsTheInstalledReferencesInFront)
{
    ReferenceRegister references;
    references.appendUser({"u", "uu", "User"});
    references.appendBuiltIn({"a", "aa", "A"});
    references.appendBuiltIn({"b", "bb", "B"});
    EXPECT_EQ(references.all().at(1).wadName, "b");
    EXPECT_EQ(references.all().at(2).wadName, "u");
    EXPECT_EQ(references.builtInCount(), 2U);
}

} // namespace
