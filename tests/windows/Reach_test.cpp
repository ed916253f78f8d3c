// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Reach.h"

#include <gtest/gtest.h>

using tavrel::offsetIntoReach;

TEST(Reach, ATitleThatLeftEveryScreenComesBackByTheShortestWay)
{
    const QList<QRect> screens = {{0, 0, 1000, 800}, {1000, 200, 500, 400}};
    const struct
    {
        QRect title;
        QPoint offset;
    } cases[] = {
        {{100, 100, 300, 38}, {0, 0}},     {{-236, 10, 300, 38}, {0, 0}}, // 64 pixels still show
        {{-237, 10, 300, 38}, {1, 0}},     {{-900, -500, 300, 38}, {664, 478}},
        {{990, 700, 300, 38}, {-54, 0}},  // below the second screen
        {{990, 500, 300, 38}, {0, 0}},    // on the second screen
        {{1480, 300, 300, 38}, {-44, 0}}, //
        {{1200, 790, 300, 38}, {0, -206}}, {{400, 795, 300, 38}, {0, -11}},
        {{5, 5, 20, 8}, {0, 0}}, // smaller than what has to show
        {{-10, 5, 20, 8}, {10, 0}},
    };
    for (const auto& [title, offset] : cases) {
        SCOPED_TRACE(testing::Message() << title.x() << "," << title.y());
        const QPoint found = offsetIntoReach(title, screens);
        EXPECT_EQ(found.x(), offset.x());
        EXPECT_EQ(found.y(), offset.y());
    }
    EXPECT_TRUE(offsetIntoReach({-900, 0, 10, 10}, {}).isNull());
}
