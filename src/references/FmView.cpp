// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/FmView.h"

#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr std::size_t colourSlot = 1;
constexpr int nameWidth = 20;

// "!" lacks the letter, "*" was changed for this WAD.
QString textOf(const WadViewRow& row, const SoundCatalogue& catalogue)
{
    QString text = row.lacking ? "!" : " ";
    text += row.changed ? "* " : "  ";
    if (!row.name.empty()) {
        text += fromCodePage(row.name).leftJustified(nameWidth) + " ";
    }
    if (row.sound) {
        text += fromCodePage(catalogue.listEntry(*row.sound));
    }
    return text;
}

void fill(QListWidget& list, const std::vector<WadViewRow>& rows, const SoundCatalogue& catalogue)
{
    for (const WadViewRow& row : rows) {
        auto* const item = new QListWidgetItem(textOf(row, catalogue), &list);
        if (row.lacking) {
            item->setForeground(theme::accent);
        }
    }
}

} // namespace

FmView::FmView(QWidget* parent, const SoundCatalogue& catalogue, const CurrentWad& wad, const WadView& view,
               const ColourScheme& colours, Language language)
    : TitledWindow(parent), m_samples(makeFixedPitchList("LiSAM")), m_objects(makeFixedPitchList("LiWAS")),
      m_surplus(makeFixedPitchList("LiSurplus"))
{
    setObjectName("FmView");
    setWindowModality(Qt::ApplicationModal);
    layOut(colours);
    showCaptions(language);
    const std::string name =
        fromCodePage(wad.wadName).toStdString() + " / #" + fromCodePage(wad.letter).toStdString();
    setWindowTitle(inLanguage(BilingualText("SAM/WAS file - ", "Fichier SAM/WAS - ") + name, language));
    fill(*m_samples, view.samples, catalogue);
    fill(*m_objects, view.objects, catalogue);
    fill(*m_surplus, view.surplus, catalogue);
    auto* const notices = findChild<QLabel*>("LbNotices");
    for (const Failure& notice : view.notices) {
        notices->setText(notices->text() + (notices->text().isEmpty() ? "" : "\n") +
                         inLanguage(notice.text, language));
    }
    notices->setVisible(!view.notices.empty());
}

void FmView::layOut(const ColourScheme& colours)
{
    constexpr int margin = 2 * controlGap;
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(margin);
    grid->setVerticalSpacing(controlGap);
    grid->addWidget(makeHeading("LbSAM"), 0, 0);
    grid->addWidget(makeHeading("LbWAS"), 0, 1);
    grid->addWidget(m_samples, 1, 0);
    grid->addWidget(m_objects, 1, 1);
    grid->setRowStretch(1, 3);
    for (QListWidget* const list : {m_samples, m_objects, m_surplus}) {
        paintWith(*list, colours.slots[colourSlot]);
    }
    auto* const notices = named(new QLabel, "LbNotices");
    notices->setTextFormat(Qt::PlainText);
    notices->setWordWrap(true);
    auto* const close = makeButton("CdClose", Glyph::Close);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* const legend = named(new QLabel, "LbLegend");
    legend->setProperty("muted", true);
    auto* const last = rowOf({legend, close});
    last->setStretch(0, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(notices);
    content().addLayout(grid, 3);
    content().addWidget(makeHeading("LbSurplus"));
    content().addWidget(m_surplus, 1);
    content().addLayout(last);
    resize(1000, 620);
}

void FmView::showCaptions(Language language)
{
    const BilingualText samples("Samples of the WAD (.SAM) and their sounds",
                                "Samples du WAD (.SAM) et leurs sons");
    const BilingualText objects("Objects of the WAD (.WAS) and their sounds",
                                "Objets du WAD (.WAS) et leurs sons");
    const BilingualText surplus("Sounds with the letter that neither list asks for",
                                "Sons portant la lettre sans qu'aucune liste ne les demande");
    const BilingualText close("Close", "Fermer");
    const Caption captions[] = {
        {"LbSAM", samples, {}},
        {"LiSAM", {}, samples},
        {"LbWAS", objects, {}},
        {"LiWAS", {}, objects},
        {"LbSurplus", surplus, {}},
        {"LiSurplus", {}, surplus},
        {"LbLegend",
         {"!  without the letter, or a sample that no sound uses     *  changed for this WAD",
          "!  sans la lettre, ou sample qu'aucun son n'utilise     *  modifié pour ce WAD"},
         {}},
        {"CdClose", close, close},
    };
    tavrel::showCaptions(*this, captions, language);
}

} // namespace tavrel
