// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/SampleTransfer.h"
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
}

TEST_F(SampleTransfer, SwapsTheWholeFolder)
{
    ScriptedProgress progress;
    SamplesFolderSwap swap(target);
    EXPECT_EQ(swap.copy(Names{"DOOR", "step", "door", "missing"}, source, progress).end, CopyEnd::Complete);
    EXPECT_EQ(readBytes(target / "DOOR.wav"), "old door"); // until the new ones are complete
    EXPECT_FALSE(swap.putInPlace());
    EXPECT_EQ(namesIn(target), (Names{"door.wav", "more", "notes.txt", "step.wav"}));
    EXPECT_EQ(readBytes(target / "door.wav"), "new door");
    EXPECT_EQ(namesIn(target / "more"), Names{"deep.wav"});
    EXPECT_EQ(namesIn(root.path()), (Names{"evil.wav", "source", "target"}));
}

TEST_F(SampleTransfer, KeepsTheOldFolderWhenTheNewOneIsNotComplete)
{
    {
        ScriptedProgress stopping(1);
        SamplesFolderSwap swap(target);
        EXPECT_EQ(swap.copy(Names{"step", "bell"}, source, stopping).end, CopyEnd::Cancelled);
    }
    expectOldTarget();
    ScriptedProgress progress;
    {
        SamplesFolderSwap swap(target);
        EXPECT_EQ(swap.copy(Names{"step"}, root / "none", progress).end, CopyEnd::Failed);
        EXPECT_EQ(swap.copy(Names{"step"}, target, progress).end, CopyEnd::Failed) << "the same folder";
        EXPECT_EQ(SamplesFolderSwap(root / "evil.wav").copy(Names{"step"}, source, progress).end,
                  CopyEnd::Failed);
    }
    expectOldTarget();
}

#ifndef _WIN32 // where links take a right that users lack
TEST_F(SampleTransfer, FollowsALinkToTheFolder)
{
    fs::create_directory_symlink(target, root / "link");
    ScriptedProgress progress;
    SamplesFolderSwap swap(root / "link");
    EXPECT_EQ(swap.copy(Names{"step"}, source, progress).end, CopyEnd::Complete);
    EXPECT_FALSE(swap.putInPlace());
    EXPECT_TRUE(fs::is_symlink(root / "link"));
    EXPECT_EQ(namesIn(target), (Names{"more", "notes.txt", "step.wav"}));
}
#endif

TEST_F(SampleTransfer, EndsASwapThatWasCutShort)
{
    const fs::path old = root / "target.tavrel-old";
    fs::rename(target, old); // the new folder had not come yet
    finishSamplesSwap(target);
    expectOldTarget();

    fs::rename(target, old);
    writeBytes(target / "step.wav", "new step");
    writeBytes(target / "notes.txt", "newer");
    finishSamplesSwap(target);
    EXPECT_EQ(namesIn(target), (Names{"more", "notes.txt", "step.wav"}));
    EXPECT_EQ(readBytes(target / "notes.txt"), "newer");
    EXPECT_EQ(namesIn(old), Names{"notes.txt"}) << "nothing of the user's is thrown away";
    ScriptedProgress progress;
    SamplesFolderSwap swap(target);
    EXPECT_EQ(swap.copy(Names{"bell"}, source, progress).end, CopyEnd::Complete);
    EXPECT_TRUE(swap.putInPlace()) << "its name is taken";
    EXPECT_EQ(namesIn(target), (Names{"more", "notes.txt", "step.wav"}));
}

} // namespace
