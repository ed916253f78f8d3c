// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Controls.h"

#include "ui/Text.h"
#include "ui/Theme.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QToolTip>
#include <QWheelEvent>

#include <utility>

namespace tavrel {

namespace {

class CalmComboBox : public QComboBox
{
public:
    CalmComboBox() { setFocusPolicy(Qt::StrongFocus); }

protected:
    // The style sheet leaves the arrow's place empty.
    void paintEvent(QPaintEvent* event) override
    {
        constexpr int arrowPlace = 22;
        constexpr int side = 14;
        QComboBox::paintEvent(event);
        const QVariant own = property(arrowColourProperty);
        const QColor colour = !isEnabled()    ? theme::disabledText
                              : own.isValid() ? own.value<QColor>()
                                              : theme::text;
        QRect arrow(0, 0, side, side);
        arrow.moveCenter(QPoint(width() - arrowPlace / 2, height() / 2));
        QPainter painter(this);
        glyphIcon(Glyph::PanelOpen, colour).paint(&painter, arrow);
    }
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus()) {
            QComboBox::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

class ElidedLabel : public QLabel
{
public:
    ElidedLabel()
    {
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        drawFrame(&painter); // the ground that the style sheet may give it
        const QRect room = textRoom();
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width());
        style()->drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                              foregroundRole());
    }
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ToolTip &&
            fontMetrics().horizontalAdvance(text()) > textRoom().width()) {
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
            return true;
        }
        return QLabel::event(event);
    }

private:
    QRect textRoom() const
    {
        constexpr int paperMargin = 6;
        return property("paper").toBool() ? contentsRect().adjusted(paperMargin, 0, -paperMargin, 0)
                                          : contentsRect();
    }
};

class SelectingClick : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto& box = static_cast<QLineEdit&>(*watched);
        if (event->type() == QEvent::FocusIn) {
            m_waits = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
        } else if (event->type() == QEvent::MouseButtonRelease && std::exchange(m_waits, false) &&
                   !box.hasSelectedText()) {
            box.selectAll(); // the release itself selects nothing and takes nothing back
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_waits = false; // for the end of the click that brought the focus
};

constexpr int buttonIconSize = 16;

} // namespace

QPushButton* makeButton(const char* name, Glyph glyph)
{
    auto* const button = named(new QPushButton, name);
    button->setIcon(glyphIcon(glyph, theme::text));
    button->setIconSize({buttonIconSize, buttonIconSize});
    button->setAutoDefault(false);
    return button;
}

QPushButton* makeIconButton(const char* name, Glyph glyph)
{
    QPushButton* const button = makeButton(name, glyph);
    button->setProperty("iconOnly", true);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return button;
}

QLabel* makeHeading(const char* name)
{
    auto* const label = named(new QLabel, name);
    label->setProperty("heading", true);
    return label;
}

QLabel* makePaperLabel(const char* name)
{
    auto* const label = named(new QLabel, name);
    label->setTextFormat(Qt::PlainText);
    // Its texts change quickly and must not move the rest of the window.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    constexpr int padding = 4; // of the style sheet, above and below together
    label->setMinimumHeight(label->fontMetrics().height() + padding);
    setPaperText(*label, {});
    return label;
}

void setPaper(QLabel& label, Paper paper)
{
    constexpr const char* property = "paper";
    const QString wanted = paper == Paper::None ? "" : paper == Paper::Calm ? "calm" : "alarm";
    if (label.property(property).toString() != wanted) {
        label.setProperty(property, wanted);
        label.style()->unpolish(&label);
        label.style()->polish(&label);
        QEvent changed(QEvent::StyleChange); // else the margins of the frame stay as they were
        QCoreApplication::sendEvent(&label, &changed);
        label.updateGeometry();
    }
}

// A bright bar without a word would only be loud.
void setPaperText(QLabel& label, const QString& text, bool alarming)
{
    setPaper(label, text.isEmpty() ? Paper::None : alarming ? Paper::Alarming : Paper::Calm);
    label.setText(text);
    label.setToolTip(plainToolTip(text)); // for what the window has no room for
}

QLineEdit* makeReadOnly(const char* name)
{
    auto* const box = named(new QLineEdit, name);
    box->setReadOnly(true);
    return box;
}

void selectAllOnClick(QLineEdit& box)
{
    box.installEventFilter(new SelectingClick(&box));
}

QComboBox* makeComboBox(const char* name)
{
    return named(new CalmComboBox, name);
}

QLabel* makeElidedLabel(const char* name)
{
    return named(new ElidedLabel, name);
}

QListWidget* makeFixedPitchList(const char* name)
{
    auto* const list = named(new QListWidget, name);
    list->setFont(fixedPitchFont());
    list->setUniformItemSizes(true);
    return list;
}

void addListKey(QListWidget& list, int key, const std::function<void()>& command)
{
    auto* const shortcut = new QShortcut(QKeySequence(key), &list);
    shortcut->setContext(Qt::WidgetShortcut);
    QObject::connect(shortcut, &QShortcut::activated, &list, command);
}

QPlainTextEdit* makeTextView(const char* name)
{
    auto* const view = named(new QPlainTextEdit, name);
    view->setReadOnly(true);
    view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    view->setTabChangesFocus(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(fixedPitchFont());
    constexpr int tabStop = 8; // the columns of sounds.txt
    view->setTabStopDistance(tabStop * QFontMetricsF(view->font()).horizontalAdvance(' '));
    return view;
}

QHBoxLayout* rowOf(std::initializer_list<QWidget*> controls)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(controlGap);
    for (QWidget* const control : controls) {
        row->addWidget(control);
    }
    return row;
}

} // namespace tavrel
