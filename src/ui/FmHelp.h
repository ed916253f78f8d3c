// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "ui/TitledWindow.h"

#include <string>

namespace tavrel {

// The help of the display language.
class FmHelp : public TitledWindow
{
    Q_OBJECT

public:
    FmHelp(QWidget* parent, const std::string& text, const ColourScheme& colours, Language language);

protected:
    // A click beside the text closes the window, too.
    void mousePressEvent(QMouseEvent* event) override;
    void showHelp() override {}
};

} // namespace tavrel
