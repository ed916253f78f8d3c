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

#include <algorithm>

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
    addListKey(*m_list, Qt::Key_Insert, [this] { Q_EMIT addWanted(); });
    addListKey(*m_list, Qt::Key_Delete, [this] { Q_EMIT removeWanted(); });
}

void LineLettersPanel::showLanguage(Language language)
{
    const Caption captions[] = {
        {"ImPanelD", {"WADs", "WADs"}, {"Fold or unfold this panel", "Replier ou déplier ce panneau"}},
        {"LbWADs", {"Allocated WADs (letters)", "WADs (lettres) assignés"}, {}},
        {"LiWAD", {}, {"Levels that include the sound", "Niveaux qui comprennent le son"}},
    };
    showCaptions(*this, captions, language);
    lineShown();
}

void LineLettersPanel::paintWith(const ColourPair& pair)
{
    tavrel::paintWith(*m_list, pair);
}

void LineLettersPanel::lineShown()
{
    const QSignalBlocker blocker(m_list);
    const int row = m_list->currentRow();
    m_list->clear();
    for (std::size_t i = 0; i < selection().carriedLetters().size(); ++i) {
        m_list->addItem(fromCodePage(entryOf(i)));
    }
    if (const std::optional<std::size_t> letter = selection().letter()) {
        m_list->setCurrentRow(static_cast<int>(*letter));
    } else if (m_list->hasFocus() && m_list->count() > 0) { // the keys go on from where they were
        m_list->setCurrentRow(std::clamp(row, 0, m_list->count() - 1), QItemSelectionModel::NoUpdate);
    }
}

// Of several sounds it tells how many carry the letter, unless all do.
std::string LineLettersPanel::entryOf(std::size_t letter) const
{
    const auto& [name, sounds] = selection().carriedLetters()[letter];
    SoundLine line;
    line.Letters = "#" + name;
    std::string entry =
        letterEntries(line, session().references(), session().wad(), language(), selection().justAdded())
            .front();
    const std::size_t all = selection().editor().lines().size();
    if (selection().isSeveral() && sounds < all) {
        entry += " (" + std::to_string(sounds) + "/" + std::to_string(all) + ")";
    }
    return entry;
}

} // namespace tavrel
