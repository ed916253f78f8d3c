// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <span>

class QWidget;

namespace tavrel {

// What a control says, found by its object name. An empty text leaves the control's own (an icon, a value).
struct Caption
{
    const char* control = nullptr;
    BilingualText text;
    BilingualText toolTip;
};

// Switches a window to a language by walking its table. Its buttons get underlined letters, too.
void showCaptions(QWidget& window, std::span<const Caption> captions, Language language);

// Underlines a letter on each captioned button, another one on each as far as their words allow it. Letters
// that were chosen by hand stay.
void underlineLetters(QWidget& window);

} // namespace tavrel
