// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/FmVersions.h"

#include "base/CodePage.h"
#include "base/Titles.h"
#include "ui/BusyPointer.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"
#include "versions/CatalogueComparison.h"
#include "versions/FmCompare.h"
#include "versions/VersionCommands.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

constexpr int columnGap = 16;

QTreeWidget* makeVersionList(const ColourPair& colours)
{
    auto* const list = named(new QTreeWidget, "LiVersions");
    list->setFont(fixedPitchFont());
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    paintWith(*list, colours);
    return list;
}

} // namespace

FmVersions::FmVersions(QWidget* parent, const VersionsContext& context)
    : TitledWindow(parent), m_context(context),
      m_list(makeVersionList(context.colours.slots[versionsColourSlot])), m_said(makePaperLabel("LbSaid")),
      m_compare(makeButton("CdCompare", Glyph::Search)),
      m_bringBack(makeButton("CdBringBack", Glyph::RestoreLine))
{
    setObjectName("FmVersions");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    layOut();
    showCaptions();
    connect(m_list, &QTreeWidget::currentItemChanged, this, &FmVersions::showPossibilities);
    connect(m_list, &QTreeWidget::itemActivated, this, &FmVersions::compare);
    connect(m_compare, &QPushButton::clicked, this, &FmVersions::compare);
    connect(m_bringBack, &QPushButton::clicked, this, &FmVersions::bringBack);
    connect(findChild<QPushButton*>("CdClose"), &QPushButton::clicked, this, &QDialog::reject);
    fill();
    m_list->setFocus();
}

QString FmVersions::inLanguage(const BilingualText& text) const
{
    return tavrel::inLanguage(text, m_context.language);
}

void FmVersions::layOut()
{
    constexpr int margin = 2 * controlGap;
    auto* const buttons = rowOf({m_compare, m_bringBack, makeButton("CdClose", Glyph::Close)});
    buttons->insertStretch(2, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(m_list, 1);
    content().addWidget(m_said);
    content().addLayout(buttons);
    resize(860, 520);
}

void FmVersions::showCaptions()
{
    const BilingualText close("Close", "Fermer");
    const Caption captions[] = {
        {"LiVersions",
         {},
         {"What is kept, newest first; Enter compares",
          "Ce qui est conservé, du plus récent au plus ancien ; Entrée compare"}},
        {"CdCompare",
         {"Compare...", "Comparer..."},
         {"Show what differs from now, and take over lines of it",
          "Montrer ce qui diffère de maintenant, et en reprendre des lignes"}},
        {"CdBringBack",
         {"Bring back", "Remettre"},
         {"All its lines, as one step that can be undone; or a whole set of files",
          "Toutes ses lignes, en une étape qui peut être annulée ; ou un ensemble de fichiers"}},
        {"CdClose", close, close},
    };
    tavrel::showCaptions(*this, captions, m_context.language);
    setWindowTitle(inLanguage(titles::versions));
    m_list->setHeaderLabels({inLanguage({"Time", "Date"}), inLanguage({"What it is", "Nature"}),
                             inLanguage({"Differs in", "Diffère par"}), inLanguage({"Name", "Nom"})});
}

void FmVersions::fill()
{
    const BusyPointer busy;
    const int place = m_list->indexOfTopLevelItem(m_list->currentItem());
    m_list->clear();
    m_versions.clear();
    Result<std::vector<KeptVersion>> kept = listKeptVersions(m_context.places);
    if (kept) {
        m_versions = std::move(*kept);
    }
    const std::vector<std::string_view> now = currentLinesOf(m_context.catalogue);
    for (const KeptVersion& version : m_versions) {
        const BilingualText extent = extentOf(version, now);
        auto* const item =
            new QTreeWidgetItem(m_list, {QString::fromStdString(version.time), inLanguage(describe(version)),
                                         inLanguage(extent), fromCodePage(version.name)});
        item->setToolTip(3, plainToolTip(QString::fromStdString(displayPath(version.path))));
    }
    for (int column = 0; column < m_list->columnCount(); ++column) {
        m_list->resizeColumnToContents(column);
        m_list->setColumnWidth(column, m_list->columnWidth(column) + columnGap);
    }
    if (!m_versions.empty()) {
        m_list->setCurrentItem(m_list->topLevelItem(std::clamp(place, 0, m_list->topLevelItemCount() - 1)));
    }
    const BilingualText said =
        !kept ? kept.failure().text
        : m_versions.empty()
            ? BilingualText("Nothing is kept yet: each apply keeps what it replaces.",
                            "Rien n'est encore conservé : chaque application conserve ce qu'elle remplace.")
            : BilingualText();
    setPaperText(*m_said, inLanguage(said), !kept);
    m_said->setVisible(!said.empty());
    showPossibilities();
}

const KeptVersion* FmVersions::selected() const
{
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    return row < 0 ? nullptr : &m_versions[static_cast<std::size_t>(row)];
}

void FmVersions::showPossibilities()
{
    const KeptVersion* const version = selected();
    m_compare->setEnabled(version != nullptr && !version->isSet());
    m_bringBack->setEnabled(version != nullptr && (!version->isSet() || m_context.bringSetBack));
}

void FmVersions::compare()
{
    const KeptVersion* const version = selected();
    if (version == nullptr || version->isSet()) {
        return;
    }
    FmCompare window(this, m_context, version->path);
    window.exec();
    if (window.tookOver()) {
        fill();
    }
}

void FmVersions::bringBack()
{
    const KeptVersion* const version = selected();
    if (version == nullptr) {
        return;
    }
    if (version->isSet()) {
        if (m_context.bringSetBack(*version)) {
            fill();
        }
        return;
    }
    std::optional<std::vector<SoundCatalogue::LineChange>> changes =
        confirmBringingBack(m_context.catalogue, *version, m_context.dialogs);
    const BilingualText step =
        BilingualText("Bring back the version of ", "Remise de la version du ") + version->time;
    if (changes && m_context.change(std::move(*changes), step)) {
        fill();
    }
}

} // namespace tavrel
