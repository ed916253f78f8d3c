// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "ui/TitledWindow.h"

class QRadioButton;

namespace tavrel {

// The first window of the first start: which language the program speaks. Accepted by OK, rejected by Quit.
class FmLanguage : public TitledWindow
{
    Q_OBJECT

public:
    FmLanguage();

    Language language() const;

private:
    QRadioButton* m_french;
};

} // namespace tavrel
