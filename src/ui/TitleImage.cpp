// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/TitleImage.h"

#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/TitledWindow.h"

#include <QGuiApplication>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace tavrel {

namespace {

constexpr int imageHeight = 38;
constexpr int iconSize = 24;
constexpr int margin = 10;

// Some systems let no program move its windows; they do it themselves when asked.
bool systemMovesWindows()
{
    return QGuiApplication::platformName().startsWith("wayland");
}

// A row of sound bars that fades out to both sides, where the title leaves it room.
void paintWave(QPainter& painter, const QRect& area)
{
    constexpr int step = 5;
    constexpr int mostBars = 44;
    const int bars = std::min(mostBars, (area.width() - 2 * margin) / step);
    constexpr int levels[] = {3, 5, 9, 6, 12, 8, 4, 10, 14, 7, 5};
    for (int i = 0; i < bars; ++i) {
        const float fromMiddle = std::abs(2.0F * static_cast<float>(i) / static_cast<float>(bars) - 1.0F);
        QColor colour = theme::accent;
        colour.setAlphaF(0.4F * (1.0F - fromMiddle));
        const int level = levels[i % std::size(levels)];
        const int x = area.right() - margin - i * step;
        painter.fillRect(QRect(x, area.center().y() - level, 2, 2 * level), colour);
    }
}

} // namespace

TitleImage::TitleImage(TitledWindow& window) : QWidget(&window), m_window(window)
{
    setObjectName("Image1");
    setCursor(Qt::SizeAllCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&window, &QWidget::windowTitleChanged, this, qOverload<>(&QWidget::update));
}

QSize TitleImage::sizeHint() const
{
    return {2 * imageHeight, imageHeight};
}

void TitleImage::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    QLinearGradient gradient(rect().topLeft(), rect().topRight());
    gradient.setColorAt(0, QColor(0x3B, 0x3F, 0x46));
    gradient.setColorAt(1, theme::window);
    painter.fillRect(rect(), gradient);
    const QRect icon(margin, (rect().height() - iconSize) / 2, iconSize, iconSize);
    programIcon().paint(&painter, icon);
    QFont font = this->font();
    font.setPixelSize(15);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(theme::text);
    QRect title;
    painter.drawText(rect().adjusted(icon.right() + margin, 0, -margin, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     m_window.windowTitle(), &title);
    paintWave(painter, rect().adjusted(title.right(), 0, 0, 0));
}

void TitleImage::mousePressEvent(QMouseEvent* event)
{
    if (systemMovesWindows()) {
        m_window.windowHandle()->startSystemMove();
        return;
    }
    const QPointF position = mapFromGlobal(event->globalPosition());
    m_drag.begin(position.x(), position.y());
}

void TitleImage::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF position = mapFromGlobal(event->globalPosition());
    if (const auto offset = m_drag.moveTo(position.x(), position.y())) {
        moveWindow(*offset);
    }
}

void TitleImage::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    m_drag.end();
    if (!m_window.isMaximized()) {
        m_window.moveIntoReach();
    }
}

// The first press of the two has begun a drag.
void TitleImage::mouseDoubleClickEvent(QMouseEvent* /*event*/)
{
    m_drag.end();
    m_window.toggleMaximised();
}

void TitleImage::moveWindow(DragState::Offset offset)
{
    if (m_window.isMaximized()) {
        return;
    }
    m_window.move(m_window.x() + offset.x, m_window.y());
    m_window.move(m_window.x(), m_window.y() + offset.y);
}

} // namespace tavrel
