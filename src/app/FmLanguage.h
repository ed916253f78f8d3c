// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "ui/TitledWindow.h"

#include <functional>

class QRadioButton;

namespace tavrel {

// The first window of the first start: which language the program speaks. Accepted by OK, rejected by Quit.
class FmLanguage : public TitledWindow
{
    Q_OBJECT

public:
    using HelpOpener = std::function<void(QWidget& parent, const HelpTopic& topic, Language language)>;

    explicit FmLanguage(HelpOpener openHelp);

    Language language() const;

protected:
    void showHelp(const HelpTopic& topic) override;

private:
    HelpOpener m_openHelp;
    QRadioButton* m_french;
};

} // namespace tavrel
