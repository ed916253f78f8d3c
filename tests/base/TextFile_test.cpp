// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TextFile.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

TEST(TextFile, ReadsEveryByte)
{
    const TemporaryFolder root;
    std::string bytes;
    for (int i = 0; i < 200'000; ++i) {
        bytes += static_cast<char>(i * 7 + i / 251);
    }
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{65'535}, std::size_t{65'536},
                                   std::size_t{65'537}, bytes.size()}) {
        writeBytes(root / "file", bytes.substr(0, size));
        const Result<FileContent> content = readFile(root / "file");
        ASSERT_TRUE(content);
        EXPECT_EQ(content->bytes, bytes.substr(0, size));
        EXPECT_EQ(content->stamp.size, size);
    }
}

// Before it is read: the file has no bytes on the disk.
TEST(TextFile, TooLargeAFileIsRefusedWithItsSize)
{
    const TemporaryFolder root;
    writeBytes(root / "file", "a");
    for (const std::uintmax_t largest : {largestOther, largestLines}) {
        fs::resize_file(root / "file", largest + (std::uintmax_t{3} << 20U));
        const Result<TextFile> file = readTextFile(root / "file", largest);
        ASSERT_FALSE(file);
        const std::string size = std::to_string((largest >> 20U) + 3) + " MB";
        EXPECT_NE(file.failure().text.english.find(size), std::string::npos) << file.failure().text.english;
    }
    fs::resize_file(root / "file", largestOther);
    EXPECT_TRUE(readFile(root / "file", largestOther));
}

TEST(TextFile, StampsTellVersionsApart)
{
    const TemporaryFolder root;
    writeBytes(root / "file", "one");
    const fs::file_time_type time = fs::last_write_time(root / "file");
    const FileStamp stamp = readFile(root / "file")->stamp;
    EXPECT_EQ(readFile(root / "file")->stamp, stamp);
    writeBytes(root / "file", "two");
    fs::last_write_time(root / "file", time);
    EXPECT_NE(readFile(root / "file")->stamp, stamp);
}

TEST(TextFile, GivesLinesWithoutTheirEnds)
{
    using Lines = std::vector<std::string_view>;
    const struct
    {
        const char* text;
        Lines lines;
    } cases[] = {{"", {}},
                 {"a", {"a"}},
                 {"a\r\n", {"a"}},
                 {"a\nb\r\nc", {"a", "b", "c"}},
                 {"\r\n\n", {"", ""}},
                 {"a\r\n\r\nb", {"a", "", "b"}},
                 {"a\x1A\x0B\x0C\x85 b\n", {"a\x1A\x0B\x0C\x85 b"}}};
    for (const auto& c : cases) {
        TextFile file;
        file.text = c.text;
        EXPECT_EQ(file.lines(), c.lines) << c.text;
    }
}

TEST(TextFile, SaysWhyItCannotBeRead)
{
    const TemporaryFolder root;
    fs::create_directory(root / "folder");
    for (const char* name : {"folder", "missing"}) {
        const Result<FileContent> content = readFile(root / name);
        ASSERT_FALSE(content);
        EXPECT_NE(content.failure().text.english.find((root / name).string()), std::string::npos);
        EXPECT_NE(content.failure().text.french.find((root / name).string()), std::string::npos);
    }
    const Result<TextFile> missing = readTextFile(root.path(), "caf\xE9.tod"); // a name of the code page
    ASSERT_FALSE(missing);
    EXPECT_TRUE(missing.failure().text.english.starts_with("No [caf\xC3\xA9.tod] file\nin "));
    writeBytes(root / "Name.TXT", "\xEF\xBB\xBFtext");
    const Result<TextFile> file = readTextFile(root.path(), "name.txt");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->path, root / "Name.TXT");
    EXPECT_EQ(file->text, "text");
    EXPECT_TRUE(file->hadByteOrderMark);
}

#ifndef _WIN32
TEST(TextFile, DoesNotWaitAtAPipe)
{
    const TemporaryFolder root;
    ASSERT_EQ(::mkfifo((root / "x.tox").c_str(), 0600), 0);
    const Result<FileContent> content = readFile(root / "x.tox");
    ASSERT_FALSE(content);
    EXPECT_NE(content.failure().text.english.find("Cannot read"), std::string::npos);
}
#endif

} // namespace
