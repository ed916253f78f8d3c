// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ColourScheme.h"

#include <QColor>
#include <QPalette>

class QWidget;

namespace tavrel {

QColor colourFrom(ColourValue value);
ColourValue colourValue(const QColor& colour);

// Paints a list or text area with a slot of the scheme, also while it is shown.
void paintWith(QWidget& area, const ColourPair& pair);

// What stands out in a list of these colours: amber, light or dark, or else the list's own text colour.
QColor markColour(const ColourPair& pair);
// A red that can be told from both of these colours, for icons and dots.
QColor alarmColour(const ColourPair& pair);

// A row that is out of use: between text and ground.
QColor mutedColour(const ColourPair& pair);
// The pair that an area was painted with.
ColourPair paintedWith(const QPalette& palette);

} // namespace tavrel
