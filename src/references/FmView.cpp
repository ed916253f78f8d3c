// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/FmView.h"

#include "base/FailureTexts.h"
#include "base/Titles.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <algorithm>
#include <set>

namespace tavrel {

namespace {

constexpr std::size_t viewColourSlot = 1;
constexpr qsizetype widestName = 24;
constexpr int wholeRow = Qt::UserRole; // where the name is cut

QString marksOf(const WadViewRow& row)
{
    QString marks = " ";
    if (row.mark != WadViewMark::None) {
        marks = row.mark == WadViewMark::Lacking ? "!" : "-";
    }
    return marks + (row.saved ? "* " : "  ");
}

std::size_t countNames(const WadViewRows& rows)
{
    std::set<std::string_view> names;
    for (const WadViewRow& row : rows ? *rows : std::vector<WadViewRow>()) {
        names.insert(row.name);
    }
    return names.size() - names.count(std::string_view()); // without the sound that is always asked for
}

} // namespace

FmView::FmView(QWidget* parent, const SoundCatalogue& catalogue, const CurrentWad& wad, const WadView& view,
               const ColourScheme& colours, Language language)
    : TitledWindow(parent), m_catalogue(catalogue), m_marked(markColour(colours.slots[viewColourSlot])),
      m_language(language), m_samples{makeHeading("LbSAM"), makeFixedPitchList("LiSAM")},
      m_objects{makeHeading("LbWAS"), makeFixedPitchList("LiWAS")}, m_surplus{makeHeading("LbSurplus"),
                                                                              makeFixedPitchList("LiSurplus")}
{
    setObjectName("FmView");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    layOut(colours.slots[viewColourSlot]);
    showCaptions();
    const std::string name =
        fromCodePage(wad.wadName).toStdString() + " / #" + fromCodePage(wad.letter).toStdString();
    setWindowTitle(inLanguage(titles::wadView + name, language));
    fillNamed(m_samples, view.samples, {"no sound uses it", "aucun son ne l'utilise"});
    fillNamed(m_objects, view.objects, {"no sounds in the object table", "aucun son dans la table d'objets"});
    fillPlain(m_surplus, view.surplus);
    auto* const notices = findChild<QLabel*>("LbNotices");
    notices->setText(inLanguage(listOf(view.notices), language));
    notices->setVisible(!view.notices.empty());
}

void FmView::layOut(const ColourPair& colours)
{
    constexpr int margin = 2 * controlGap;
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(margin);
    grid->setVerticalSpacing(controlGap);
    int column = 0;
    for (const Section& section : {m_samples, m_objects}) {
        grid->addWidget(section.heading, 0, column);
        grid->addWidget(section.list, 1, column++);
    }
    grid->setRowStretch(1, 3);
    for (const Section& section : {m_samples, m_objects, m_surplus}) {
        paintWith(*section.list, colours);
    }
    auto* const notices = named(new QLabel, "LbNotices");
    notices->setTextFormat(Qt::PlainText);
    notices->setWordWrap(true);
    auto* const copy = makeButton("CdCopyList", Glyph::CopyLine);
    connect(copy, &QPushButton::clicked, this, &FmView::copyLists);
    auto* const close = makeButton("CdClose", Glyph::Close);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* const legend = named(new QLabel, "LbLegend");
    legend->setProperty("muted", true);
    auto* const last = rowOf({legend, copy, close});
    last->setStretch(0, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    notices->setContentsMargins(0, 0, 0, controlGap);
    content().addWidget(notices);
    content().addLayout(grid, 3);
    content().addWidget(m_surplus.heading);
    content().addWidget(m_surplus.list, 1);
    content().addLayout(last);
    resize(1040, 660);
}

void FmView::showCaptions()
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
         {"!  without the letter, or used by no sound     -  left out by the doubles     *  saved for this WAD",
          "!  sans la lettre, ou utilisé par aucun son     -  écarté par les doublons     *  enregistré pour ce "
          "WAD"},
         {}},
        {"CdCopyList",
         {"Copy the lists", "Copier les listes"},
         {"Copy the three lists to clipboard", "Copier les trois listes dans le presse papiers"}},
        {"CdClose", close, close},
    };
    tavrel::showCaptions(*this, captions, m_language);
}

void FmView::fillNamed(const Section& section, const WadViewRows& rows, const BilingualText& withoutSound)
{
    if (!startSection(section, rows, countNames(rows))) {
        return;
    }
    qsizetype width = 0;
    for (const WadViewRow& row : *rows) {
        width = std::min(std::max(width, nameOf(row).size()), widestName);
    }
    for (const WadViewRow& row : *rows) {
        const QString name = nameOf(row);
        const QString shown = name.size() > width ? name.left(width - 1) + "…" : name;
        const QString sound = row.sound ? fromCodePage(m_catalogue.listEntry(*row.sound))
                                        : inLanguage(withoutSound, m_language);
        QListWidgetItem& item = addRow(section, row, shown.leftJustified(width) + " " + sound);
        item.setToolTip(name);
        item.setData(wholeRow, marksOf(row) + name.leftJustified(width) + " " + sound);
    }
}

void FmView::fillPlain(const Section& section, const WadViewRows& rows)
{
    if (startSection(section, rows, rows ? rows->size() : 0)) {
        for (const WadViewRow& row : *rows) {
            addRow(section, row, fromCodePage(m_catalogue.listEntry(*row.sound)));
        }
    }
}

bool FmView::startSection(const Section& section, const WadViewRows& rows, std::size_t count)
{
    if (!rows) {
        say(section, section.list == m_surplus.list
                         ? BilingualText("not known without both lists", "inconnu sans les deux listes")
                         : BilingualText("no list", "pas de liste"));
        return false;
    }
    section.heading->setText(section.heading->text() + QString(" (%1)").arg(count));
    if (rows->empty()) {
        say(section, {"none", "aucun"});
    }
    return true;
}

QListWidgetItem& FmView::addRow(const Section& section, const WadViewRow& row, const QString& text)
{
    auto* const item = new QListWidgetItem(marksOf(row) + text, section.list);
    if (row.mark == WadViewMark::Lacking) {
        item->setForeground(m_marked);
    }
    return *item;
}

// Instead of rows.
void FmView::say(const Section& section, const BilingualText& text)
{
    auto* const item = new QListWidgetItem("   " + inLanguage(text, m_language), section.list);
    item->setFlags(Qt::ItemIsEnabled);
}

QString FmView::nameOf(const WadViewRow& row) const
{
    return row.name.empty() ? inLanguage({"(always)", "(toujours)"}, m_language) : fromCodePage(row.name);
}

void FmView::copyLists()
{
    QStringList lines;
    for (const Section& section : {m_samples, m_objects, m_surplus}) {
        lines += section.heading->text();
        for (int row = 0; row < section.list->count(); ++row) {
            const QListWidgetItem& item = *section.list->item(row);
            const QVariant whole = item.data(wholeRow);
            QString line = whole.isValid() ? whole.toString() : item.text();
            line.truncate(line.lastIndexOf(QRegularExpression("\\S")) + 1);
            lines += line;
        }
        lines += QString();
    }
    QApplication::clipboard()->setText(lines.join("\n"));
}

} // namespace tavrel
