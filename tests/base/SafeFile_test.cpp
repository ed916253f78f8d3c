// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <chrono>

#ifndef _WIN32
#include <sys/stat.h>
#endif

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

TEST(SafeFile, WritesAndReplacesWithoutATrace)
{
    const TemporaryFolder root;
    std::string all;
    for (int i = 0; i < 256; ++i) {
        all += static_cast<char>(i);
    }
    for (const std::string& bytes : {std::string("first"), std::string(), all, std::string(300'000, 'x')}) {
        EXPECT_FALSE(writeFileSafely(root / "file", bytes));
        EXPECT_EQ(readBytes(root / "file"), bytes);
    }
    EXPECT_EQ(namesIn(root.path()), Names{"file"});
}

// Two at once, and one who tidies up between them: each has a file of its own beside the target, and takes
// another when that has gone.
TEST(SafeFile, IsNotDisturbedByAnotherWriteNorByAnybodyWhoTidiesUp)
{
    const TemporaryFolder root;
    const std::string longName(200, 'n');
    for (const std::string& name : {std::string("file"), longName}) {
        int asked = 0;
        const Result<bool> written = writeFileIf(root / name, "first", [&] {
            if (++asked == 1) {
                EXPECT_FALSE(writeFileSafely(root / name, "second"));
                EXPECT_EQ(namesIn(root.path()).size(), 2U) << "the unfinished one is still there";
                removeUnfinishedWrites(root.path());
            }
            return true;
        });
        EXPECT_TRUE(written && *written);
        EXPECT_EQ(asked, 2);
        EXPECT_EQ(readBytes(root / name), "first");
        EXPECT_EQ(namesIn(root.path()), Names{name});
        fs::remove(root / name);
    }
}

TEST(SafeFile, LeavesTheTargetWhenTheAnswerIsNo)
{
    const TemporaryFolder root;
    writeBytes(root / "file", "old");
    const Result<bool> written = writeFileIf(root / "file", "new", [] { return false; });
    ASSERT_TRUE(written);
    EXPECT_FALSE(*written);
    EXPECT_EQ(readBytes(root / "file"), "old");
    EXPECT_EQ(namesIn(root.path()), Names{"file"});
}

TEST(SafeFile, ClearsUpWhatInterruptedWritesLeft)
{
    const TemporaryFolder root;
    for (const char* name : {"a.txt", "a.txt.tavrel-new", "b.tavrel-new", "c.tavrel-new.txt", "tavrel-new"}) {
        writeBytes(root / name, "");
    }
    fs::create_directory(root / "folder.tavrel-new");
    fs::last_write_time(root / "b.tavrel-new", fs::file_time_type::clock::now() - std::chrono::hours(25));
    removeUnfinishedWrites(root.path(), Unfinished::OlderThanADay);
    EXPECT_EQ(namesIn(root.path()),
              (Names{"a.txt", "a.txt.tavrel-new", "c.tavrel-new.txt", "folder.tavrel-new", "tavrel-new"}));
    removeUnfinishedWrites(root.path());
    EXPECT_EQ(namesIn(root.path()), (Names{"a.txt", "c.tavrel-new.txt", "folder.tavrel-new", "tavrel-new"}));
    removeUnfinishedWrites(root / "missing");
}

TEST(SafeFile, KeepsTheOldFileAndSaysSo)
{
    const TemporaryFolder root;
    writeBytes(root / "file", "old");
    fs::permissions(root / "file", fs::perms::owner_read);
    fs::create_directories(root / "folder" / "inside");
    for (const fs::path& target : {root / "file", root / "folder", root / "missing" / "file"}) {
        const Problem problem = writeFileSafely(target, "new");
        ASSERT_TRUE(problem) << target;
        EXPECT_NE(problem->text.english.find(target.string()), std::string::npos);
        EXPECT_NE(problem->text.french.find(target.string()), std::string::npos);
    }
    EXPECT_EQ(readBytes(root / "file"), "old");
    EXPECT_EQ(namesIn(root.path()), (Names{"file", "folder"}));
}

TEST(SafeFile, CopiesUnderTheFirstFreeName)
{
    const TemporaryFolder root;
    writeBytes(root / "Sounds_copy2.txt", "two");
    for (const char* expected : {"Sounds_copy1.txt", "Sounds_copy3.txt"}) {
        const Result<fs::path> copy = keepCopyBeside(root / "Sounds.txt", expected);
        ASSERT_TRUE(copy);
        EXPECT_EQ(*copy, root / expected);
        EXPECT_EQ(readBytes(*copy), expected);
    }
    EXPECT_EQ(readBytes(root / "Sounds_copy2.txt"), "two");
    EXPECT_FALSE(keepCopyBeside(root / "missing" / "Sounds.txt", ""));
}

#ifndef _WIN32
// From the first moment: what only the owner may read is read by nobody else while it is written.
TEST(SafeFile, KeepsThePermissions)
{
    const TemporaryFolder root;
    writeBytes(root / "file.txt", "old");
    for (const auto mode : {fs::perms(0600), fs::perms(0664), fs::perms(0755)}) {
        fs::permissions(root / "file.txt", mode);
        EXPECT_TRUE(writeFileIf(root / "file.txt", "new", [&] {
            for (const fs::directory_entry& entry : fs::directory_iterator(root.path())) {
                EXPECT_EQ(entry.status().permissions(), mode) << entry;
            }
            return true;
        }));
        EXPECT_EQ(fs::status(root / "file.txt").permissions(), mode);
        const Result<fs::path> copy = keepCopyBeside(root / "file.txt", "new");
        ASSERT_TRUE(copy);
        EXPECT_EQ(fs::status(*copy).permissions(), mode);
        fs::remove(*copy);
    }
}

TEST(SafeFile, NeverTakesThePlaceOfADevice)
{
    const TemporaryFolder root;
    ASSERT_EQ(::mkfifo((root / "pipe").c_str(), 0600), 0);
    fs::create_symlink("pipe", root / "link");
    for (const char* name : {"pipe", "link"}) {
        const Problem problem = writeFileSafely(root / name, "new");
        ASSERT_TRUE(problem) << name;
        EXPECT_NE(problem->text.english.find("Cannot write"), std::string::npos);
    }
    EXPECT_TRUE(fs::is_fifo(root / "pipe"));
    EXPECT_EQ(namesIn(root.path()), (Names{"link", "pipe"}));
}

TEST(SafeFile, FollowsLinks)
{
    const TemporaryFolder root;
    writeBytes(root / "real" / "file", "old");
    fs::create_directory(root / "links");
    fs::create_symlink("../real/file", root / "links" / "relative");
    fs::create_symlink(root / "links" / "relative", root / "links" / "chained");
    fs::create_symlink("../real/new", root / "links" / "dangling");
    for (const char* link : {"relative", "chained", "dangling"}) {
        EXPECT_FALSE(writeFileSafely(root / "links" / link, link));
        EXPECT_TRUE(fs::is_symlink(root / "links" / link));
        EXPECT_EQ(readBytes(root / "links" / link), link);
    }
    EXPECT_EQ(readBytes(root / "real" / "file"), "chained");
    EXPECT_EQ(namesIn(root / "real"), (Names{"file", "new"}));
}
#endif

} // namespace
