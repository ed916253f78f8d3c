// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MessageWindow.h"

#include "ui/BusyPointer.h"
#include "ui/Controls.h"
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

constexpr int messageIconSize = 36;
constexpr int smallestWidth = 340;
constexpr int widestText = 560;
constexpr int messageGap = 14;

QIcon iconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Question:
        return glyphIcon(Glyph::Help, theme::accent);
    case MessageIcon::Exclamation:
        return glyphIcon(Glyph::Exclamation, theme::accent);
    case MessageIcon::Critical:
        return glyphIcon(Glyph::Critical, theme::alarm);
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
    area->setMinimumWidth(text->minimumWidth() + 2 * messageGap);
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
    picture->setPixmap(iconOf(icon).pixmap(QSize(messageIconSize, messageIconSize), devicePixelRatioF()));
    auto* const row = new QHBoxLayout;
    row->setSpacing(messageGap);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addWidget(makeTextArea(makeText(text)), 1);
    content().setContentsMargins(messageGap, messageGap, messageGap, messageGap);
    content().setSpacing(messageGap);
    content().addLayout(row, 1);
    content().addLayout(m_buttons);
    m_buttons->addStretch(1);
    setMinimumWidth(smallestWidth);
}

void MessageWindow::addDetails(const QString& details, bool open, Language language)
{
    constexpr int width = 560;
    constexpr int height = 200;
    auto* const view = makeTextView("TxDetails");
    view->setPlainText(details);
    view->setMinimumSize(width, height);
    view->setVisible(open);
    content().insertWidget(content().indexOf(m_buttons), view, 1);
    auto* const button = named(new QPushButton(inLanguage({"&Details", "&Détails"}, language)), "CdDetails");
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, view] {
        view->setVisible(view->isHidden());
        adjustSize();
    });
    m_buttons->insertWidget(0, button);
}

void MessageWindow::offer(std::span<const Answer> answers, Answer byDefault, Language language,
                          const std::map<Answer, BilingualText>& words)
{
    constexpr int buttonWidth = 84;
    for (const Answer answer : answers) {
        const auto own = words.find(answer);
        const BilingualText caption =
            own == words.end() ? captionOf(answer) : BilingualText::same("&") + own->second;
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

HelpTopic MessageWindow::helpTopic() const
{
    return {windowTitle(), true};
}

void MessageWindow::showHelp(const HelpTopic& topic)
{
    if (parentWidget() == nullptr && m_openHelp) {
        m_openHelp(*this, topic);
    } else {
        TitledWindow::showHelp(topic);
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
