// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueLoading.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

std::string textsOf(const std::vector<Failure>& notices)
{
    std::string texts;
    for (const Failure& notice : notices) {
        texts += notice.text.english + "\n--\n";
    }
    return texts;
}

bool names(const Failure& failure, const std::string& what)
{
    return failure.text.english.find(what) != std::string::npos &&
           failure.text.french.find(what) != std::string::npos;
}

class CatalogueLoading : public testing::Test
{
protected:
    CatalogueLoading()
    {
        writeBytes(program / "Tavrel.tos", "A:\ta\t\r\nB:\tb\t\r\nC:\tc\t\r\n");
        writeBytes(program / "Tavrel.tod", "");
        writeBytes(program / "Tavrel.too", "");
        writeSounds("A:\ta\t\r\nB:\tb\t\r\nC:\tc\t\r\n");
    }

    void writeSounds(std::string_view bytes) const { writeBytes(sounds, bytes); }
    Result<LoadedCatalogue> load(bool protectedLinesEditable = false) const
    {
        return loadCatalogue({program, creator, protectedLinesEditable});
    }
    // The load must go well; anything said about it must be expected.
    SoundCatalogue loaded(std::size_t notices = 0) const
    {
        Result<LoadedCatalogue> result = load();
        if (!result) {
            ADD_FAILURE() << result.failure().text.english;
            return {};
        }
        EXPECT_EQ(result->notices.size(), notices) << textsOf(result->notices);
        return std::move(result->catalogue);
    }
    std::vector<std::string> loadedLines(std::size_t notices = 0) const
    {
        const SoundCatalogue catalogue = loaded(notices);
        std::vector<std::string> lines;
        for (std::size_t k = 0; k < catalogue.size(); ++k) {
            lines.push_back(catalogue.currentLine(k));
        }
        return lines;
    }

    TemporaryFolder root;
    fs::path program = root / "program";
    fs::path creator = root / "creator";
    fs::path sounds = creator / "sounds.TXT";
};

using Lines = std::vector<std::string>;

TEST_F(CatalogueLoading, ReadsAnyLineEnd)
{
    const struct
    {
        std::string bytes;
        Lines lines;
    } cases[] = {
        {"A:\ta\t\r\nB:\r\n", {"A:\ta\t", "B:"}},
        {"A:\ta\t\nB:\n", {"A:\ta\t", "B:"}},
        {"A:\r\nB:\nC:", {"A:", "B:", "C:"}},
        {"A:\r\n\r\n\nB:", {"A:", "B:"}},
        {"", {}},
        {"\r\n", {}},
        // Blanks behind a line with "#" go; a line without keeps them; TABs stay.
        {"A:\ta\t#g  \r\nB:\tb  \r\nC:\t#g \t\r\nD:\t#g\t \r\n",
         {"A:\ta\t#g", "B:\tb  ", "C:\t#g \t", "D:\t#g\t"}},
        {"A:\t\xE9\xFF\x80\t\r\n", {"A:\t\xE9\xFF\x80\t"}},
        {"A:" + std::string(10'000, 'x') + "\r\n", {"A:" + std::string(10'000, 'x')}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        writeSounds(c.bytes);
        EXPECT_EQ(loadedLines(), c.lines);
    }
}

TEST_F(CatalogueLoading, CountsLinesWithoutAColonInTheFileOnly)
{
    writeSounds("; remark\r\n\r\nA:\ta\t\r\nno sound # \r\n \r\nB:\tx\t\r\n");
    const SoundCatalogue catalogue = loaded();
    ASSERT_EQ(catalogue.size(), 2U);
    EXPECT_EQ(catalogue.lineInFile(0), 3U);
    EXPECT_EQ(catalogue.lineInFile(1), 6U);
    EXPECT_EQ(catalogue.originalLine(1), "B:\tb\t");
    EXPECT_TRUE(catalogue.isModified(1));
    EXPECT_FALSE(catalogue.isModified(0));
    EXPECT_FALSE(catalogue.differsFromFile());
    EXPECT_EQ(catalogue.file().path, sounds);
}

TEST_F(CatalogueLoading, ReadsTheOriginalLinesByTheSameRules)
{
    writeBytes(program / "Tavrel.tos", "; remark\nA:\told\t#g  \n\nB:\tb\t");
    const SoundCatalogue catalogue = loaded();
    EXPECT_EQ(catalogue.originalLine(0), "A:\told\t#g");
    EXPECT_EQ(catalogue.originalLine(1), "B:\tb\t");
    EXPECT_EQ(catalogue.originalLine(2), "C:\tc\t"); // none there: its own
    EXPECT_FALSE(catalogue.isModified(2));
    writeSounds("A:\ta\t\r\n");
    EXPECT_EQ(loaded().size(), 1U);
}

TEST_F(CatalogueLoading, StripsAByteOrderMarkAndSaysSo)
{
    writeSounds("\xEF\xBB\xBF"
                "A:\ta\t\r\n");
    EXPECT_EQ(loadedLines(1), Lines{"A:\ta\t"});
    EXPECT_TRUE(names(load()->notices[0], sounds.string()));
}

TEST_F(CatalogueLoading, RefusesWhatIsNo8BitText)
{
    using namespace std::string_literals;
    for (const std::string& bytes : {"\xFF\xFE"
                                     "A\0:\0"s,
                                     "\xFE\xFF\0A\0:"s, "A\0:\0\r\0\n\0"s, "A:\ta\t\r\nB:\t\0\t\r\n"s}) {
        for (const fs::path& file : {sounds, program / "Tavrel.tos", program / "Tavrel.tod"}) {
            const std::string before = readBytes(file);
            writeBytes(file, bytes);
            const Result<LoadedCatalogue> result = load();
            ASSERT_FALSE(result) << file;
            EXPECT_TRUE(names(result.failure(), file.string())) << result.failure().text.english;
            writeBytes(file, before);
        }
    }
    EXPECT_EQ(loaded().size(), 3U);
}

TEST_F(CatalogueLoading, NamesFileAndLineOfTooManySamples)
{
    const std::string line = withSamples("B:", 51);
    for (const fs::path& file : {sounds, program / "Tavrel.tos"}) {
        const std::string before = readBytes(file);
        writeBytes(file, "; remark\r\nA:\ta\t\r\n\r\n" + line + "\r\n");
        const Result<LoadedCatalogue> result = load();
        ASSERT_FALSE(result);
        EXPECT_EQ(result.failure().text.english.find("[" + file.string() + "], line 4\n"), 0U)
            << result.failure().text.english;
        EXPECT_EQ(result.failure().text.french.find("[" + file.string() + "], ligne 4\n"), 0U);
        writeBytes(file, before);
    }
}

TEST_F(CatalogueLoading, NamesTheFileThatIsMissing)
{
    for (const fs::path& file : {sounds, program / "Tavrel.tos", program / "Tavrel.tod"}) {
        for (const bool folderInTheWay : {false, true}) {
            const std::string before = readBytes(file);
            fs::remove(file);
            if (folderInTheWay) {
                fs::create_directory(file);
            }
            const Result<LoadedCatalogue> result = load();
            ASSERT_FALSE(result) << file;
            const std::string name =
                file == sounds && !folderInTheWay ? "Sounds.txt" : file.filename().string();
            EXPECT_TRUE(names(result.failure(), name)) << result.failure().text.english;
            EXPECT_TRUE(names(result.failure(), file.parent_path().string()));
            fs::remove(file);
            writeBytes(file, before);
        }
    }
    fs::remove(program / "Tavrel.too");
    EXPECT_EQ(loaded(1).size(), 3U);
    EXPECT_TRUE(names(load()->notices[0], "Tavrel.too"));
}

TEST_F(CatalogueLoading, ReadsTheMarksOfTheDoubles)
{
    writeBytes(program / "Tavrel.tod", "7,\"   \",\"a, b\",\"N\",\"s\",\"\"\r\n"
                                       "27,\"OK \",\"\",\"\",\"\",\"\"\r\n"
                                       "369,\"   \",\"\",\"\",\"\",\"\"\r\n"
                                       "370,\"   \",\"\",\"\",\"\",\"\"\r\n"
                                       "-1,\"   \",\"\",\"\",\"\",\"\"\r\n"
                                       "x,\"   \",\"\",\"\",\"\",\"\"\r\n"
                                       "5,\"   \"\r\n"
                                       "6,\"   \",\"never closed,\"\",\"\",\"\"\r\n"
                                       "8,\"   \",\"\",\"\",\"\",\"\"\r\n");
    const Result<LoadedCatalogue> result = load();
    ASSERT_TRUE(result);
    const DoublesStatus& status = result->catalogue.doubles();
    for (const std::size_t leftOut : {7U, 8U, 27U, 62U, 369U}) {
        EXPECT_EQ(status.of(leftOut), "   ") << leftOut;
    }
    for (const std::size_t takesPart : {0U, 5U, 6U, 368U, 370U, 5'000U}) {
        EXPECT_EQ(status.of(takesPart), "OK ") << takesPart;
    }
    ASSERT_EQ(result->notices.size(), 5U) << textsOf(result->notices);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_TRUE(names(result->notices[i], (program / "Tavrel.tod").string()));
        EXPECT_NE(result->notices[i].text.english.find("line " + std::to_string(i + 4)), std::string::npos);
    }
    const Result<LoadedCatalogue> open = load(true);
    ASSERT_TRUE(open);
    EXPECT_EQ(open->catalogue.doubles().of(27), "OK ");
    EXPECT_EQ(open->catalogue.doubles().of(62), "OK ");
}

std::string objectLine(std::string name, const std::string& rest)
{
    name.resize(25, ' ');
    return name + rest + "\r\n";
}

TEST_F(CatalogueLoading, ReadsTheObjectTableByItsColumns)
{
    writeBytes(program / "Tavrel.too",
               objectLine("EARLY", " 1    1") + "*  Animals  \r\n" + objectLine("BAT", " 2  12  345") +
                   objectLine("TWENTY_FIVE_CHARACTERS_25", "02  012 345 999") +
                   objectLine("NO (TWO)", " 1    1") + objectLine("LOOPING", " 1    1") + "*\r\n" +
                   objectLine("ZERO", " 3    1   0   2") + objectLine("SHORT", " 9    4   5") +
                   objectLine("BAD", "xx    1") + "LONE\r\n" +
                   objectLine(
                       "MANY", "21    1" + [] {
                           std::string more;
                           for (int i = 2; i <= 21; ++i) {
                               more += (i < 10 ? "   " : "  ") + std::to_string(i);
                           }
                           return more;
                       }()));
    const SoundCatalogue catalogue = loaded();
    const struct
    {
        const char* type;
        const char* name;
        std::vector<std::size_t> sounds;
    } expected[] = {
        {"", "EARLY", {1}},
        {"Animals", "BAT", {12, 345}},
        {"Animals", "TWENTY_FIVE_CHARACTERS_25", {12, 345}},
        {"", "ZERO", {1}},
        {"", "SHORT", {4, 5}},
        {"", "BAD", {}},
        {"", "LONE", {}},
        {"", "MANY", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20}},
    };
    ASSERT_EQ(catalogue.objects().size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(catalogue.objects()[i].type, expected[i].type);
        EXPECT_EQ(catalogue.objects()[i].name, expected[i].name);
        EXPECT_EQ(catalogue.objects()[i].sounds, expected[i].sounds) << expected[i].name;
    }
}

TEST_F(CatalogueLoading, LeavesTheTableEmptyAtThe101stObject)
{
    std::string table = "*Many\r\n";
    for (int i = 0; i < 100; ++i) {
        table += objectLine("OBJECT_" + std::to_string(i), " 1    1");
    }
    writeBytes(program / "Tavrel.too", table + objectLine("SKIPPED(", " 1    1") + "*End\r\n");
    EXPECT_EQ(loaded().objects().size(), 100U);
    writeBytes(program / "Tavrel.too", table + objectLine("OBJECT_101", " 1    1"));
    const SoundCatalogue catalogue = loaded(1);
    EXPECT_TRUE(catalogue.objects().empty());
    EXPECT_EQ(catalogue.size(), 3U);
    const Result<LoadedCatalogue> result = load();
    EXPECT_TRUE(names(result->notices[0], (program / "Tavrel.too").string()));
    EXPECT_NE(result->notices[0].text.english.find("line 102"), std::string::npos);
}

TEST_F(CatalogueLoading, LoadsTheDemoFolderWithoutANotice)
{
    const DemoFolders demo;
    const Result<LoadedCatalogue> result = loadCatalogue({demo.program, demo.creator, false});
    ASSERT_TRUE(result);
    EXPECT_TRUE(result->notices.empty()) << textsOf(result->notices);
    const SoundCatalogue& catalogue = result->catalogue;
    ASSERT_EQ(catalogue.size(), 370U);
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        EXPECT_EQ(catalogue.currentLine(k), stockLines()[k]);
        EXPECT_FALSE(catalogue.isModified(k));
    }
    EXPECT_GT(catalogue.lineInFile(369), 370U);
}

} // namespace
