// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/Dialogs.h"
#include "generation/RestoreDefaults.h"
#include "ui/TitledWindow.h"

class QCheckBox;

namespace tavrel {

// What to put back as it was installed. Accepted when something is chosen.
class FmDefault : public TitledWindow
{
    Q_OBJECT

public:
    FmDefault(QWidget* parent, Language language, Dialogs& dialogs);

    RestoreChoice choice() const;

private:
    void layOut();
    void addOption(QCheckBox& option, const char* keptLabel);
    void showCaptions(Language language);

    QCheckBox* m_catalogue;
    QCheckBox* m_samples;
    QCheckBox* m_sfx;
};

} // namespace tavrel
