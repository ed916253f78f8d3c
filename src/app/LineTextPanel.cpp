// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LineTextPanel.h"

#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr int tabStop = 8;

// A line of sounds.txt as it stands, TABs at the level editor's stops.
QPlainTextEdit* makeLineView(const char* name)
{
    auto* const view = named(new QPlainTextEdit, name);
    view->setReadOnly(true);
    view->setTabChangesFocus(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const QFont font = fixedPitchFont();
    view->setFont(font);
    const QFontMetricsF metrics(font);
    view->setTabStopDistance(tabStop * metrics.horizontalAdvance(' '));
    view->document()->setDocumentMargin(3);
    constexpr int frame = 8;
    view->setFixedHeight(static_cast<int>(metrics.lineSpacing()) + frame);
    return view;
}

void scrollTogether(const QPlainTextEdit& one, const QPlainTextEdit& other)
{
    QObject::connect(one.horizontalScrollBar(), &QScrollBar::valueChanged, other.horizontalScrollBar(),
                     &QScrollBar::setValue);
    QObject::connect(other.horizontalScrollBar(), &QScrollBar::valueChanged, one.horizontalScrollBar(),
                     &QScrollBar::setValue);
}

} // namespace

LineTextPanel::LineTextPanel(const PanelContext& context)
    : FoldingPanel("ImPanelL", nullptr), MainPanel(context), m_number(makeReadOnly("TxLine")),
      m_original(makeLineView("TxOrig")), m_fileLabel(named(new QLabel, "LbFile")),
      m_file(makeLineView("TxFile")), m_modified(makeLineView("TxModif"))
{
    m_number->setFixedWidth(64);
    scrollTogether(*m_modified, *m_original);
    scrollTogether(*m_modified, *m_file);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(controlGap);
    grid->setVerticalSpacing(4);
    grid->addWidget(named(new QLabel, "LbOrig"), 0, 0);
    grid->addWidget(m_original, 0, 1);
    grid->addWidget(m_fileLabel, 1, 0);
    grid->addWidget(m_file, 1, 1);
    grid->addWidget(named(new QLabel, "LbModif"), 2, 0);
    grid->addWidget(m_modified, 2, 1);
    auto* const number = rowOf({named(new QLabel, "LbLine"), m_number});
    number->addStretch(1);
    content().addLayout(number);
    content().addLayout(grid);
    lineShown();
}

void LineTextPanel::showLanguage(Language language)
{
    const BilingualText lineInFile("Line in sounds.txt", "Ligne dans sounds.txt");
    const Caption captions[] = {
        {"ImPanelL", lineInFile, {"Fold or unfold this panel", "Replier ou déplier ce panneau"}},
        {"LbLine", lineInFile, {}},
        {"TxLine", {}, {"Number of the line in the file", "Numéro de la ligne dans le fichier"}},
        {"LbOrig", {"Original", "Originale"}, {}},
        {"TxOrig", {}, {"The line as it was installed", "La ligne telle qu'elle a été installée"}},
        {"LbFile", {"In the file", "Fichier"}, {}},
        {"TxFile",
         {},
         {"The line as it stands in sounds.txt, without the changes that are not applied",
          "La ligne telle qu'elle est dans sounds.txt, sans les modifications non appliquées"}},
        {"LbModif", {"Modifyed", "Modifiée"}, {}},
        {"TxModif", {}, {"The line as it stands now", "La ligne telle qu'elle est maintenant"}},
    };
    showCaptions(*this, captions, language);
}

void LineTextPanel::paintWith(const ColourPair& pair)
{
    for (QPlainTextEdit* const view : {m_original, m_file, m_modified}) {
        tavrel::paintWith(*view, pair);
    }
}

void LineTextPanel::lineShown()
{
    const SoundCatalogue& catalogue = session().catalogue();
    const bool shown = selection().editor().canEdit();
    const std::size_t number = selection().number().value_or(0);
    const auto show = [shown](QPlainTextEdit& view, const std::string& line) {
        const QString text = shown ? fromCodePage(line) : QString();
        if (view.toPlainText() != text) {
            view.setPlainText(text);
        }
    };
    static const std::string none;
    const std::string& original = shown ? catalogue.originalLine(number) : none;
    const std::string& inFile = shown ? catalogue.fileLine(number) : none;
    const std::string& current = shown ? catalogue.currentLine(number) : none;
    show(*m_original, original);
    show(*m_file, inFile);
    show(*m_modified, current);
    m_modified->horizontalScrollBar()->setValue(0);
    const bool isThird = shown && inFile != original && inFile != current;
    m_fileLabel->setVisible(isThird);
    m_file->setVisible(isThird);
    m_number->setText(shown && catalogue.lineInFile(number) > 0
                          ? QString::number(catalogue.lineInFile(number))
                          : QString());
}

} // namespace tavrel
