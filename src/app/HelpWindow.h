// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"

#include <filesystem>

class QWidget;

namespace tavrel {

// Until the user closes it. A missing help file is logged and leaves the user without a window.
void showHelpWindow(QWidget* parent, const std::filesystem::path& programFolder, const ColourScheme& colours,
                    Language language, const BilingualText& heading = {});

// The chapter with all keys.
BilingualText helpOnKeys();
// The chapter that leads through a first use.
BilingualText helpOnFirstUse();

} // namespace tavrel
