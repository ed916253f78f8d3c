// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Files.h"
#include "versions/KeptVersions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

// Of the machine's own time zone.
std::chrono::system_clock::time_point localTime(int day, int second)
{
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = 10;
    time.tm_mday = day;
    time.tm_hour = 15;
    time.tm_min = 30;
    time.tm_sec = second;
    time.tm_isdst = -1;
    return std::chrono::system_clock::from_time_t(std::mktime(&time));
}

struct KeptVersionsTest : testing::Test
{
    std::string keep(const std::string& bytes, const std::string& wad, int day, int second = 0) const
    {
        const Result<fs::path> kept = keepVersion(folders.sounds, bytes, wad, localTime(day, second));
        EXPECT_TRUE(kept);
        EXPECT_EQ(readBytes(*kept), bytes);
        return kept->filename().string();
    }
    std::vector<KeptVersion> list() const
    {
        const Result<std::vector<KeptVersion>> kept = listKeptVersions(places);
        EXPECT_TRUE(kept);
        return *kept;
    }
    std::vector<std::string> listedNames() const
    {
        std::vector<std::string> names;
        for (const KeptVersion& version : list()) {
            names.push_back(version.name);
        }
        return names;
    }

    DemoFolders folders;
    fs::path sound = folders.levelEditor / "sound";
    fs::path versions = folders.creator / "Sounds_versions";
    KeptPlaces places{folders.sounds, sound / "Samples" / "", folders.levelEditor / "graphics" / "wads" / ""};
};

using Names = std::vector<std::string>;

TEST_F(KeptVersionsTest, AreNamedByTimeAndWadAndListedNewestFirst)
{
    EXPECT_EQ(keep("1", "oasis", 20), "2026-11-20_15-30-00_oasis.txt");
    EXPECT_EQ(keep("2", "my_wad 2", 21, 5), "2026-11-21_15-30-05_my_wad 2.txt");
    EXPECT_EQ(keep("3", "", 21, 5), "2026-11-21_15-30-05.2.txt");
    EXPECT_EQ(keep("4", "../x", 21, 5), "2026-11-21_15-30-05.3.txt") << "a name that leaves the folder";
    writeBytes(versions / "2026-11-21_15-30-05x.txt", "not ours");
    EXPECT_EQ(listedNames(), Names({"2026-11-21_15-30-05.3.txt", "2026-11-21_15-30-05.2.txt",
                                    "2026-11-21_15-30-05_my_wad 2.txt", "2026-11-20_15-30-00_oasis.txt"}));
    EXPECT_EQ(list().front().time, "2026-11-21 15:30:05");
    EXPECT_EQ(list()[2].wad, "my_wad 2");
    EXPECT_EQ(describe(list()[3]).french, "Remplacée par une application pour oasis");
}

TEST_F(KeptVersionsTest, TheLastHundredStay)
{
    writeBytes(versions / "0000-notes.txt", "the user's");
    for (int i = 0; i < 103; ++i) {
        keep("x", "", 1 + i / 60, i % 60);
    }
    EXPECT_EQ(list().size(), 100U);
    EXPECT_EQ(list().back().time, "2026-11-01 15:30:03");
    EXPECT_TRUE(fs::exists(versions / "0000-notes.txt"));
    keep("new", "", 1, 0); // by a clock that was set back
    EXPECT_EQ(list().size(), 100U);
    EXPECT_EQ(list().back().time, "2026-11-01 15:30:00");
    fs::remove_all(versions);
    writeBytes(versions, "in the way");
    EXPECT_FALSE(keepVersion(folders.sounds, "x", ""));
}

TEST_F(KeptVersionsTest, ListWhatElseIsKept)
{
    const std::string now = readBytes(folders.sounds);
    writeBytes(folders.creator / "orig_sounds.TXT", now + "NEW:\ta\t\r\n");
    writeBytes(folders.creator / "Sounds_copy12.txt", "nothing");
    writeBytes(folders.creator / "Sounds_replaced_2.txt", now);
    writeBytes(folders.creator / "Sounds_copy.bak", now);
    writeBytes(folders.creator / "Sounds_replaced_old.txt", now);
    writeBytes(sound / "Samples_replaced" / "a.wav", "");
    writeBytes(sound / "Samples_replaced" / "b.wav", "");
    fs::create_directory(sound / "Samples_replaced_1"); // empty
    writeBytes(folders.levelEditor / "graphics" / "wads_replaced_3" / "x.sam", "");
    std::vector<std::string_view> lines(stockLines().begin(), stockLines().end());
    const struct
    {
        const char* name;
        KeptKind kind;
        std::optional<std::size_t> differences;
    } expected[] = {{"orig_sounds.TXT", KeptKind::First, 1},
                    {"Sounds_copy12.txt", KeptKind::Copy, std::nullopt},
                    {"Sounds_replaced_2.txt", KeptKind::Replaced, 0},
                    {"Samples_replaced", KeptKind::SamplesSet, std::nullopt},
                    {"wads_replaced_3", KeptKind::WadFilesSet, std::nullopt}};
    const std::vector<KeptVersion> kept = list();
    EXPECT_EQ(kept.size(), std::size(expected));
    for (const auto& wanted : expected) {
        SCOPED_TRACE(wanted.name);
        const auto found = std::ranges::find(kept, wanted.name, &KeptVersion::name);
        ASSERT_NE(found, kept.end());
        EXPECT_EQ(found->kind, wanted.kind);
        EXPECT_EQ(found->files, found->kind == KeptKind::SamplesSet ? 2U : 1U);
        EXPECT_EQ(differencesFromNow(*found, lines), wanted.differences);
        EXPECT_EQ(found->time.size(), std::string_view("2026-11-21 15:30:05").size());
    }
}

} // namespace
