// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Folder.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

TEST(Folder, FindsNamesWithoutRegardToCase)
{
    const TemporaryFolder root;
    writeBytes(root / "SoundS.Txt", "");
    writeBytes(root / u8"caf\u00E9.wav", "");
    fs::create_directory(root / "Folder");
    EXPECT_EQ(findEntry(root.path(), "sounds.txt"), root / "SoundS.Txt");
    EXPECT_EQ(findFile(root.path(), "CAF\xC9.WAV"), root / u8"caf\u00E9.wav");
    EXPECT_EQ(findEntry(root.path(), "FOLDER"), root / "Folder");
    EXPECT_FALSE(findFile(root.path(), "folder"));
    EXPECT_FALSE(findEntry(root.path(), "sounds.tx"));
    EXPECT_FALSE(findEntry(root.path(), ""));
    EXPECT_FALSE(findEntry(root / "missing", "a"));
    EXPECT_EQ(fileIn(root.path(), "SOUNDS.TXT"), root / "SoundS.Txt");
    EXPECT_EQ(fileIn(root.path(), "New\xE9.txt"), root / u8"New\u00E9.txt");
}

TEST(Folder, PrefersTheExactName)
{
    const TemporaryFolder root;
    for (const char* name : {"ab", "AB", "Ab"}) {
        writeBytes(root / name, "");
    }
    if (namesIn(root.path()).size() == 3) { // a disk that tells letter case apart
        EXPECT_EQ(findEntry(root.path(), "Ab"), root / "Ab");
        EXPECT_EQ(findEntry(root.path(), "ab"), root / "ab");
        EXPECT_EQ(findEntry(root.path(), "aB"), root / "AB");
    }
}

TEST(Folder, FollowsFoldersToTheFirstThatIsMissing)
{
    const TemporaryFolder root;
    fs::create_directories(root / "SOUND" / "levelsfx creator");
    EXPECT_EQ(folderIn(root.path(), {"sound", "LevelSFX Creator"}), root / "SOUND" / "levelsfx creator");
    EXPECT_EQ(folderIn(root.path(), {"Sound", "Samples"}), root / "SOUND" / "Samples");
    EXPECT_EQ(folderIn(root.path(), {"graphics", "wads"}), root / "graphics" / "wads");
}

TEST(Folder, ListsOrSaysWhyNot)
{
    const TemporaryFolder root;
    writeBytes(root / u8"a\u00E9", "");
    fs::create_directory(root / "b");
    const Result<std::vector<FolderEntry>> entries = listFolder(root.path());
    ASSERT_TRUE(entries);
    ASSERT_EQ(entries->size(), 2U);
    for (const FolderEntry& entry : *entries) {
        EXPECT_EQ(entry.name, entry.isFile ? "a\xE9" : "b");
        EXPECT_TRUE(fs::exists(entry.path));
    }
    const Result<std::vector<FolderEntry>> missing = listFolder(root / "missing");
    ASSERT_FALSE(missing);
    EXPECT_NE(missing.failure().text.english.find((root / "missing").string()), std::string::npos);
}

TEST(Folder, RemovesOtherSpellingsOfAFileThatIsThere)
{
    const TemporaryFolder root;
    writeBytes(root / "FOOT.wav", "old");
    writeBytes(root / "bell.wav", "another");
    const Result<FolderIndex> before = FolderIndex::of(root.path());
    removeOtherSpellings(*before, root / "foot.wav");
    EXPECT_EQ(namesIn(root.path()), (std::vector<std::string>{"FOOT.wav", "bell.wav"})) << "not written yet";
    writeBytes(root / "foot.wav", "new");
    removeOtherSpellings(*before, root / "foot.wav");
    EXPECT_EQ(namesIn(root.path()).size(), 2U);
    EXPECT_EQ(readBytes(root / "foot.wav"), "new");
}

#ifndef _WIN32 // where links take a right that users lack
TEST(Folder, KeepsWhatCannotBeToldFromTheFile)
{
    const TemporaryFolder root;
    fs::create_symlink("FOOT.wav", root / "FOOT.wav"); // a ring
    const Result<FolderIndex> before = FolderIndex::of(root.path());
    writeBytes(root / "foot.wav", "new");
    removeOtherSpellings(*before, root / "foot.wav");
    EXPECT_EQ(namesIn(root.path()), (std::vector<std::string>{"FOOT.wav", "foot.wav"}));
}
#endif

TEST(Folder, KnowsPlainFileNames)
{
    for (const char* name : {"a", "oasis", "tomb of wind", ".hidden", "a..b", "caf\xE9", "com", "com10",
                             "lpt0x", "console", "nul1", "a'b", "x.con", "con-1"}) {
        EXPECT_TRUE(isPlainFileName(name)) << name;
    }
    for (const char* name :
         {"",     ".",    "..",       "a.",     "a ",        "/",       "a/b",         "a\\b",   "..\\a",
          "C:",   "C:a",  "a*",       "a?",     "a\"",       "<a",      "a>",          "a|b",    "a\nb",
          "a\tb", "\x1F", "con",      "CON",    "Con.txt",   "prn",     "aux",         "nul",    "nul.tar.gz",
          "com1", "LPT9", "com1.wav", "ConIn$", "conout$.x", "com\xB9", "LPT\xB2.wav", "com\xB3"}) {
        EXPECT_FALSE(isPlainFileName(name)) << name;
    }
    EXPECT_FALSE(isPlainFileName(std::string_view("a\0b", 3)));
}

} // namespace
