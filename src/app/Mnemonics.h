// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

class QWidget;

namespace tavrel {

// Underlines a letter on every captioned button of the main window, another one on each. They are chosen
// here, for all panels together; the captions are the panels'.
void showMnemonics(QWidget& window, Language language);

} // namespace tavrel
