// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/FmHelp.h"

#include "base/Titles.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr int columns = 78; // the help files keep to them
constexpr int usualHeight = 640;

} // namespace

FmHelp::FmHelp(QWidget* parent, const std::string& text, const ColourScheme& colours, Language language)
    : TitledWindow(parent)
{
    setObjectName("FmHelp");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    auto* const view = makeTextView("TxHlp");
    view->setPlainText(fromCodePage(text));
    paintWith(*view, colours.slots[ColourScheme::textSlot]);
    auto* const close = makeButton("CdClose", Glyph::Close);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    constexpr int margin = 2 * controlGap;
    auto* const buttons = rowOf({close});
    buttons->insertStretch(0, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    content().addWidget(view, 1);
    content().addLayout(buttons);
    const Caption captions[] = {
        {"TxHlp", {}, {"Help text", "Texte de l'aide"}},
        {"CdClose", {"Close", "Fermer"}, {"Close the help", "Fermer l'aide"}},
    };
    showCaptions(*this, captions, language);
    setWindowTitle(inLanguage(titles::help, language));
    const int textWidth = view->fontMetrics().horizontalAdvance(QString(columns, 'x'));
    const int beside = 4 * margin + view->verticalScrollBar()->sizeHint().width();
    resize(textWidth + beside, usualHeight);
    view->setFocus();
}

void FmHelp::mousePressEvent(QMouseEvent* /*event*/)
{
    reject();
}

} // namespace tavrel
