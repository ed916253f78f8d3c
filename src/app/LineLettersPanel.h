// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainPanel.h"
#include "ui/FoldingPanel.h"

#include <string>

class QListWidget;

namespace tavrel {

// The levels that the selected lines belong to.
class LineLettersPanel final : public FoldingPanel, public MainPanel
{
    Q_OBJECT

public:
    explicit LineLettersPanel(const PanelContext& context);

    void showLanguage(Language language) override;
    void paintWith(const ColourPair& pair) override;

Q_SIGNALS:
    // By Insert and Delete in the list.
    void addWanted();
    void removeWanted();

private:
    void lineShown() override;
    std::string entryOf(std::size_t letter) const;

    QListWidget* m_list;
};

} // namespace tavrel
