// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/TitledWindow.h"

#include "ui/Icons.h"
#include "ui/Reach.h"
#include "ui/Theme.h"
#include "ui/TitleImage.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>

namespace tavrel {

namespace {

constexpr int keyboardStep = 20;

} // namespace

TitledWindow::TitledWindow(QWidget* parent)
    : QDialog(parent, Qt::Window | Qt::FramelessWindowHint), m_titleImage(new TitleImage(*this)),
      m_titleRow(new QHBoxLayout), m_content(new QVBoxLayout)
{
    setWindowIcon(programIcon());
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(1, 1, 1, 1);
    outer->setSpacing(0);
    m_titleRow->setContentsMargins(0, 0, 0, 0);
    m_titleRow->addWidget(m_titleImage, 1);
    outer->addLayout(m_titleRow);
    outer->addLayout(m_content, 1);

    addMoveShortcut(Qt::Key_Left, {-keyboardStep, 0});
    addMoveShortcut(Qt::Key_Right, {keyboardStep, 0});
    addMoveShortcut(Qt::Key_Up, {0, -keyboardStep});
    addMoveShortcut(Qt::Key_Down, {0, keyboardStep});
    auto* const closing = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_F4), this);
    connect(closing, &QShortcut::activated, this, &QWidget::close);
    auto* const help = new QShortcut(QKeySequence::HelpContents, this);
    connect(help, &QShortcut::activated, this, [this] { showHelp(helpTopic()); });
}

void TitledWindow::addMoveShortcut(Qt::Key arrow, QPoint step)
{
    auto* const shortcut = new QShortcut(QKeySequence(Qt::SHIFT | Qt::ALT | arrow), this);
    connect(shortcut, &QShortcut::activated, this, [this, step] {
        if (isMaximized()) {
            return;
        }
        move(pos() + step);
        moveIntoReach();
    });
}

void TitledWindow::moveIntoReach()
{
    QList<QRect> screens;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        screens += screen->availableGeometry();
    }
    const QRect title(m_titleImage->mapToGlobal(QPoint(0, 0)), m_titleImage->size());
    const QPoint offset = offsetIntoReach(title, screens);
    if (!offset.isNull()) {
        move(pos() + offset);
    }
}

void TitledWindow::offerMaximising()
{
    m_mayMaximise = true;
    setWindowFlags(windowFlags() | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint);
}

void TitledWindow::toggleMaximised()
{
    if (m_mayMaximise) {
        isMaximized() ? showNormal() : showMaximized();
    }
}

WindowMemory* TitledWindow::memory()
{
    for (QWidget* widget = parentWidget(); widget != nullptr; widget = widget->parentWidget()) {
        if (auto* const opener = qobject_cast<TitledWindow*>(widget)) {
            return opener->memory();
        }
    }
    return nullptr;
}

// Before the first showing, which places the window by its size.
void TitledWindow::setVisible(bool visible)
{
    if (isSizeGripEnabled() && visible && !m_sized) {
        m_sized = true;
        const WindowMemory* const memory = this->memory();
        const std::optional<QSize> size = memory == nullptr ? std::nullopt : memory->sizeOf(objectName());
        if (size && size->isValid()) {
            resize(size->boundedTo(screen()->availableSize()).expandedTo(minimumSizeHint()));
        }
    } else if (isSizeGripEnabled() && !visible && isVisible()) {
        rememberSize();
    }
    QDialog::setVisible(visible);
}

void TitledWindow::rememberSize()
{
    if (WindowMemory* const memory = this->memory()) {
        memory->keepSize(objectName(), isMaximized() ? normalGeometry().size() : size());
    }
}

bool TitledWindow::isOnTitleRow(QPointF position) const
{
    return position.y() < m_titleImage->geometry().bottom();
}

void TitledWindow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && isOnTitleRow(event->position()) && windowHandle() != nullptr) {
        windowHandle()->startSystemMove();
        return;
    }
    QDialog::mousePressEvent(event);
}

void TitledWindow::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && isOnTitleRow(event->position())) {
        toggleMaximised();
        return;
    }
    QDialog::mouseDoubleClickEvent(event);
}

HelpTopic TitledWindow::helpTopic() const
{
    return {windowTitle()};
}

void TitledWindow::showHelp(const HelpTopic& topic)
{
    for (QWidget* widget = parentWidget(); widget != nullptr; widget = widget->parentWidget()) {
        if (auto* const opener = qobject_cast<TitledWindow*>(widget)) {
            opener->showHelp(topic);
            return;
        }
    }
}

void TitledWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), theme::window);
    painter.setPen(QColor(0x4A, 0x4E, 0x56));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TitledWindow::keyPressEvent(QKeyEvent* event)
{
    auto* const button = qobject_cast<QPushButton*>(focusWidget());
    if (button != nullptr && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        button->click();
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace tavrel
