// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"

#include <array>
#include <optional>

class QWidget;

namespace tavrel {

// The colours that the user keeps in the dialog, as long as the program runs.
using KeptColours = std::array<ColourValue, 16>;

constexpr KeptColours noKeptColours()
{
    constexpr ColourValue white = 0xFFFFFF;
    KeptColours colours{};
    colours.fill(white);
    return colours;
}

// The system's dialog where it has one. Nothing when the user cancels.
std::optional<ColourValue> askForColour(QWidget* parent, ColourValue current, KeptColours& kept,
                                        Language language);

} // namespace tavrel
