// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"

#include <QWidget>

#include <array>

class QCheckBox;

namespace tavrel {

class ValueEdit;

// The values and flags of the selected lines: what they have in common. Not a folding panel: they are what
// the window is for.
class ValuesPanel final : public QWidget, public MainPanel
{
    Q_OBJECT

public:
    explicit ValuesPanel(const PanelContext& context);

    void showLanguage(Language language) override;

private:
    void lineShown() override;
    void valuesChanged() override { fillFlags(); }
    void objectChosen() override { enable(); }

    void layOut();
    QWidget* makeBoxes();
    void connectControls();
    void fillValue(ValueBox box);
    void fillFlags();
    void showToolTips();
    QString rawWord(ValueBox box) const;
    void enable();
    void valueTyped(ValueBox box);
    void valueStepped(ValueBox box, int by);
    void valueRefused(ValueBox box);
    void pitchLeft();
    ValueEdit* value(ValueBox box) const { return m_values[static_cast<std::size_t>(box)]; }

    std::array<ValueEdit*, valueBoxCount> m_values{}; // TxVOL, TxPIT, TxRAD, TxCH
    std::array<QCheckBox*, lineFlagCount> m_flags{};  // CkP, CkV, CkR, CkN, CkL
    bool m_filling = false;                           // from a line, not by the user
};

} // namespace tavrel
