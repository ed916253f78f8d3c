// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MessageWindow.h"

#include "ui/BusyPointer.h"
#include "ui/Controls.h"
#include "ui/FoldingPanel.h"
#include "ui/Icons.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

constexpr int iconSize = 36;
constexpr int smallestWidth = 340;
constexpr int widestText = 560;
constexpr int gap = 14;

QIcon iconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Question:
        return glyphIcon(Glyph::Help, theme::accent);
    case MessageIcon::Exclamation:
        return glyphIcon(Glyph::Exclamation, theme::accent);
    case MessageIcon::Critical:
        return glyphIcon(Glyph::Critical, QColor(0xE8, 0x6A, 0x52));
    case MessageIcon::Information:
        break;
    }
    return glyphIcon(Glyph::Information, theme::text);
}

BilingualText captionOf(Answer answer)
{
    switch (answer) {
    case Answer::Yes:
        return {"&Yes", "&Oui"};
    case Answer::No:
        return {"&No", "&Non"};
    case Answer::Cancel:
        return {"&Cancel", "&Annuler"};
    case Answer::Ok:
    case Answer::Other:
        break;
    }
    return {"&OK", "&OK"};
}

// Plain text, as wide as it needs to be, up to a width that still reads well.
QLabel* makeText(QString text)
{
    // Some texts spell a line break with both characters, in either order.
    text.replace("\n\r", "\n").replace("\r\n", "\n");
    auto* const label = new QLabel(text);
    label->setObjectName("LbText");
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    const int needed = label->sizeHint().width();
    label->setWordWrap(true);
    label->setMinimumWidth(std::min(needed, widestText));
    label->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    return label;
}

// A text that would not fit the screen scrolls.
QWidget* makeTextArea(QLabel* text)
{
    constexpr int tallest = 420;
    if (text->heightForWidth(text->minimumWidth()) <= tallest) {
        return text;
    }
    auto* const area = new QScrollArea;
    area->setWidget(text);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFixedHeight(tallest);
    area->setMinimumWidth(text->minimumWidth() + 2 * gap);
    return area;
}

} // namespace

MessageWindow::MessageWindow(QWidget* parent, MessageIcon icon, const QString& title, const QString& text)
    : TitledWindow(parent), m_buttons(new QHBoxLayout)
{
    setObjectName("FmMessage");
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    auto* const picture = new QLabel;
    picture->setPixmap(iconOf(icon).pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
    auto* const row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addWidget(makeTextArea(makeText(text)), 1);
    content().setContentsMargins(gap, gap, gap, gap);
    content().setSpacing(gap);
    content().addLayout(row, 1);
    content().addLayout(m_buttons);
    m_buttons->addStretch(1);
    setMinimumWidth(smallestWidth);
}

void MessageWindow::addDetails(const BilingualText& rows, Language language)
{
    if (rows.empty()) {
        return;
    }
    constexpr int height = 150;
    auto* const panel = new FoldingPanel("ImDetails", this);
    panel->findChild<QAbstractButton*>("ImDetails")->setText(inLanguage({"Details", "Détails"}, language));
    auto* const list = named(new QPlainTextEdit(inLanguage(rows, language)), "TxDetails");
    list->setReadOnly(true);
    list->setTabChangesFocus(true);
    list->setLineWrapMode(QPlainTextEdit::NoWrap);
    list->setFont(fixedPitchFont());
    list->setFixedHeight(height);
    panel->content().addWidget(list);
    panel->setOpen(false);
    content().insertWidget(1, panel);
    connect(panel, &FoldingPanel::openChanged, this,
            [this] { QTimer::singleShot(0, this, &QWidget::adjustSize); });
}

void MessageWindow::offer(std::span<const Answer> answers, Answer byDefault, Language language,
                          const BilingualText& otherChoice)
{
    constexpr int buttonWidth = 84;
    for (const Answer answer : answers) {
        const BilingualText caption =
            answer == Answer::Other ? BilingualText::same("&") + otherChoice : captionOf(answer);
        auto* const button = new QPushButton(inLanguage(caption, language));
        button->setMinimumWidth(buttonWidth);
        button->setDefault(answer == byDefault);
        connect(button, &QPushButton::clicked, this, [this, answer] {
            m_answer = answer;
            accept();
        });
        m_buttons->addWidget(button);
        if (answer == byDefault) {
            button->setFocus();
        }
    }
}

void MessageWindow::keyPressEvent(QKeyEvent* event)
{
    for (QPushButton* const button : findChildren<QPushButton*>()) {
        if (!event->text().isEmpty() && button->text().startsWith("&" + event->text(), Qt::CaseInsensitive)) {
            button->click();
            return;
        }
    }
    TitledWindow::keyPressEvent(event);
}

void MessageWindow::showHelp()
{
    if (parentWidget() == nullptr && m_openHelp) {
        m_openHelp(*this);
    } else {
        TitledWindow::showHelp();
    }
}

Answer MessageWindow::run(Answer refusal)
{
    const CalmPointer pointer;
    m_answer = refusal;
    exec();
    return m_answer;
}

} // namespace tavrel
