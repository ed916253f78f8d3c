// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ColourScheme.h"

#include <QColor>

class QWidget;

namespace tavrel {

QColor colourFrom(ColourValue value);
ColourValue colourValue(const QColor& colour);

// Paints a list or text area with a slot of the scheme.
void paintWith(QWidget& area, const ColourPair& pair);

// What stands out in a list of these colours: amber, light or dark, or else the list's own text colour.
QColor markColour(const ColourPair& pair);

} // namespace tavrel
