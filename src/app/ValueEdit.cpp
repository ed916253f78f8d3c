// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ValueEdit.h"

#include "ui/Controls.h"
#include "ui/Theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QWheelEvent>

namespace tavrel {

namespace {

constexpr int pageStep = 10;

int stepOf(int key)
{
    switch (key) {
    case Qt::Key_Up:
        return 1;
    case Qt::Key_Down:
        return -1;
    case Qt::Key_PageUp:
        return pageStep;
    case Qt::Key_PageDown:
        return -pageStep;
    default:
        return 0;
    }
}

} // namespace

ValueEdit::ValueEdit(ValueBox box)
{
    constexpr int width = 44;
    setFixedWidth(width);
    setFont(fixedPitchFont());
    setMaxLength(static_cast<int>(maximumLength(box)));
    const QRegularExpression digits(box == ValueBox::Pit ? "-?[0-9]*" : "[0-9]*");
    setValidator(new QRegularExpressionValidator(digits, this));
    selectAllOnClick(*this);
}

bool ValueEdit::takes(const QString& typed) const
{
    QString text = this->text();
    const auto from = hasSelectedText() ? selectionStart() : cursorPosition();
    text.replace(from, selectedText().size(), typed);
    int position = 0;
    return text.size() <= maxLength() && validator()->validate(text, position) != QValidator::Invalid;
}

void ValueEdit::keyPressEvent(QKeyEvent* event)
{
    const int step = event->modifiers().testFlag(Qt::AltModifier) ? 0 : stepOf(event->key());
    const bool empties = event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
    const bool isText = !event->text().isEmpty() && event->text().front().isPrint();
    const bool isCommand = event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier);
    if (step != 0) {
        Q_EMIT stepped(step);
    } else if (empties && text().isEmpty()) {
        Q_EMIT emptied();
    } else if ((isText && !isCommand && !takes(event->text())) ||
               (event->matches(QKeySequence::Paste) && !takes(QGuiApplication::clipboard()->text()))) {
        Q_EMIT refused();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void ValueEdit::wheelEvent(QWheelEvent* event)
{
    constexpr int notch = 120;
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    m_turned += event->angleDelta().y();
    if (const int steps = m_turned / notch; steps != 0) {
        m_turned %= notch;
        Q_EMIT stepped(steps);
    }
    event->accept();
}

} // namespace tavrel
