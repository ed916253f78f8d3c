// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeFile.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <limits>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

using Records = std::vector<std::pair<std::int64_t, std::string>>;

TEST(ExchangeFile, IsWrittenToTheByte)
{
    const TemporaryFolder root;
    const std::vector<ExchangeRecord> records = {{0, withTabs("LARA_FEET:>>foot01 \"x\",y>#g")},
                                                 {117, "caf\xE9: b"}};
    EXPECT_FALSE(writeExchangeFile(root / "a.tox", records));
    EXPECT_EQ(readBytes(root / "a.tox"),
              "\"0\",\"LARA_FEET:\t\tfoot01 \"x\",y\t#g\"\r\n\"117\",\"caf\xE9: b\"\r\n");
    EXPECT_FALSE(writeExchangeFile(root / "a.tox", {}));
    EXPECT_EQ(readBytes(root / "a.tox"), "");
    EXPECT_EQ(namesIn(root.path()), std::vector<std::string>{"a.tox"});
}

#ifndef _WIN32 // whose disks do not tell letter case apart
TEST(ExchangeFile, ReplacesAnotherSpellingOfItsName)
{
    const TemporaryFolder root;
    writeBytes(root / "City.TOX", "old");
    fs::create_directory(root / "CITY.tox"); // never what a folder holds
    fs::permissions(root / "City.TOX", fs::perms::owner_read);
    EXPECT_TRUE(writeExchangeFile(root / "city.tox", {})) << "read-only, whatever its spelling";
    EXPECT_EQ(namesIn(root.path()), (std::vector<std::string>{"CITY.tox", "City.TOX"}));
    fs::permissions(root / "City.TOX", fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_FALSE(writeExchangeFile(root / "city.tox", {}));
    EXPECT_EQ(namesIn(root.path()), (std::vector<std::string>{"CITY.tox", "city.tox"}));
}
#endif

TEST(ExchangeFile, ReadsEachLineAsARecord)
{
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    const struct
    {
        std::string bytes;
        Records expected;
    } cases[] = {
        {"", {}},
        {"\"3\",\"A:\tb\"\r\n\"4\",\"C:\"", {{3, "A:\tb"}, {4, "C:"}}},
        {"3,A:\tb #g\n\" 4\",\"C:\"\n", {{3, "A:\tb #g"}, {4, "C:"}}},
        {"\"5\",\"say \"hi\", then\",\"\"\r\n", {{5, "say \"hi\", then\",\""}}},
        {"\"-1\",\"A:\"\r\n\"007\",\"A:\"\r\n\"99999999999999999999\",\"A:\"",
         {{-1, "A:"}, {7, "A:"}, {most, "A:"}}},
        {"  12 ,  \"\"", {{12, ""}}},
        {"\"3\",\"A:\"\r\n\r\n\n", {{3, "A:"}}},
    };
    const TemporaryFolder root;
    for (const auto& [bytes, expected] : cases) {
        writeBytes(root / "a.tox", bytes);
        const Result<std::vector<ExchangeRecord>> records = readExchangeFile(root / "a.tox");
        ASSERT_TRUE(records) << bytes << records.failure().text.english;
        Records read;
        for (const ExchangeRecord& record : *records) {
            read.emplace_back(record.id, record.line);
        }
        EXPECT_EQ(read, expected) << bytes;
    }
}

TEST(ExchangeFile, NamesTheLineThatIsNoRecord)
{
    const TemporaryFolder root;
    for (const char* line : {"5", "\"5\"", "5,A:,B", "\"5\",\"A:", "\"5\",\"A:\" ", "\"5,A:\"",
                             "\"5\" x,\"A:\"", "five,\"A:\"", "\"5x\",\"A:\"", "\"\",\"A:\"", "\"-\",\"A:\"",
                             "\"5 \",\"A:\"", "\"0x5\",\"A:\"", "\"5\",\"A:\rB\"", ""}) {
        writeBytes(root / "a.tox", std::string("\"1\",\"A:\"\r\n") + line + "\r\n\"2\",\"B:\"\r\n");
        const Result<std::vector<ExchangeRecord>> records = readExchangeFile(root / "a.tox");
        ASSERT_FALSE(records) << line;
        EXPECT_TRUE(records.failure().text.english.find("a.tox], line 2\n") != std::string::npos)
            << records.failure().text.english;
    }
    writeBytes(root / "nul.tox", std::string("\"1\",\"A:\0\"\r\n", 11));
    EXPECT_FALSE(readExchangeFile(root / "nul.tox"));
    EXPECT_FALSE(readExchangeFile(root / "missing.tox"));
}

TEST(ExchangeFile, RefusesWhatWouldBeReadAsSomethingElse)
{
    const TemporaryFolder root;
    const struct
    {
        const char* bytes;
        const char* reason; // none: it is read
    } cases[] = {{"\"0\",\"A:\ta\"\n\"1\",\"B:\rb\"\r\n", "line 2\nA carriage return"},
                 {"\"0\",\"A:\ta\"\r\"1\",\"B:\tb\"\r", ""},
                 {"\xEF\xBB\xBF\"0\",\"A:\tcaf\xC3\xA9\"\r\n", "Unicode (UTF-8)"},
                 {"\xEF\xBB\xBF\"0\",\"A:\ta\"\r\n", ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        writeBytes(root / "a.tox", c.bytes);
        const Result<std::vector<ExchangeRecord>> records = readExchangeFile(root / "a.tox");
        ASSERT_EQ(!records, *c.reason != '\0');
        if (!records) {
            EXPECT_NE(records.failure().text.english.find(c.reason), std::string::npos)
                << records.failure().text.english;
        }
    }
}

TEST(ExchangeFile, KindComesFromTheName)
{
    for (const auto& [name, kind] : {std::pair{"x.TOB", ExchangeKind::Backup},
                                     {"x.tob", ExchangeKind::Backup},
                                     {"tob", ExchangeKind::Backup},
                                     {"x.tob.txt", ExchangeKind::Exchange},
                                     {"x.tox", ExchangeKind::Exchange},
                                     {"ob", ExchangeKind::Exchange}}) {
        EXPECT_EQ(kindOfFile(fs::path("tob") / name), kind) << name;
    }
}

TEST(ExchangeFile, SamplesTravelInAFolderBesideIt)
{
    const TemporaryFolder root;
    for (const auto& [name, folder] : {std::pair{u8"city.tox", u8"city_Samples"},
                                       {u8"abcdefgh", u8"abcd_Samples"},
                                       {u8"a.b.tox", u8"a.b_Samples"},
                                       {u8"tox", u8"_Samples"},
                                       {u8"\u00E9t\u00E9\u0416.tox", u8"\u00E9t\u00E9\u0416_Samples"},
                                       {u8"a\u0416\u0416\u0416\u0416", u8"a_Samples"}}) {
        EXPECT_EQ(samplesFolderOf(root / name), root / folder);
    }
    fs::create_directory(root / "CITY_sampleS");
    EXPECT_TRUE(fs::equivalent(samplesFolderOf(root / "city.tox"), root / "CITY_sampleS"));
}

TEST(ExchangeFile, RowsHaveFixedColumns)
{
    const SoundLine record = ParseSoundLine(
        withTabs("A_NAME_OF_MORE_THAN_24_CHARACTERS:>>foot01 foot02>VOL44>P VNL>CH50>PIT-05>RAD10>#g #ab"));
    EXPECT_EQ(exchangeRow("7", record, record.Letters),
              "7    A_NAME_OF_MORE_THAN_24_Cfoot01 foot02                   VOL44   P     L CH50    PIT-05  "
              "RAD10   #g #ab");
    EXPECT_EQ(exchangeRow("12345", SoundLine(), "").substr(0, 6), "12345 ");
    EXPECT_EQ(exchangeRow("-1", SoundLine(), "").size(), 101U);
}

} // namespace
