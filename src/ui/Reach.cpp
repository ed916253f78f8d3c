// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Reach.h"

#include <algorithm>

namespace tavrel {

namespace {

// What the mouse can get hold of.
constexpr QSize leastShown(64, 16);

// The smallest shift along one axis after which enough of the title shows.
int shiftInto(int start, int length, int screenStart, int screenLength, int least)
{
    const int shown = std::min({least, length, screenLength});
    const int first = screenStart + shown - length;
    const int last = screenStart + screenLength - shown;
    return std::clamp(start, first, last) - start;
}

QPoint shiftInto(const QRect& title, const QRect& screen)
{
    return {shiftInto(title.x(), title.width(), screen.x(), screen.width(), leastShown.width()),
            shiftInto(title.y(), title.height(), screen.y(), screen.height(), leastShown.height())};
}

} // namespace

QPoint offsetIntoReach(const QRect& title, const QList<QRect>& screens)
{
    QPoint nearest;
    for (const QRect& screen : screens) {
        const QPoint shift = shiftInto(title, screen);
        if (&screen == &screens.front() || shift.manhattanLength() < nearest.manhattanLength()) {
            nearest = shift;
        }
    }
    return nearest;
}

} // namespace tavrel
