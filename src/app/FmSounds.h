// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "catalogue/SoundsText.h"
#include "ui/TitledWindow.h"

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace tavrel {

// sounds.txt as it stands on the disk, to read and to search, while the main window holds changes that are
// not in it.
class FmSounds : public TitledWindow
{
    Q_OBJECT

public:
    FmSounds(QWidget* parent, SoundsText text, const ColourScheme& colours, Language language);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    void showCaptions(Language language);
    void search();
    void goToStart();

    SoundsText m_text;
    QPlainTextEdit* m_view;
    QLineEdit* m_wanted;
    QCheckBox* m_matchCase;
    QPushButton* m_search;
    QPushButton* m_start;
    QPushButton* m_close;
};

} // namespace tavrel
