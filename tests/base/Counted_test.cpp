// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Counted.h"
#include "base/FailureTexts.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavrel {

TEST(Counted, WordsAgreeWithTheNumberInEachLanguage)
{
    EXPECT_EQ(countedLines(0), BilingualText("0 lines", "0 ligne"));
    EXPECT_EQ(countedLines(1), BilingualText("1 line", "1 ligne"));
    EXPECT_EQ(countedLines(2), BilingualText("2 lines", "2 lignes"));
}

TEST(Counted, ThreeNumbersInARowAreARange)
{
    const struct
    {
        std::vector<std::size_t> numbers;
        std::string text;
    } cases[] = {
        {{}, ""}, {{7}, "7"}, {{7, 8}, "7, 8"}, {{0, 1, 2, 3}, "0-3"}, {{1, 3, 4, 5, 8, 9}, "1, 3-5, 8, 9"},
    };
    for (const auto& [numbers, text] : cases) {
        EXPECT_EQ(numberRanges(numbers), text);
    }
    EXPECT_EQ(numberRanges(cases[4].numbers, 2), "1, 3-5 ...");
}

TEST(Counted, ALongListEndsWithHowManyMoreThereAre)
{
    const std::vector<Failure> notices(10, {BilingualText::same("x")});
    EXPECT_TRUE(listOf(notices).english.ends_with("x\n\n... and 2 more."));
    EXPECT_TRUE(listOf({notices.begin(), notices.begin() + 8}).french.ends_with("x\n\nx"));
}

} // namespace tavrel
