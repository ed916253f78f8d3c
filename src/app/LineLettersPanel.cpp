// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LineLettersPanel.h"

#include "references/LetterList.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tavrel {

LineLettersPanel::LineLettersPanel(const PanelContext& context)
    : FoldingPanel("ImPanelD", nullptr), MainPanel(context), m_list(makeFixedPitchList("LiWAD"))
{
    content().addWidget(makeHeading("LbWADs"));
    content().addWidget(m_list, 1);
    connect(m_list, &QListWidget::itemSelectionChanged, this, [this] {
        const int row = m_list->selectedItems().empty() ? -1 : m_list->currentRow();
        selection().chooseLetter(row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row)));
    });
}

void LineLettersPanel::showLanguage(Language language)
{
    const Caption captions[] = {
        {"ImPanelD", {"WADs", "WADs"}, {"Fold or unfold this panel", "Replier ou déplier ce panneau"}},
        {"LbWADs", {"Allocated WADs (letters)", "WADs (lettres) assignés"}, {}},
        {"LiWAD", {}, {"Levels that include the sound", "Niveaux qui comprennent le son"}},
    };
    showCaptions(*this, captions, language);
}

void LineLettersPanel::paintWith(const ColourPair& pair)
{
    tavrel::paintWith(*m_list, pair);
}

void LineLettersPanel::lineShown()
{
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const std::string& entry : letterEntries(selection().editor().record(), session().references(),
                                                  session().wad(), selection().justAdded())) {
        m_list->addItem(fromCodePage(entry));
    }
    if (const std::optional<std::size_t> letter = selection().letter()) {
        m_list->setCurrentRow(static_cast<int>(*letter));
    }
}

} // namespace tavrel
