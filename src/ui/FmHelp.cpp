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
#include <QTextBlock>
#include <QTimer>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr int columns = 78; // the help files keep to them
constexpr int usualHeight = 640;

} // namespace

FmHelp::FmHelp(QWidget* parent, const std::string& text, const ColourScheme& colours, Language language)
    : TitledWindow(parent), m_view(makeTextView("TxHlp"))
{
    setObjectName("FmHelp");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    m_view->setPlainText(fromCodePage(text));
    paintWith(*m_view, colours.slots[ColourScheme::textSlot]);
    auto* const close = makeButton("CdClose", Glyph::Close);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    constexpr int margin = 2 * controlGap;
    auto* const buttons = rowOf({close});
    buttons->insertStretch(0, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    content().addWidget(m_view, 1);
    content().addLayout(buttons);
    const Caption captions[] = {
        {"TxHlp", {}, {"Help text", "Texte de l'aide"}},
        {"CdClose", {"Close", "Fermer"}, {"Close the help", "Fermer l'aide"}},
    };
    showCaptions(*this, captions, language);
    setWindowTitle(inLanguage(titles::help, language));
    const int textWidth = m_view->fontMetrics().horizontalAdvance(QString(columns, 'x'));
    const int beside = 4 * margin + m_view->verticalScrollBar()->sizeHint().width();
    resize(textWidth + beside, usualHeight);
    m_view->setFocus();
}

void FmHelp::showHeading(const QString& heading)
{
    const QTextCursor found = m_view->document()->find(heading, 0, QTextDocument::FindCaseSensitively);
    if (!found.isNull()) {
        m_line = found.blockNumber();
        m_view->setTextCursor(QTextCursor(found.block()));
    }
}

// Before, the view does not know how far it can scroll.
void FmHelp::showEvent(QShowEvent* event)
{
    TitledWindow::showEvent(event);
    QTimer::singleShot(0, m_view, [this] { m_view->verticalScrollBar()->setValue(m_line); });
}

void FmHelp::mousePressEvent(QMouseEvent* /*event*/)
{
    reject();
}

} // namespace tavrel
