// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/DragState.h"

#include <gtest/gtest.h>

#include <limits>

using tavrel::DragState;

TEST(DragState, offsetsComeFromPositionsRoundedWithHalvesToEven)
{
    struct Case
    {
        double fromX, fromY, toX, toY;
        int dx, dy;
    };
    const Case cases[] = {
        {0, 0, 3, -4, 3, -4},         // the very corner is a grip like any other
        {0.5, 1.5, 2.5, 3.5, 2, 2},   // 0, 2 -> 2, 4
        {10.4, 10.6, 10, 11, 0, 0},   //
        {-0.5, -1.5, 0, 0, 0, 2},     // 0, -2
        {-1, -9999, -2, -9998, -1, 1} // the value that marks no drag counts in x alone
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.fromX << "," << c.fromY << " -> " << c.toX << "," << c.toY);
        DragState drag;
        drag.begin(c.fromX, c.fromY);
        const auto offset = drag.moveTo(c.toX, c.toY);
        ASSERT_TRUE(offset);
        EXPECT_EQ(offset->x, c.dx);
        EXPECT_EQ(offset->y, c.dy);
    }
}

TEST(DragState, movesOnlyBetweenPressAndRelease)
{
    DragState drag;
    EXPECT_FALSE(drag.moveTo(5, 5));
    drag.begin(1, 1);
    EXPECT_TRUE(drag.moveTo(5, 5));
    drag.end();
    EXPECT_FALSE(drag.moveTo(6, 6));
}

TEST(DragState, anOffsetThatFitsNoWindowIsNone)
{
    constexpr double largest = std::numeric_limits<std::int32_t>::max();
    DragState drag;
    drag.begin(-10, 0);
    EXPECT_FALSE(drag.moveTo(largest, 0));
    drag.begin(0, -10);
    EXPECT_FALSE(drag.moveTo(0, largest));
}
