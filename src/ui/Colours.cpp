// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Colours.h"

#include <QPalette>
#include <QWidget>

namespace tavrel {

QColor colourFrom(ColourValue value)
{
    constexpr int byte = 0xFF;
    return {value & byte, (value >> 8) & byte, (value >> 16) & byte};
}

ColourValue colourValue(const QColor& colour)
{
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

void paintWith(QWidget& area, const ColourPair& pair)
{
    QPalette palette = area.palette();
    palette.setColor(QPalette::Base, colourFrom(pair.back));
    palette.setColor(QPalette::Text, colourFrom(pair.text));
    area.setPalette(palette);
}

} // namespace tavrel
