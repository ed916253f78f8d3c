// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ColourScheme.h"

#include <gtest/gtest.h>

using namespace tavrel;

TEST(ColourScheme, ContrastIsThatOfTheAccessibilityGuidelines)
{
    EXPECT_DOUBLE_EQ(contrastOf({0x000000, 0xFFFFFF}), 21.0);
    EXPECT_DOUBLE_EQ(contrastOf({0xFFFFFF, 0x000000}), 21.0);
    EXPECT_DOUBLE_EQ(contrastOf({0x123456, 0x123456}), 1.0);
    EXPECT_NEAR(contrastOf({0xFFFFFF, 0x0000FF}), 4.0, 0.005); // red: the low byte
    EXPECT_NEAR(contrastOf({0xFFFFFF, 0xFF0000}), 8.59, 0.005);
    EXPECT_NEAR(contrastOf({0xFFFFFF, 0x777777}), 4.48, 0.005);
    for (const ColourPair& pair : ColourScheme().slots) {
        EXPECT_GT(contrastOf(pair), leastContrast);
    }
}
