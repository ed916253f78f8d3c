// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"
#include "ui/FoldingPanel.h"

class QListWidget;

namespace tavrel {

// The levels that the selected line belongs to.
class LineLettersPanel final : public FoldingPanel, public MainPanel
{
    Q_OBJECT

public:
    explicit LineLettersPanel(const PanelContext& context);

    void showLanguage(Language language) override;
    void paintWith(const ColourPair& pair) override;

private:
    void lineShown() override;

    QListWidget* m_list;
};

} // namespace tavrel
