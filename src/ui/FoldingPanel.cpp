// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/FoldingPanel.h"

#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QAbstractButton>
#include <QLinearGradient>
#include <QPainter>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr int titleHeight = 24;
constexpr int chevronSize = 16;
constexpr int gap = 6;

class PanelTitle : public QAbstractButton
{
public:
    PanelTitle(const QString& name, QWidget* parent) : QAbstractButton(parent)
    {
        setObjectName(name);
        setCheckable(true);
        setChecked(true);
        setCursor(Qt::PointingHandCursor);
        setFocusPolicy(Qt::TabFocus);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override
    {
        return {titleFontMetrics().horizontalAdvance(text()) + chevronSize + 3 * gap, titleHeight};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        QLinearGradient gradient(rect().topLeft(), rect().bottomLeft());
        gradient.setColorAt(0, underMouse() ? QColor(0x4C, 0x51, 0x5A) : QColor(0x42, 0x46, 0x4E));
        gradient.setColorAt(1, QColor(0x36, 0x39, 0x40));
        painter.fillRect(rect(), gradient);
        painter.fillRect(QRect(0, 0, 3, height()), theme::accent);
        const QRect chevron(2 * gap, (height() - chevronSize) / 2, chevronSize, chevronSize);
        glyphIcon(isChecked() ? Glyph::PanelOpen : Glyph::PanelClosed, theme::accent)
            .paint(&painter, chevron);
        painter.setFont(titleFont());
        painter.setPen(theme::text);
        painter.drawText(rect().adjusted(chevron.right() + gap, 0, -gap, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         text());
        if (hasFocus()) {
            painter.setPen(theme::accent);
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
        }
    }

    void enterEvent(QEnterEvent* /*event*/) override { update(); }
    void leaveEvent(QEvent* /*event*/) override { update(); }

private:
    QFont titleFont() const
    {
        QFont bold = font();
        bold.setBold(true);
        return bold;
    }
    QFontMetrics titleFontMetrics() const { return QFontMetrics(titleFont()); }
};

// Darker than the title, a little lighter than the window.
class PanelBody : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), theme::panel); }
};

} // namespace

FoldingPanel::FoldingPanel(const QString& name, QWidget* parent)
    : QWidget(parent), m_title(new PanelTitle(name, this)), m_body(new PanelBody(this)),
      m_content(new QVBoxLayout(m_body))
{
    m_content->setContentsMargins(gap, gap, gap, gap);
    m_content->setSpacing(4);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(m_body);
    connect(m_title, &QAbstractButton::toggled, this, [this](bool open) {
        m_body->setVisible(open);
        // Folded, it leaves its room to what is below.
        setMaximumHeight(open ? QWIDGETSIZE_MAX : titleHeight);
        Q_EMIT openChanged(open);
    });
}

bool FoldingPanel::isOpen() const
{
    return m_title->isChecked();
}

void FoldingPanel::setOpen(bool open)
{
    m_title->setChecked(open);
}

} // namespace tavrel
