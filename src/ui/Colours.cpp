// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Colours.h"

#include "ui/Theme.h"

#include <QAbstractScrollArea>
#include <QWidget>

#include <algorithm>

namespace tavrel {

namespace {

constexpr double contrastOfTexts = 4.5;

// On the pair's ground; else the pair's own text colour.
QColor firstThatStandsOut(const ColourPair& pair, double contrast, std::initializer_list<QColor> colours)
{
    const auto found = std::ranges::find_if(colours, [&pair, contrast](const QColor& colour) {
        return contrastOf({pair.back, colourValue(colour)}) >= contrast;
    });
    return found != colours.end() ? *found : colourFrom(pair.text);
}

} // namespace

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
    // Under a style sheet, the part that shows the content keeps the palette of its first showing.
    if (auto* const scrolling = qobject_cast<QAbstractScrollArea*>(&area)) {
        scrolling->viewport()->setPalette(palette);
    }
}

QColor markColour(const ColourPair& pair)
{
    const QColor darkAmber(0x8F, 0x56, 0x00);
    return firstThatStandsOut(pair, contrastOfTexts, {theme::accent, darkAmber});
}

QColor alarmColour(const ColourPair& pair)
{
    const QColor darkRed(0xB0, 0x30, 0x18);
    return firstThatStandsOut(pair, leastContrast, {theme::alarm, darkRed});
}

QColor mutedColour(const ColourPair& pair)
{
    const QColor back = colourFrom(pair.back);
    const QColor text = colourFrom(pair.text);
    const auto between = [](int ground, int ink) { return (2 * ground + 3 * ink) / 5; };
    return {between(back.red(), text.red()), between(back.green(), text.green()),
            between(back.blue(), text.blue())};
}

ColourPair paintedWith(const QPalette& palette)
{
    return {colourValue(palette.color(QPalette::Base)), colourValue(palette.color(QPalette::Text))};
}

} // namespace tavrel
