// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "ui/TitledWindow.h"

#include <filesystem>

class QWidget;

namespace tavrel {

// Opens at the topic, until the user closes it. A missing help file is logged and leaves the user without a
// window.
void showHelpWindow(QWidget* parent, const std::filesystem::path& programFolder, const ColourScheme& colours,
                    Language language, const HelpTopic& topic = {});

// The chapter with all keys.
HelpTopic helpOnKeys(Language language);
// The chapter that leads through a first use.
HelpTopic helpOnFirstUse(Language language);

} // namespace tavrel
