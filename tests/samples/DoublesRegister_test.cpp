// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DoublesStatus.h"
#include "samples/DoublesRegister.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

TEST(DoublesRegister, ChangesTheMarksAndNothingElse)
{
    const DemoFolders folders;
    const std::filesystem::path file = folders.program / "Tavrel.tod";
    const std::string shipped = readBytes(file);
    Result<DoublesRegister> doubles = DoublesRegister::load(folders.program);
    ASSERT_TRUE(doubles);
    ASSERT_EQ(doubles->size(), 53U);
    ASSERT_FALSE(doubles->save());
    EXPECT_EQ(readBytes(file), shipped);

    doubles->tick(0, false);
    ASSERT_FALSE(doubles->save());
    std::string expected = shipped;
    expected.replace(expected.find("\"OK \""), 5, "\"   \"");
    EXPECT_EQ(readBytes(file), expected);
    const Result<DoublesRegister> again = DoublesRegister::load(folders.program);
    EXPECT_FALSE(again->isTicked(0));
    EXPECT_TRUE(again->isTicked(1));
}

TEST(DoublesRegister, AgreesWithTheImportOnWhatIsTicked)
{
    const TemporaryFolder folder;
    for (const char* mark : {"\"OK \"", "\"OK\"", "\"OK x\"", "\"ok \"", "\"   \"", "\"\"", "OK "}) {
        writeBytes(folder / "Tavrel.tod", "7," + std::string(mark) + ",\"\",\"N\",\"s\",\"\"\r\n");
        const auto takesPart = [&folder] {
            const Result<TextFile> file = readTextFile(folder / "Tavrel.tod");
            return parseDoubles(*file, {}).status.of(7) == DoublesStatus::takesPart;
        };
        const Result<DoublesRegister> doubles = DoublesRegister::load(folder.path());
        const bool before = takesPart();
        EXPECT_EQ(doubles->isTicked(0), before) << mark;
        ASSERT_FALSE(doubles->save());
        EXPECT_EQ(takesPart(), before) << mark;
    }
}

TEST(DoublesRegister, CarriesWhatItDoesNotKnow)
{
    const TemporaryFolder folder;
    writeBytes(
        folder / "TAVREL.TOD",
        "; remark\n8,\"OK \",a\"b,\"N\",\"s\",\"\"\n7, \"ok \",\"a,b\",\"NAME\",\"s1 s2\",\"z\"\n\nbroken,\"x\n");
    Result<DoublesRegister> doubles = DoublesRegister::load(folder.path());
    ASSERT_TRUE(doubles);
    ASSERT_EQ(doubles->size(), 1U);
    EXPECT_FALSE(doubles->isTicked(0)) << "only OK and a blank, in capitals, is a tick";
    EXPECT_EQ(doubles->row(0), "  7: NAME                     s1 s2                           ");
    doubles->tick(0, true);
    ASSERT_FALSE(doubles->save());
    EXPECT_EQ(
        readBytes(folder / "TAVREL.TOD"),
        textOf({"; remark", "8,\"OK \",a\"b,\"N\",\"s\",\"\"",
                "7,\"OK \",\"a,b\",\"NAME                    \",\"s1 s2                           \",\"z\"",
                "", "broken,\"x"}));
    std::filesystem::remove(folder / "TAVREL.TOD");
    EXPECT_FALSE(DoublesRegister::load(folder.path()));
}
