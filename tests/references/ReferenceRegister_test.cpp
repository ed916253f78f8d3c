// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/ReferenceRegister.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

// The first two of 42 count in these tests.
std::string builtIn(int rows)
{
    std::string text = "\"Karnak\",\"9F\",\"karnak\"\r\n\"All levels\",\"g\",\"all levels\"\r\n";
    for (int i = 2; i < rows; ++i) {
        const std::string number = std::to_string(i + 10);
        text += "\"Title " + number + "\",\"" + number + "\",\"wad" + number + "\"\r\n";
    }
    return text;
}

class ReferenceRegisterTest : public testing::Test
{
protected:
    ReferenceRegisterTest() { writeBytes(root / "TAVREL.TOW", builtIn(42)); }

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
    EXPECT_EQ(load().references.size(), 42U);
    writeBytes(root / "tavrel.PAW",
               "\"A \"quoted\", title\",\"oa\",\"oasis\"\n\r\n\"Mine\",\"mk\",\"karnak\"");
    const LoadedRegister loaded = load();
    const ReferenceRegister& references = loaded.references;
    ASSERT_EQ(references.size(), 44U);
    EXPECT_EQ(references.at(1), (WadReference{"all levels", "g", "All levels"}));
    EXPECT_EQ(references.at(42), (WadReference{"oasis", "oa", "A \"quoted\", title"}));
    EXPECT_EQ(references.at(43), (WadReference{"karnak", "mk", "Mine"}));
    EXPECT_EQ(references.userBegin(), 42U);
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
    EXPECT_EQ(loaded.references.size(), 44U);
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
    EXPECT_EQ(load().references.size(), 42U);
    EXPECT_EQ(load().notices.size(), 1U);
    LoadedRegister unreadable = load();
    EXPECT_TRUE(saveRegister(root.path(), unreadable.references)) << "what could not be read is not replaced";
    fs::remove(root / "TAVREL.TOW");
    const Result<LoadedRegister> loaded = loadRegister(root.path());
    ASSERT_FALSE(loaded);
    EXPECT_NE(loaded.failure().text.english.find("Tavrel.tow"), std::string::npos);
}

TEST_F(ReferenceRegisterTest, TellsOddLettersAndAnInstalledFileOfAnotherLength)
{
    writeBytes(root / "Tavrel.paw",
               "\"A\",\"9F\",\"a\"\r\n\"B\",\"abc\",\"b\"\r\n\"C\",\"gx\",\"c\"\r\n\"D\",\"dd\",\"d\"\r\n");
    const LoadedRegister odd = load();
    ASSERT_EQ(odd.notices.size(), 3U);
    EXPECT_TRUE(odd.notices[2].text.english.ends_with(
        "\n[#gx]: A letter has 2 characters and does not start with g. Change it in Manage WAD/Letter "
        "References."))
        << odd.notices[2].text.english;
    for (const int rows : {40, 44}) {
        writeBytes(root / "TAVREL.TOW", builtIn(rows));
        LoadedRegister loaded = load();
        EXPECT_EQ(loaded.notices.size(), 4U);
        EXPECT_EQ(loaded.references.userBegin(), static_cast<std::size_t>(rows));
        ASSERT_FALSE(saveRegister(root.path(), loaded.references));
        EXPECT_TRUE(readBytes(root / "Tavrel.paw").starts_with("\"A\",\"9F\",\"a\"\r\n"))
            << "the user's rows are written by where they came from";
        ReferenceRegister shortened = loaded.references;
        shortened.remove(static_cast<std::size_t>(rows) - 1); // an installed one
        EXPECT_EQ(shortened.userFileText(), loaded.references.userFileText());
    }
}

TEST_F(ReferenceRegisterTest, TellsAUnicodeMark)
{
    writeBytes(root / "Tavrel.paw", "\xEF\xBB\xBF\"A\",\"aa\",\"a\"\r\n");
    const LoadedRegister loaded = load();
    EXPECT_EQ(loaded.references.at(42).title, "A");
    ASSERT_EQ(loaded.notices.size(), 1U);
    EXPECT_NE(loaded.notices[0].text.french.find("BOM UTF-8"), std::string::npos);
}

TEST_F(ReferenceRegisterTest, KeepsWhatAnotherWindowHasWritten)
{
    const std::string theirs = "\"B\",\"bb\",\"b\"\r\n";
    writeBytes(root / "Tavrel.paw", "\"A\",\"aa\",\"a\"\n");
    ReferenceRegister references = load().references;
    writeBytes(root / "Tavrel.paw", theirs);
    EXPECT_FALSE(saveRegister(root.path(), references));
    EXPECT_EQ(readBytes(root / "Tavrel.paw"), theirs) << "nothing has changed here";

    references.appendUser({"c", "cc", "C"});
    for (const char* const letter : {"cc", "dd"}) { // the second time the file is our own
        references.replaceLetter("cc", letter);
        EXPECT_FALSE(saveRegister(root.path(), references));
        EXPECT_EQ(readBytes(root / "Tavrel.paw"), references.userFileText());
        EXPECT_EQ(readBytes(root / "Tavrel_copy1.paw"), theirs);
        EXPECT_FALSE(fs::exists(root / "Tavrel_copy2.paw"));
    }
}

TEST_F(ReferenceRegisterTest, WritesTheUsersRowsAndWhatItCouldNotReadInPlace)
{
    writeBytes(root / "Tavrel.paw",
               "; mine\n\"A\",\"aa\",\"a\"\n\"broken\",\"x\nonly,two\n\"B \"x\"\",\"bb\",\"b\"\n; end\n");
    ReferenceRegister references = load().references;
    const auto saved = [&] {
        EXPECT_FALSE(saveRegister(root.path(), references));
        return readBytes(root / "Tavrel.paw");
    };
    EXPECT_EQ(saved(), textOf({"; mine", "\"A\",\"aa\",\"a\"", "\"broken\",\"x", "only,two",
                               "\"B \"x\"\",\"bb\",\"b\"", "; end"}));
    references.insertUser(0, {"n", "nn", "N"});
    EXPECT_EQ(saved(), textOf({"; mine", "\"N\",\"nn\",\"n\"", "\"A\",\"aa\",\"a\"", "\"broken\",\"x",
                               "only,two", "\"B \"x\"\",\"bb\",\"b\"", "; end"}));
    references.remove(42);
    references.appendUser({"c", "cc", "C"});
    references.remove(42);
    references.replaceLetter("bb", "zz");
    references.replaceLetter("9F", "qq"); // installed ones never change
    EXPECT_EQ(saved(), textOf({"; mine", "\"broken\",\"x", "only,two", "\"B \"x\"\",\"zz\",\"b\"", "; end",
                               "\"C\",\"cc\",\"c\""}));
    EXPECT_EQ(references.at(0).letter, "9F");
    references.remove(42);
    references.remove(42);
    EXPECT_EQ(saved(), textOf({"; mine", "\"broken\",\"x", "only,two", "; end"}));
    EXPECT_EQ(readBytes(root / "TAVREL.TOW"), builtIn(42));

    writeBytes(root / "Tavrel.paw", std::string_view("\0", 1));
    references.appendUser({"d", "dd", "D"});
    const Problem problem = saveRegister(root.path(), references);
    ASSERT_TRUE(problem) << "what cannot be read may be anything";
    EXPECT_NE(problem->text.english.find("[d] #dd D"), std::string::npos) << problem->text.english;
    EXPECT_EQ(readBytes(root / "Tavrel.paw"), std::string_view("\0", 1));
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
    EXPECT_EQ(references.userBegin(), 2U);
}

} // namespace
