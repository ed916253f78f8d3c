// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/RecoveryLog.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ranges>

using namespace tavrel;

namespace {

HistoryStep step(std::uint64_t id)
{
    const std::string text = std::to_string(id);
    HistoryStep step{
        id, {"Step " + text, "Étape " + text}, std::chrono::sys_seconds(std::chrono::seconds(7)), {}, {}, {}};
    step.lines.push_back({LineDelta::Kind::Changed, id, "A:\n1 2\t#g", std::string("B:\0x", 4)});
    step.lines.push_back({LineDelta::Kind::PutIn, 0, "", "NEW:"});
    step.references.push_back({1, WadReference{"oasis", "oa", "T"}, std::nullopt});
    step.wad = {CurrentWad{"oasis", "oa", "T"}, CurrentWad{}};
    return step;
}

bool operator==(const HistoryTrack& one, const HistoryTrack& other)
{
    return one.steps == other.steps && one.position == other.position &&
           one.savedPosition == other.savedPosition && one.cutOff == other.cutOff;
}

class RecoveryLogTest : public testing::Test
{
protected:
    const RecoveryHeader header{u8"/level editor/é/Sounds.txt", 42, 0xFEDCBA9876543210U,
                                std::chrono::sys_seconds(std::chrono::seconds(1700000000))};
    TemporaryFolder root;
    HistoryTrack track;

    void done(RecoveryLog& log, std::uint64_t id)
    {
        track.append(step(id));
        EXPECT_FALSE(log.stepDone(track.steps.back(), track));
    }
    // A few steps, an apply, an undo behind it, and another step in the place of the undone one.
    void work(RecoveryLog& log)
    {
        EXPECT_FALSE(log.begin(header, track));
        done(log, 1);
        done(log, 2);
        track.markSaved();
        EXPECT_FALSE(log.begin(header, track));
        track.position = 1;
        EXPECT_FALSE(log.moved(track));
        done(log, 3);
    }
};

TEST_F(RecoveryLogTest, HoldsTheStepsAndThePlaceAmongThem)
{
    RecoveryLog log(root.path());
    work(log);
    const std::optional<RecoveryContent> read = parseRecovery(readBytes(log.file()));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->header, header);
    EXPECT_TRUE(read->track == track);
    EXPECT_EQ(track.cutOff.size(), 1U) << "the file still holds what was cut off";
    EXPECT_TRUE(read->pending());

    EXPECT_FALSE(log.begin(header, track)); // written anew from the track alone
    EXPECT_TRUE(parseRecovery(readBytes(log.file()))->track == track);
    EXPECT_FALSE(log.valuesLeft({3, "B:\tx \t"}));
    EXPECT_EQ(parseRecovery(readBytes(log.file()))->values, (UnacceptedValues{3, "B:\tx \t"}));
    done(log, 4);
    EXPECT_FALSE(parseRecovery(readBytes(log.file()))->values) << "the user went on";
}

TEST_F(RecoveryLogTest, CutAtEveryByteItLosesTheLastRecordAtTheMost)
{
    RecoveryLog log(root.path());
    EXPECT_FALSE(log.begin(header, track));
    std::vector<std::size_t> ends{readBytes(log.file()).size()};
    for (std::uint64_t id = 1; id <= 4; ++id) {
        done(log, id);
        ends.push_back(readBytes(log.file()).size());
    }
    const std::string whole = readBytes(log.file());
    const std::size_t headerEnd = whole.find("P 2 ");
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::optional<RecoveryContent> read = parseRecovery(whole.substr(0, length));
        ASSERT_TRUE(read || length < headerEnd) << length;
        if (read) {
            const auto complete = static_cast<std::size_t>(
                std::ranges::count_if(ends, [length](std::size_t end) { return end <= length; }));
            ASSERT_EQ(read->track.steps.size(), complete == 0 ? 0 : complete - 1) << length;
        }
    }
    for (std::size_t i = headerEnd; i < whole.size(); i += 3) { // a changed byte ends it as well
        std::string damaged = whole;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        const std::optional<RecoveryContent> read = parseRecovery(damaged);
        ASSERT_TRUE(read);
        ASSERT_LE(read->track.steps.size(), 4U);
        ASSERT_TRUE(
            std::ranges::equal(read->track.steps, track.steps | std::views::take(read->track.steps.size())));
    }
}

TEST_F(RecoveryLogTest, IsFoundOnceItsOwnerHasGone)
{
    std::filesystem::path file;
    {
        RecoveryLog log(root.path());
        work(log);
        file = log.file();
        EXPECT_TRUE(abandonedRecoveries(root.path()).empty()) << "its owner lives";
        EXPECT_TRUE(isOpenElsewhere(root.path(), header.sounds, {}));
        EXPECT_FALSE(isOpenElsewhere(root.path(), header.sounds, file));
        EXPECT_FALSE(isOpenElsewhere(root.path(), "/other", {}));
        RecoveryLog ended(root.path());
        work(ended);
        ended.end();
        RecoveryLog idle(root.path());
        EXPECT_FALSE(idle.begin(header, {}));
    }
    std::vector<FoundRecovery> found = abandonedRecoveries(root.path());
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].file, file);
    EXPECT_EQ(namesIn(root / "Recovery").size(), 1U) << "the one without a change has gone";
    EXPECT_FALSE(isOpenElsewhere(root.path(), header.sounds, {}));

    EXPECT_FALSE(discardRecovery(file));
    EXPECT_TRUE(abandonedRecoveries(root.path()).empty());
    for (int i = 0; i < 6; ++i) {
        RecoveryLog log(root.path());
        work(log);
        EXPECT_FALSE(log.keepAsDiscarded());
    }
    EXPECT_EQ(namesIn(root / "Recovery"),
              (std::vector<std::string>{"discarded-3.rec", "discarded-4.rec", "discarded-5.rec",
                                        "discarded-6.rec", "discarded-7.rec"}));
    EXPECT_EQ(discardedRecoveries(root.path()).front().file.filename(), "discarded-7.rec");
}

TEST_F(RecoveryLogTest, GoesOnWithoutAFolderAndBeginsAnewWhenItCan)
{
    writeBytes(root / "Recovery", "a file in its place");
    RecoveryLog log(root.path());
    EXPECT_TRUE(log.begin(header, track));
    track.append(step(1));
    EXPECT_TRUE(log.stepDone(track.steps.back(), track));
    std::filesystem::remove(root / "Recovery");
    track.append(step(2));
    EXPECT_FALSE(log.stepDone(track.steps.back(), track));
    EXPECT_TRUE(parseRecovery(readBytes(log.file()))->track == track);
}

} // namespace
