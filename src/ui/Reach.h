// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

namespace tavrel {

// How far a window has to move so that the user can take it by its title again; nothing when enough of the
// title shows on one of the screens. All in the coordinates of the desktop.
QPoint offsetIntoReach(const QRect& title, const QList<QRect>& screens);

} // namespace tavrel
