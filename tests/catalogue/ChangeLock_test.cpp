// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ChangeLock.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

TEST(ChangeLock, IsOneOwnersUntilItIsDone)
{
    const TemporaryFolder program;
    Result<ChangeLock> first = lockChanges(program.path(), std::chrono::seconds(0));
    ASSERT_TRUE(first);
    const Result<ChangeLock> second = lockChanges(program.path(), std::chrono::seconds(0));
    ASSERT_FALSE(second);
    EXPECT_NE(second.failure().text.english.find("at work on the same files"), std::string::npos);
    first->reset();
    EXPECT_TRUE(lockChanges(program.path(), std::chrono::seconds(0))) << "the file that stays locks nothing";
    EXPECT_EQ(namesIn(program.path()), std::vector<std::string>{"Tavrel.lock"});
}

TEST(ChangeLock, IsDoneWithoutWhereThereCanBeNone)
{
    const TemporaryFolder root;
    EXPECT_TRUE(lockChanges(root / "missing", std::chrono::seconds(0)));
}
