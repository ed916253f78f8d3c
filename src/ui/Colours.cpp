// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Colours.h"

#include "ui/Theme.h"

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

QColor markColour(const ColourPair& pair)
{
    const QColor darkAmber(0x8F, 0x56, 0x00);
    for (const QColor& amber : {theme::accent, darkAmber}) {
        if (contrastOf({pair.back, colourValue(amber)}) >= leastContrast) {
            return amber;
        }
    }
    return colourFrom(pair.text);
}

} // namespace tavrel
