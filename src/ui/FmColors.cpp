// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/FmColors.h"

#include "base/Titles.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrel {

namespace {

// Narrow enough to stand beside the list that a preview repaints, on a small screen too.
constexpr QSize swatchSize(54, 26);
constexpr int nameWidth = 150;

// Which windows a slot paints.
const std::array<BilingualText, ColourScheme::slotCount> rowNames = {{
    {"Main window, samples", "Fenêtre principale, samples"},
    {"WAD content viewer", "Contenu d'un WAD"},
    {"Samples check, references, export", "Contrôle des samples, références, export"},
    {"Export: object names", "Export : noms d'objets"},
    {"Import: lines", "Import : lignes"},
    {"Help, sounds.txt", "Aide, sounds.txt"},
}};

QPushButton* makeSwatch(const char* name, std::size_t slot)
{
    auto* const swatch = new QPushButton;
    swatch->setObjectName(name + QString::number(slot));
    swatch->setAutoDefault(false);
    swatch->setFixedSize(swatchSize);
    return swatch;
}

QString ruleFor(const QWidget& widget, const ColourPair& pair)
{
    return QString("#%1 { background: %2; color: %3; padding: 3px 8px; }")
        .arg(widget.objectName(), colourFrom(pair.back).name(), colourFrom(pair.text).name());
}

void paintSwatch(QPushButton& swatch, ColourValue colour)
{
    const QString name = swatch.objectName();
    const QString shade = colourFrom(colour).name();
    swatch.setStyleSheet(QString("#%1 { background: %2; border: 1px solid #6A6E76; border-radius: 3px; }"
                                 "#%1:hover, #%1:focus { border: 2px solid %3; }")
                             .arg(name, shade, theme::accent.name()));
    swatch.setAccessibleDescription(shade.toUpper());
}

} // namespace

FmColors::FmColors(QWidget* parent, ColourScheme& scheme, Language language, Dialogs& dialogs,
                   PaintMainWindow paintMainWindow)
    : TitledWindow(parent), m_scheme(scheme), m_shown(scheme), m_language(language), m_dialogs(dialogs),
      m_paintMainWindow(std::move(paintMainWindow)), m_rows(), m_warning(named(new QLabel, "LbWarning")),
      m_preview(makeButton("CdVoir", Glyph::ShowGlobals)),
      m_defaults(makeButton("CdDefaut", Glyph::RestoreLine)), m_apply(makeButton("CdValid", Glyph::Apply)),
      m_close(makeButton("CdClose", Glyph::Close))
{
    setObjectName("FmColors");
    setWindowModality(Qt::ApplicationModal);
    layOut();
    showCaptions();
    showColours();
    connect(m_preview, &QPushButton::clicked, this, [this] { paintMain(m_shown); });
    connect(m_defaults, &QPushButton::clicked, this, &FmColors::restoreDefaults);
    connect(m_apply, &QPushButton::clicked, this, &FmColors::apply);
    connect(m_close, &QPushButton::clicked, this, &FmColors::reject);
}

void FmColors::layOut()
{
    enum Column { Name, Back, Text, Example, Repeat };
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(controlGap);
    grid->setVerticalSpacing(controlGap);
    grid->addWidget(makeHeading("LbWindow"), 0, Name);
    grid->addWidget(makeHeading("LbBack"), 0, Back, Qt::AlignHCenter);
    grid->addWidget(makeHeading("LbFore"), 0, Text, Qt::AlignHCenter);
    for (std::size_t slot = 0; slot < m_rows.size(); ++slot) {
        const int line = static_cast<int>(slot) + 1;
        Row& row = m_rows[slot];
        row = {makeSwatch("PbColB", slot), makeSwatch("PbColF", slot), new QLabel,
               makeButton("CdRepeat", Glyph::CopyLine)};
        row.LbExem->setObjectName("LbExem" + QString::number(slot));
        row.CdRepeat->setObjectName("CdRepeat" + QString::number(slot));
        auto* const name = new QLabel(inLanguage(rowNames[slot], m_language));
        name->setWordWrap(true);
        name->setFixedWidth(nameWidth);
        grid->addWidget(name, line, Name);
        grid->addWidget(row.PbColB, line, Back);
        grid->addWidget(row.PbColF, line, Text);
        grid->addWidget(row.LbExem, line, Example);
        grid->addWidget(row.CdRepeat, line, Repeat);
        connect(row.PbColB, &QPushButton::clicked, this, [this, slot] { pick(m_shown.slots[slot].back); });
        connect(row.PbColF, &QPushButton::clicked, this, [this, slot] { pick(m_shown.slots[slot].text); });
        connect(row.CdRepeat, &QPushButton::clicked, this, [this, slot] { copyToOthers(slot); });
    }
    m_warning->setWordWrap(true);
    m_warning->setMinimumWidth(1);                                           // it never widens the window
    m_warning->setMinimumHeight(2 * m_warning->fontMetrics().lineSpacing()); // nor moves the rows
    m_warning->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_warning->setStyleSheet(QString("color: %1").arg(theme::accent.name()));
    auto* const trials = rowOf({m_preview, m_defaults});
    trials->addStretch(1);
    auto* const buttons = rowOf({m_apply, m_close});
    buttons->insertStretch(0, 1);

    constexpr int margin = 2 * controlGap;
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    content().addLayout(grid);
    content().addLayout(trials);
    content().addWidget(m_warning);
    content().addStretch(1);
    content().addLayout(buttons);
}

void FmColors::showCaptions()
{
    const BilingualText repeat("Copy color to all others", "Copier la couleur sur les autres");
    const Caption captions[] = {
        {"LbWindow", {"Window", "Fenêtre"}, {}},
        {"LbBack", {"Back", "Fond"}, {}},
        {"LbFore", {"Text", "Texte"}, {}},
        {"CdVoir",
         {"Check out", "Voir ce que ça donne"},
         {"Show the first colors on the main window",
          "Montrer les premières couleurs dans la fenêtre principale"}},
        {"CdDefaut",
         {"Restore default colors", "Restaurer les couleurs par défaut"},
         {"Restore default colors, at once", "Restaurer les couleurs par défaut, immédiatement"}},
        {"CdValid",
         {"Apply colors", "Appliquer les couleurs"},
         {"Apply these colors and close", "Appliquer ces couleurs et fermer"}},
        {"CdClose", {"Close", "Fermer"}, {"Close without applying", "Fermer sans appliquer"}},
    };
    tavrel::showCaptions(*this, captions, m_language);
    for (const Row& row : m_rows) {
        row.PbColB->setToolTip(
            inLanguage({"Choose the background", "Choisir la couleur de fond"}, m_language));
        row.PbColF->setToolTip(
            inLanguage({"Choose the color of the text", "Choisir la couleur du texte"}, m_language));
        row.PbColB->setAccessibleName(row.PbColB->toolTip());
        row.PbColF->setAccessibleName(row.PbColF->toolTip());
        row.LbExem->setText(inLanguage({"Text example", "Exemple de texte"}, m_language));
        row.CdRepeat->setText(inLanguage(repeat, m_language));
        row.CdRepeat->setToolTip(inLanguage(repeat, m_language));
    }
    setWindowTitle(inLanguage(titles::colours, m_language));
}

void FmColors::showColours()
{
    for (std::size_t slot = 0; slot < m_rows.size(); ++slot) {
        const ColourPair& pair = m_shown.slots[slot];
        paintSwatch(*m_rows[slot].PbColB, pair.back);
        paintSwatch(*m_rows[slot].PbColF, pair.text);
        m_rows[slot].LbExem->setStyleSheet(ruleFor(*m_rows[slot].LbExem, pair));
    }
    showWarning();
}

void FmColors::showWarning()
{
    QStringList weak;
    for (std::size_t slot = 0; slot < m_rows.size(); ++slot) {
        if (contrastOf(m_shown.slots[slot]) < leastContrast) {
            weak += inLanguage(rowNames[slot], m_language);
        }
    }
    const BilingualText text("Hard to read: ", "Difficile à lire : ");
    m_warning->setText(weak.empty() ? QString() : inLanguage(text, m_language) + weak.join(" / "));
}

void FmColors::pick(ColourValue& colour)
{
    if (const std::optional<ColourValue> chosen = m_dialogs.chooseColour(colour)) {
        colour = *chosen;
        showColours();
    }
}

void FmColors::copyToOthers(std::size_t slot)
{
    m_shown.slots.fill(ColourPair(m_shown.slots[slot]));
    showColours();
}

void FmColors::restoreDefaults()
{
    const Question question{titles::defaultColours,
                            {"Restore Default colors", "Restaurer les couleurs par Défaut"},
                            Buttons::YesNo};
    if (m_dialogs.ask(question) == Answer::Yes) {
        m_scheme = ColourScheme();
        m_shown = m_scheme;
        showColours();
        paintMain(m_scheme);
    }
}

void FmColors::apply()
{
    m_scheme = m_shown;
    paintMain(m_scheme);
    accept();
}

void FmColors::reject()
{
    paintMain(m_scheme); // a preview ends
    TitledWindow::reject();
}

void FmColors::paintMain(const ColourScheme& scheme) const
{
    m_paintMainWindow(scheme.slots[ColourScheme::mainWindowSlot]);
}

} // namespace tavrel
