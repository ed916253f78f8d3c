// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/FmDoub.h"

#include "base/Titles.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

const BilingualText& title = titles::manageDoubles;

} // namespace

FmDoub::FmDoub(QWidget* parent, const std::filesystem::path& programFolder,
               std::span<const std::size_t> protectedNumbers, const ColourScheme& colours, Language language,
               Dialogs& dialogs)
    : TitledWindow(parent), m_dialogs(dialogs), m_list(makeFixedPitchList("LiDoub")),
      m_tickAll(makeButton("CdTickAll", Glyph::Accept)),
      m_untickAll(makeButton("CdUntickAll", Glyph::RemoveItem)), m_ok(makeButton("CdOK", Glyph::Apply)),
      m_close(makeButton("CdClose", Glyph::Close))
{
    setObjectName("FmDoub");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
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
    fillList(protectedNumbers, language);
    findChild<QLabel*>("LbColumns")->setIndent(textIndent());
    for (QPushButton* const button : {m_tickAll, m_untickAll, m_ok}) {
        button->setEnabled(m_register.has_value());
    }
    m_list->setFocus(); // a key pressed by habit must not change all ticks
    if (!loaded) {
        // When the window stands behind it.
        QTimer::singleShot(0, this, [this, text = loaded.failure().text] {
            m_dialogs.show({MessageIcon::Exclamation, title, text});
        });
    }
}

void FmDoub::layOut()
{
    constexpr int margin = 2 * controlGap;
    auto* const columns = named(new QLabel, "LbColumns"); // spaced for the font of the captions
    columns->setTextFormat(Qt::PlainText);
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

// Where the rows' texts begin, behind the tick boxes.
int FmDoub::textIndent() const
{
    m_list->ensurePolished(); // the style sheet sets frame and padding
    QStyleOptionViewItem option;
    option.initFrom(m_list->viewport());
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    option.font = m_list->font();
    option.text = "0";
    option.rect = QRect(0, 0, 200, 20);
    const QRect text = m_list->style()->subElementRect(QStyle::SE_ItemViewItemText, &option, m_list);
    const int margin = m_list->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, m_list) + 1;
    return m_list->frameWidth() + text.left() + margin;
}

void FmDoub::fillList(std::span<const std::size_t> protectedNumbers, Language language)
{
    const BilingualText neverTakesPart("Protected sound: it never takes part, ticked or not",
                                       "Son protégé : il ne participe jamais, coché ou non");
    for (std::size_t i = 0; m_register && i < m_register->size(); ++i) {
        auto* const item = new QListWidgetItem(fromCodePage(m_register->row(i)), m_list);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(m_register->isTicked(i) ? Qt::Checked : Qt::Unchecked);
        if (std::ranges::find(protectedNumbers, m_register->number(i)) != protectedNumbers.end()) {
            item->setToolTip(inLanguage(neverTakesPart, language));
        }
    }
    m_list->setCurrentRow(0);
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
