// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileNames.h"
#include "base/ProcessLock.h"
#include "base/SafeFile.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <chrono>
#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

constexpr std::chrono::seconds atOnce(0);

TEST(ProcessLock, IsOneOwnersUntilItIsDone)
{
    const TemporaryFolder program;
    Result<ProcessLock> first = takeLock(program.path(), changesLock, atOnce);
    ASSERT_TRUE(first);
    const Result<ProcessLock> second = takeLock(program.path(), changesLock, atOnce);
    ASSERT_FALSE(second);
    EXPECT_NE(second.failure().text.english.find("at work on the same files"), std::string::npos);
    first->reset();
    EXPECT_TRUE(takeLock(program.path(), changesLock, atOnce)) << "the file that stays locks nothing";
    EXPECT_EQ(namesIn(program.path()), std::vector<std::string>{"Tavrel.lock"});
}

TEST(ProcessLock, IsDoneWithoutWhereThereCanBeNone)
{
    const TemporaryFolder root;
    EXPECT_TRUE(takeLock(root / "missing", changesLock, atOnce));
}

// Two program folders on one level editor.
class SharedLocks : public testing::Test
{
protected:
    SharedLocks()
    {
        for (const fs::path& folder : {one, two, sounds.parent_path(), samples}) {
            fs::create_directories(folder);
        }
        writeBytes(sounds, "");
    }

    TemporaryFolder root;
    fs::path one = root / "one";
    fs::path two = root / "two";
    fs::path sounds = root / "creator" / "Sounds.txt";
    fs::path samples = root / "Samples";
};

TEST_F(SharedLocks, HoldOffWhoeverWritesTheSame)
{
    struct Case
    {
        const char* name;
        LockedPlaces held;
        LockedPlaces asked;
        bool together;
    };
    const Case cases[] = {
        {"one sounds.txt", {one, sounds}, {two, sounds}, false},
        {"one program folder", {one, sounds}, {one, root / "elsewhere" / "Sounds.txt"}, false},
        {"two of each", {one, sounds}, {two, root / "elsewhere" / "Sounds.txt"}, true},
        {"samples and sounds", {one, sounds, samples}, {two, sounds}, false},
        {"without sounds.txt", {one}, {two, sounds}, true},
    };
    fs::create_directory(root / "elsewhere");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ChangeLocks held(c.held, atOnce);
        ChangeLocks asked(c.asked, atOnce);
        ASSERT_FALSE(held.take());
        EXPECT_FALSE(held.take()) << "they are taken already";
        EXPECT_EQ(!asked.take(), c.together);
        asked.release();
        held.release();
        EXPECT_FALSE(asked.take());
        EXPECT_FALSE(asked.notice());
    }
    EXPECT_TRUE(fs::exists(sounds.parent_path() / "Sounds.txt.tavrel-lock"));
    EXPECT_TRUE(fs::exists(sounds.parent_path() / "Samples.tavrel-lock"));
}

TEST_F(SharedLocks, TakeAwayWhatInterruptedWritesHaveLeft)
{
    const fs::path leftovers[] = {one / "Tavrel.paw.1-2.tavrel-new",
                                  sounds.parent_path() / "Sounds.txt.1-2.tavrel-new",
                                  samples / "a.wav.1-2.tavrel-new"};
    for (const fs::path& file : leftovers) {
        writeBytes(file, "half");
    }
    ChangeLocks other({two, sounds}, atOnce);
    ChangeLocks locks({one, sounds, samples}, atOnce);
    ASSERT_FALSE(other.take() && !locks.take());
    EXPECT_TRUE(fs::exists(leftovers[2])) << "somebody is at work";
    other.release();
    ASSERT_FALSE(locks.take());
    for (const fs::path& file : leftovers) {
        EXPECT_FALSE(fs::exists(file)) << file;
    }
}

#ifndef _WIN32
TEST_F(SharedLocks, LieWhereALinkLeads)
{
    fs::create_symlink(sounds, root / "link.txt");
    ChangeLocks byName({one, sounds}, atOnce);
    ChangeLocks byLink({two, root / "link.txt"}, atOnce);
    ASSERT_FALSE(byName.take());
    EXPECT_TRUE(byLink.take());
}

// Somebody without the rights of the administrator: another user, to whom all but the first three bits apply,
// or this one, to whom those do. Ends with 0 when the check is true.
template <typename Check>
void asPlainUser(Check check)
{
    if (::geteuid() == 0 && ::setuid(65'534) != 0) {
        ::_exit(2);
    }
    ::_exit(check() ? 0 : 1);
}

fs::perms forPlainUser(unsigned bits)
{
    return ::geteuid() == 0 ? fs::perms(0700 | bits << 3 | bits) : fs::perms(bits << 6);
}

TEST_F(SharedLocks, TellALockFileOfAnotherUser)
{
    ASSERT_FALSE(ChangeLocks({one, sounds}, atOnce).take());
    const fs::path lock = one / "Tavrel.lock";
    struct Case
    {
        const char* name;
        unsigned folder;
        unsigned file;
        bool locks;
    };
    for (const fs::path& folder : {root.path(), sounds.parent_path()}) {
        fs::permissions(folder, fs::perms(0777));
    }
    for (const Case& c : {Case{"everybody's", 7, 6, true}, Case{"to be read", 7, 4, true},
                          Case{"the owner's", 7, 0, false}, Case{"nothing to lose", 5, 0, true}}) {
        SCOPED_TRACE(c.name);
        fs::permissions(lock, forPlainUser(c.file));
        fs::permissions(one, forPlainUser(c.folder));
        EXPECT_EXIT(asPlainUser([&] {
                        const Problem problem = ChangeLocks({one}, atOnce).take();
                        return c.locks ? !problem
                                       : problem &&
                                             problem->text.english.find("another user") != std::string::npos;
                    }),
                    testing::ExitedWithCode(0), "");
    }
    fs::permissions(one, fs::perms(0777));
    fs::remove(lock);
    ASSERT_FALSE(ChangeLocks({one}, atOnce).take());
    EXPECT_EQ(fs::status(lock).permissions(), fs::perms(0666)) << "for whoever may write in the folder";
}
#endif

} // namespace
