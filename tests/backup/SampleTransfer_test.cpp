// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/SampleTransfer.h"
#include "backup/SamplesFolderSwap.h"
#include "base/CodePage.h"
#include "support/Files.h"
#include "support/ScriptedProgress.h"

#include <gtest/gtest.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

class SampleTransfer : public testing::Test
{
protected:
    SampleTransfer()
    {
        writeBytes(source / "Door.WAV", "new door");
        writeBytes(source / "step.wav", "new step");
        writeBytes(source / "bell.wav", "new bell");
        writeBytes(root / "evil.wav", "outside");
        writeBytes(target / "DOOR.wav", "old door");
        writeBytes(target / "old.WAV", "old");
        writeBytes(target / "notes.txt", "the user's");
        writeBytes(target / "more" / "deep.wav", "the user's too");
    }

    void expectOldTarget() const
    {
        EXPECT_EQ(namesIn(target), (Names{"DOOR.wav", "more", "notes.txt", "old.WAV"}));
        EXPECT_EQ(readBytes(target / "DOOR.wav"), "old door");
        EXPECT_EQ(namesIn(root.path()), (Names{"evil.wav", "source", "target"}));
    }

    TemporaryFolder root;
    fs::path source = root / "source";
    fs::path target = root / "target";
};

const Names hostile = {"../evil", "..", "con", "C:\\evil", "/evil", "sub\\evil", "evil:x", "a.", "lpt1"};

TEST_F(SampleTransfer, ReplacesOneByOne)
{
    ScriptedProgress progress;
    const SampleCopies copies =
        replaceSamples(Names{"door", "missing", "step", "door"}, source, target, progress);
    EXPECT_EQ(copies.end, CopyEnd::Complete);
    EXPECT_EQ(copies.copied, (Names{"door.wav", "step.wav"}));
    const Names names = namesIn(target);
    EXPECT_TRUE(sameName(names.front(), "door.wav")); // Wine keeps the spelling of a file that is replaced
    EXPECT_EQ(Names(names.begin() + 1, names.end()), (Names{"more", "notes.txt", "old.WAV", "step.wav"}));
    EXPECT_EQ(readBytes(target / "door.wav"), "new door");
    EXPECT_EQ(progress.said, (Names{"Copying sample [door.wav]...", "Copying sample [step.wav]...",
                                    "Copying sample [door.wav]..."}));
    EXPECT_EQ(progress.steps.back(), std::pair(std::size_t{4}, std::size_t{4}));
}

#ifndef _WIN32 // where links take a right that users lack
TEST_F(SampleTransfer, ReplacesALinkAndNotWhatItLeadsTo)
{
    fs::create_symlink(root / "evil.wav", target / "step.wav");
    ScriptedProgress progress;
    EXPECT_EQ(replaceSamples(Names{"step"}, source, target, progress).end, CopyEnd::Complete);
    EXPECT_FALSE(fs::is_symlink(target / "step.wav"));
    EXPECT_EQ(readBytes(target / "step.wav"), "new step");
    fs::remove(target / "step.wav");
    expectOldTarget();
    EXPECT_EQ(readBytes(root / "evil.wav"), "outside");
}
#endif

TEST_F(SampleTransfer, KeepsWhatWasReplacedBeforeACancelOrAFailure)
{
    ScriptedProgress stopping(1);
    const SampleCopies cancelled = replaceSamples(Names{"step", "bell"}, source, target, stopping);
    EXPECT_EQ(cancelled.end, CopyEnd::Cancelled);
    EXPECT_EQ(cancelled.copied, Names{"step.wav"});
    EXPECT_FALSE(fs::exists(target / "bell.wav"));

    fs::create_directory(target / "bell.wav");
    ScriptedProgress progress;
    const SampleCopies failed = replaceSamples(Names{"step", "bell", "door"}, source, target, progress);
    EXPECT_EQ(failed.end, CopyEnd::Failed);
    EXPECT_TRUE(failed.failure->text.english.find("bell.wav]") != std::string::npos);
    EXPECT_EQ(failed.copied, Names{"step.wav"});
    EXPECT_EQ(readBytes(target / "DOOR.wav"), "old door");
    EXPECT_EQ(replaceSamples(Names{"step"}, root / "none", target, progress).end, CopyEnd::Failed);
    EXPECT_EQ(replaceSamples(Names{"step"}, source, root / "none", progress).end, CopyEnd::Failed);
}

TEST_F(SampleTransfer, NeverLeavesItsFolders)
{
    ScriptedProgress progress;
    const SampleCopies copies = replaceSamples(hostile, source, target, progress);
    EXPECT_EQ(copies.refused, hostile);
    expectOldTarget();
    {
        SamplesFolderSwap swap(target);
        EXPECT_EQ(swap.copy(hostile, source, progress).refused, hostile);
    }
    expectOldTarget();
    EXPECT_TRUE(progress.said.empty());
    EXPECT_TRUE(unsafeSampleNames(Names{"con", "..", "con"}).english.ends_with("\n\n[con]\n\n[..]"));
}

TEST_F(SampleTransfer, SwapsTheWholeFolder)
{
    fs::permissions(target, fs::perms::group_write | fs::perms::others_write, fs::perm_options::add);
    const fs::perms permissions = fs::status(target).permissions();
    ScriptedProgress progress;
    SamplesFolderSwap swap(target);
    EXPECT_EQ(swap.copy(Names{"DOOR", "step", "door", "missing"}, source, progress).end, CopyEnd::Complete);
    EXPECT_EQ(readBytes(target / "DOOR.wav"), "old door"); // until the new ones are complete
    EXPECT_FALSE(swap.putInPlace());
    EXPECT_EQ(namesIn(target), (Names{"door.wav", "more", "notes.txt", "step.wav"}));
    EXPECT_EQ(readBytes(target / "door.wav"), "new door");
    EXPECT_EQ(namesIn(target / "more"), Names{"deep.wav"});
    EXPECT_EQ(namesIn(root.path()), (Names{"evil.wav", "source", "target"}));
    EXPECT_EQ(fs::status(target).permissions(), permissions);
}

TEST_F(SampleTransfer, KeepsWantedSamplesThatTheSourceLacks)
{
    writeBytes(target / "GONE.wav", "the only copy");
    const Names wanted = {"gone", "step", "door", "nowhere"};
    EXPECT_EQ(samplesLostToSwap(wanted, source, target), std::vector{target / "old.WAV"});
    EXPECT_TRUE(samplesLostToSwap(wanted, root / "none", target).empty()) << "nothing to put there";
    EXPECT_TRUE(samplesLostToSwap(wanted, source, root / "none").empty());
    ScriptedProgress progress;
    SamplesFolderSwap swap(target);
    EXPECT_EQ(swap.copy(wanted, source, progress).kept, Names{"GONE.wav"});
    EXPECT_FALSE(swap.putInPlace());
    EXPECT_EQ(namesIn(target), (Names{"GONE.wav", "door.wav", "more", "notes.txt", "step.wav"}));
    EXPECT_EQ(readBytes(target / "GONE.wav"), "the only copy");
    EXPECT_EQ(namesIn(root.path()), (Names{"evil.wav", "source", "target"}));
}

TEST_F(SampleTransfer, KeepsTheOldFolderWhenTheNewOneIsNotComplete)
{
    {
        ScriptedProgress stopping(1);
        SamplesFolderSwap swap(target);
        EXPECT_EQ(swap.copy(Names{"step", "bell"}, source, stopping).end, CopyEnd::Cancelled);
        ScriptedProgress stoppingLater(3);
        EXPECT_EQ(swap.copy(Names{"step", "bell"}, source, stoppingLater).end, CopyEnd::Cancelled)
            << "while the copies reach the disk";
    }
    expectOldTarget();
    ScriptedProgress progress;
    {
        SamplesFolderSwap swap(target);
        EXPECT_EQ(swap.copy(Names{"step"}, root / "evil.wav", progress).end, CopyEnd::Failed);
        EXPECT_EQ(swap.copy(Names{"step"}, root / "none", progress).end, CopyEnd::Complete);
        EXPECT_FALSE(swap.putInPlace()) << "nothing to put there";
        EXPECT_EQ(swap.copy(Names{"step"}, target, progress).end, CopyEnd::Failed) << "the same folder";
        EXPECT_EQ(SamplesFolderSwap(root / "evil.wav").copy(Names{"step"}, source, progress).end,
                  CopyEnd::Failed);
    }
    expectOldTarget();
}

#ifndef _WIN32 // where links take a right that users lack, and folders keep their times
TEST_F(SampleTransfer, ClearsUpWhatARunLeftADayAgo)
{
    const fs::path leftover = root / "target.1-2.tavrel-new";
    writeBytes(leftover / "step.wav", "of a run that was cut short");
    writeBytes(root / "target.3-4.tavrel-new" / "step.wav", "of one that is under way");
    fs::last_write_time(leftover, fs::file_time_type::clock::now() - std::chrono::hours(25));
    const SamplesFolderSwap swap(target);
    EXPECT_EQ(namesIn(root.path()), (Names{"evil.wav", "source", "target", "target.3-4.tavrel-new"}));
}

TEST_F(SampleTransfer, NeverWritesThroughALink)
{
    fs::create_directory_symlink(target, root / "link");
    fs::create_directory_symlink(target, root / "other.tavrel-old");
    ScriptedProgress progress;
    SamplesFolderSwap link(root / "link");
    const SampleCopies copies = link.copy(Names{"step"}, source, progress);
    EXPECT_EQ(copies.end, CopyEnd::Failed);
    EXPECT_TRUE(copies.failure->text.english.find("through a link") != std::string::npos);
    EXPECT_FALSE(samplesFolderToRead(root / "other"));
    SamplesFolderSwap other(root / "other");
    EXPECT_EQ(other.copy(Names{"step"}, source, progress).end, CopyEnd::Complete);
    EXPECT_FALSE(other.putInPlace());
    EXPECT_EQ(namesIn(root / "other"), Names{"step.wav"});
    EXPECT_EQ(other.leftovers(), std::vector<fs::path>{root / "other.tavrel-old"});
    EXPECT_TRUE(fs::remove(root / "link") && fs::remove(root / "other.tavrel-old"));
    fs::remove_all(root / "other");
    expectOldTarget();
}
#endif

TEST_F(SampleTransfer, BringsTheOldFolderBackAfterASwapThatWasCutShort)
{
    const fs::path old = root / "target.tavrel-old";
    fs::rename(target, old); // the new folder had not come yet
    EXPECT_EQ(samplesFolderToRead(target), old);
    EXPECT_EQ(samplesFolderToRead(root / "TARGET"), old);
    EXPECT_FALSE(fs::exists(target)) << "reading moves nothing";
    {
        const SamplesFolderSwap otherLetterCase(root / "TARGET");
    }
    expectOldTarget();

    fs::rename(target, old);
    fs::create_directory(target); // by the user, who missed it
    {
        const SamplesFolderSwap swap(target);
        EXPECT_TRUE(swap.leftovers().empty());
    }
    expectOldTarget();
}

TEST_F(SampleTransfer, NeverDeletesWhatAnotherRunLeft)
{
    const fs::path old = root / "target.tavrel-old";
    writeBytes(old / "door.wav", "older door"); // DOOR.wav to the level editor
    writeBytes(old / "notes.txt", "older notes");
    ScriptedProgress progress;
    SamplesFolderSwap swap(target);
    EXPECT_EQ(swap.copy(Names{"bell"}, source, progress).end, CopyEnd::Complete);
    EXPECT_FALSE(swap.putInPlace()) << "another name is free";
    EXPECT_EQ(namesIn(target), (Names{"bell.wav", "more", "notes.txt"}));
    EXPECT_EQ(readBytes(target / "notes.txt"), "the user's");
    EXPECT_EQ(swap.leftovers(), std::vector<fs::path>{old});
    EXPECT_EQ(namesIn(old), (Names{"door.wav", "notes.txt"}));
}

TEST_F(SampleTransfer, TheLastOfTwoAtOnceWinsWhole)
{
    ScriptedProgress progress;
    SamplesFolderSwap first(target);
    SamplesFolderSwap second(target);
    EXPECT_EQ(first.copy(Names{"step", "door"}, source, progress).end, CopyEnd::Complete);
    EXPECT_EQ(second.copy(Names{"bell"}, source, progress).end, CopyEnd::Complete);
    const SamplesFolderSwap third(target); // takes nobody's new folder for a leftover
    EXPECT_FALSE(first.putInPlace());
    EXPECT_FALSE(second.putInPlace());
    EXPECT_EQ(namesIn(target), (Names{"bell.wav", "more", "notes.txt"}));
    EXPECT_EQ(namesIn(root.path()), (Names{"evil.wav", "source", "target"}));
}

TEST_F(SampleTransfer, OldFoldersAreOrderedByTheirNumbers)
{
    for (const char* name : {"target.tavrel-old3", "TARGET.Tavrel-OLD10"}) {
        writeBytes(root / name / "notes.txt", name);
    }
    const Names others = {"target.tavrel-old1", "target.tavrel-old04", "target.tavrel-oldest",
                          "targets.tavrel-old"};
    for (const std::string& name : others) {
        writeBytes(root / name / "more.txt", "");
    }
    writeBytes(target / "step.wav" / "deep.txt", ""); // a folder that cannot move beside the sample
    ScriptedProgress progress;
    SamplesFolderSwap swap(target);
    EXPECT_EQ(swap.copy(Names{"step"}, source, progress).end, CopyEnd::Complete);
    EXPECT_FALSE(swap.putInPlace());
    EXPECT_EQ(swap.leftovers(),
              (std::vector<fs::path>{root / "target.tavrel-old3", root / "TARGET.Tavrel-OLD10",
                                     root / "target.tavrel-old11"}));
    for (const std::string& name : others) {
        EXPECT_EQ(namesIn(root / name), Names{"more.txt"}) << name;
    }
    fs::remove_all(target);
    EXPECT_EQ(samplesFolderToRead(target), root / "target.tavrel-old11");
}

TEST_F(SampleTransfer, AReadOnlyFileIsRefusedInEachSpelling)
{
    fs::permissions(target / "DOOR.wav", fs::perms::owner_read);
    ScriptedProgress progress;
    for (const char* name : {"door", "DOOR"}) {
        const SampleCopies copies = replaceSamples(Names{name}, source, target, progress);
        EXPECT_EQ(copies.end, CopyEnd::Failed);
        EXPECT_TRUE(upperCase(copies.failure->text.english).find("DOOR.WAV]") != std::string::npos);
    }
    expectOldTarget();
}

} // namespace
