// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Files.h"
#include "versions/CatalogueComparison.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

const std::vector<std::string_view> mine = {"A:\ta\t", "B:\tb\t", "C:\tc\t", "D:\td\t"};

// "1/0 -/2": my number and the place in the file.
std::string differencesOf(const OtherCatalogue& other)
{
    std::string text;
    for (const SoundDifference& difference : compareCatalogues(mine, other).differences) {
        const auto shown = [](const std::optional<std::size_t>& number) {
            return number ? std::to_string(*number) : "-";
        };
        text +=
            (text.empty() ? "" : " ") + shown(difference.sound.mine) + "/" + shown(difference.sound.theirs);
    }
    return text;
}

TEST(OtherCatalogue, ReadsEveryKindOfFile)
{
    const TemporaryFolder folder;
    const struct
    {
        const char* name;
        const char* content;
        const char* differences;
        bool byName;
    } cases[] = {
        {"other.txt", "; mine\r\nA:\ta\t\r\n\r\nB:\tx\t\r\nC:\tc\t\r\nD:\td\t\r\n", "1/1", false},
        {"shifted.txt", "A:\ta\t\r\nNEW:\tn\t\r\nB:\tb\t\r\nC:\tc\t\r\nD:\tx\t\r\n", "-/1 3/4", true},
        {"part.TOX", "\"1\",\"B:\tx\t\"\r\n\"3\",\"D:\td\t\"\r\n", "1/0", false},
        {"shifted.tox", "\"2\",\"B:\tx\t\"\r\n\"3\",\"C:\tc\t\"\r\n", "1/0", true},
        {"beyond.tox", "\"3\",\"D:\td\t\"\r\n\"9\",\"N:\tn\t\"\r\n", "-/1", false},
        {"all.tob", "\"0\",\"A:\ta\t\"\r\n\"1\",\"B:\tb\t\"\r\n", "2/- 3/-",
         false}, // the first two of a backup
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        writeBytes(folder / c.name, c.content);
        const Result<OtherCatalogue> other = readOtherCatalogue(folder / c.name);
        ASSERT_TRUE(other);
        EXPECT_EQ(differencesOf(*other), c.differences);
        EXPECT_EQ(pairSounds(mine, *other).byName, c.byName);
    }
    for (const char* content : {"", "no sound\r\n"}) {
        writeBytes(folder / "empty.txt", content);
        EXPECT_FALSE(readOtherCatalogue(folder / "empty.txt")) << content;
    }
    writeBytes(folder / "wrong.tox", "\"-1\",\"A:\ta\t\"\r\n");
    EXPECT_FALSE(readOtherCatalogue(folder / "wrong.tox"));
    EXPECT_FALSE(readOtherCatalogue(folder / "missing.txt"));
}

TEST(OtherCatalogue, KnowsWhereTheSamplesAreAndWhatIsNoSound)
{
    const DemoFolders folders;
    writeBytes(folders.sounds, "; first\r\nA:\ta\tVOL08\t#ab  \r\n\r\nB:\tb  \r\n; last\r\n");
    const Result<OtherCatalogue> other = readOtherCatalogue(folders.sounds);
    ASSERT_TRUE(other);
    EXPECT_EQ(other->lines, std::vector<std::string>({"A:\ta\tVOL08\t#ab", "B:\tb  "}));
    EXPECT_EQ(other->samplesFolder, folders.levelEditor / "sound" / "Samples");
    ASSERT_EQ(other->plainLines.size(), 3U);
    EXPECT_EQ(other->plainLines[1].beforeSound, 1U);
    EXPECT_EQ(other->plainLines[2].text, "; last");
    writeBytes(folders.root / "x.tox", "\"1\",\"B:\tx\t\"\r\n");
    EXPECT_FALSE(readOtherCatalogue(folders.root / "x.tox")->samplesFolder);
    std::filesystem::create_directory(folders.root / "x_Samples");
    EXPECT_EQ(readOtherCatalogue(folders.root / "x.tox")->samplesFolder, folders.root / "x_Samples");
}

} // namespace
