// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "ui/TitledWindow.h"

#include <string>
#include <vector>

namespace tavrel {

// Shows names of samples that could not be found, in the order given, and copies them on demand.
class FmSplInc : public TitledWindow
{
    Q_OBJECT

public:
    FmSplInc(QWidget* parent, const std::vector<std::string>& names, const ColourScheme& colours,
             Language language);
};

} // namespace tavrel
