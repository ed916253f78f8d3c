// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ColourScheme.h"

#include <algorithm>
#include <cmath>

namespace tavrel {

namespace {

// Of one byte of a colour, in light as a screen gives it off.
double linear(ColourValue byte)
{
    const double value = byte / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(ColourValue colour)
{
    constexpr int byte = 0xFF;
    return 0.2126 * linear(colour & byte) + 0.7152 * linear((colour >> 8) & byte) +
           0.0722 * linear((colour >> 16) & byte);
}

} // namespace

double contrastOf(const ColourPair& pair)
{
    constexpr double flare = 0.05;
    const auto [darker, lighter] = std::minmax({luminance(pair.back), luminance(pair.text)});
    return (lighter + flare) / (darker + flare);
}

} // namespace tavrel
