// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ProcessLock.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

TEST(ProcessLock, IsOneOwnersUntilItIsDone)
{
    const TemporaryFolder program;
    Result<ProcessLock> first = takeLock(program.path(), changesLock, std::chrono::seconds(0));
    ASSERT_TRUE(first);
    const Result<ProcessLock> second = takeLock(program.path(), changesLock, std::chrono::seconds(0));
    ASSERT_FALSE(second);
    EXPECT_NE(second.failure().text.english.find("at work on the same files"), std::string::npos);
    first->reset();
    EXPECT_TRUE(takeLock(program.path(), changesLock, std::chrono::seconds(0)))
        << "the file that stays locks nothing";
    EXPECT_EQ(namesIn(program.path()), std::vector<std::string>{"Tavrel.lock"});
}

TEST(ProcessLock, IsDoneWithoutWhereThereCanBeNone)
{
    const TemporaryFolder root;
    EXPECT_TRUE(takeLock(root / "missing", changesLock, std::chrono::seconds(0)));
}
