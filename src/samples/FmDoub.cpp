// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/FmDoub.h"

#include "base/Titles.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/TickList.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace tavrel {

namespace {

const Title& title = titles::manageDoubles;

} // namespace

FmDoub::FmDoub(QWidget* parent, const std::filesystem::path& programFolder,
               std::span<const std::size_t> protectedNumbers, const ColourScheme& colours, Language language,
               Dialogs& dialogs)
    : TitledWindow(parent), m_dialogs(dialogs), m_list(new TickList("LiDoub")),
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
    connect(m_tickAll, &QPushButton::clicked, this, [this] { m_list->tickAll(true); });
    connect(m_untickAll, &QPushButton::clicked, this, [this] { m_list->tickAll(false); });
    connect(m_ok, &QPushButton::clicked, this, &FmDoub::apply);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    Result<DoublesRegister> loaded = DoublesRegister::load(programFolder);
    if (loaded) {
        m_register = std::move(*loaded);
    }
    fillList(protectedNumbers, language);
    m_list->ensurePolished(); // the style sheet sets frame and padding
    findChild<QLabel*>("LbColumns")->setIndent(m_list->textStart());
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

void FmDoub::fillList(std::span<const std::size_t> protectedNumbers, Language language)
{
    if (!m_register) {
        return;
    }
    const QString neverTakesPart =
        inLanguage(BilingualText("Protected sound: it never takes part, ticked or not",
                                 "Son protégé : il ne participe jamais, coché ou non"),
                   language);
    const auto why = [this, neverTakesPart,
                      numbers =
                          std::vector(protectedNumbers.begin(), protectedNumbers.end())](std::size_t row) {
        return std::ranges::find(numbers, m_register->number(row)) != numbers.end() ? neverTakesPart
                                                                                    : QString();
    };
    m_list->setRows({m_register->size(),
                     [this](std::size_t row) { return fromCodePage(m_register->row(row)); },
                     {},
                     why,
                     [this](std::size_t row) { return m_register->isTicked(row); }});
    if (m_list->rows() > 0) {
        m_list->selectRow(0);
    }
}

void FmDoub::apply()
{
    for (std::size_t i = 0; i < m_register->size(); ++i) {
        m_register->tick(i, m_list->isTicked(i));
    }
    if (const Problem problem = m_register->save()) {
        m_dialogs.show({MessageIcon::Exclamation, title, problem->text});
        return;
    }
    accept();
}

} // namespace tavrel
