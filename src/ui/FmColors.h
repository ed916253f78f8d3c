// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ColourScheme.h"
#include "base/Dialogs.h"
#include "ui/TitledWindow.h"

#include <array>
#include <functional>

class QLabel;
class QPushButton;

namespace tavrel {

// The colour scheme, edited on a working copy until it is applied. "Restore default colors" alone changes the
// scheme at once, and closing keeps that.
class FmColors : public TitledWindow
{
    Q_OBJECT

public:
    using PaintMainWindow = std::function<void(const ColourPair&)>;

    FmColors(QWidget* parent, ColourScheme& scheme, Language language, Dialogs& dialogs,
             PaintMainWindow paintMainWindow);

    // CdClose, and whatever else closes the window.
    void reject() override;

private:
    struct Row
    {
        QPushButton* PbColB;
        QPushButton* PbColF;
        QLabel* LbExem;
        QPushButton* CdRepeat;
    };

    void layOut();
    void showCaptions();
    void showColours();
    void showWarning();
    void pick(ColourValue& colour);
    void copyToOthers(std::size_t slot);
    void restoreDefaults();
    void apply();
    void paintMain(const ColourScheme& scheme) const;

    ColourScheme& m_scheme;
    ColourScheme m_shown;
    Language m_language;
    Dialogs& m_dialogs;
    PaintMainWindow m_paintMainWindow;
    std::array<Row, ColourScheme::slotCount> m_rows;
    QLabel* m_warning;
    QPushButton* m_preview;
    QPushButton* m_defaults;
    QPushButton* m_apply;
    QPushButton* m_close;
};

} // namespace tavrel
