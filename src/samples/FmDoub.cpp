// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/FmDoub.h"

#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace tavrel {

namespace {

const BilingualText title("Manage doubles", "Gérer les doublons");

} // namespace

FmDoub::FmDoub(QWidget* parent, const std::filesystem::path& programFolder, const ColourScheme& colours,
               Language language, Dialogs& dialogs)
    : TitledWindow(parent), m_dialogs(dialogs), m_list(makeFixedPitchList("LiDoub")),
      m_tickAll(makeButton("CdTickAll", Glyph::Accept)),
      m_untickAll(makeButton("CdUntickAll", Glyph::RemoveItem)), m_ok(makeButton("CdOK", Glyph::Apply)),
      m_close(makeButton("CdClose", Glyph::Close))
{
    setObjectName("FmDoub");
    setWindowModality(Qt::ApplicationModal);
    layOut();
    paintWith(*m_list, colours.slots[ColourScheme::mainWindowSlot]);
    showCaptions(language);
    connect(m_tickAll, &QPushButton::clicked, this, [this] { tickAll(true); });
    connect(m_untickAll, &QPushButton::clicked, this, [this] { tickAll(false); });
    connect(m_ok, &QPushButton::clicked, this, &FmDoub::apply);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    Result<DoublesRegister> loaded = DoublesRegister::load(programFolder);
    if (loaded) {
        m_register = std::move(*loaded);
    }
    fillList();
    m_ok->setEnabled(m_register.has_value());
    if (!loaded) {
        m_list->addItem(inLanguage(loaded.failure().text, language));
    }
}

void FmDoub::layOut()
{
    constexpr int margin = 2 * controlGap;
    auto* const columns = named(new QLabel, "LbColumns");
    columns->setTextFormat(Qt::PlainText);
    columns->setFont(fixedPitchFont());
    // The titles stand over the texts, which begin behind the tick boxes.
    columns->setIndent(style()->pixelMetric(QStyle::PM_IndicatorWidth) + 2 * controlGap);
    auto* const ticks = rowOf({m_tickAll, m_untickAll});
    ticks->addStretch(1);
    auto* const buttons = rowOf({m_ok, m_close});
    buttons->insertStretch(0, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addLayout(ticks);
    content().addWidget(columns);
    content().addWidget(m_list, 1);
    content().addWidget(named(new QLabel, "LbTip"));
    content().addLayout(buttons);
    resize(640, 560);
}

void FmDoub::showCaptions(Language language)
{
    const auto both = [](const char* control, const BilingualText& text) {
        return Caption{control, text, text};
    };
    const Caption captions[] = {
        {"LbColumns",
         {"  ID          Sound name                        Samples",
          "  ID          Nom du son                        Samples"},
         {}},
        {"LiDoub",
         {},
         {"Ticked sounds take part when a SAM file is loaded",
          "Les sons cochés participent au chargement d'un fichier SAM"}},
        {"LbTip",
         {"Unselected sounds will never be applied when loading SAM",
          "Les sons non cochés ne seront jamais appliqués lors du chargement du fichier SAM"},
         {}},
        both("CdTickAll", {"Tick all", "Tout cocher"}),
        both("CdUntickAll", {"Untick all", "Tout décocher"}),
        both("CdOK", {"Apply Modifications", "Appliquer les Modifications"}),
        both("CdClose", {"Close", "Fermer"}),
    };
    tavrel::showCaptions(*this, captions, language);
    setWindowTitle(inLanguage(title, language));
}

void FmDoub::fillList()
{
    for (std::size_t i = 0; m_register && i < m_register->size(); ++i) {
        auto* const item = new QListWidgetItem(fromCodePage(m_register->row(i)), m_list);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(m_register->isTicked(i) ? Qt::Checked : Qt::Unchecked);
    }
}

void FmDoub::tickAll(bool ticked)
{
    for (int row = 0; m_register && row < m_list->count(); ++row) {
        m_list->item(row)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
    }
}

void FmDoub::apply()
{
    for (std::size_t i = 0; i < m_register->size(); ++i) {
        m_register->tick(i, m_list->item(static_cast<int>(i))->checkState() == Qt::Checked);
    }
    if (const Problem problem = m_register->save()) {
        m_dialogs.show({MessageIcon::Exclamation, title, problem->text});
        return;
    }
    accept();
}

} // namespace tavrel
