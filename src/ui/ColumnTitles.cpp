// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ColumnTitles.h"

#include "ui/Text.h"
#include "ui/Theme.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QScrollBar>

namespace tavrel {

ColumnTitles::ColumnTitles(const char* name, const QAbstractScrollArea& list, Columns columns)
    : m_list(list), m_columns(std::move(columns))
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setFont(fixedPitchFont());
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(list.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { update(); });
}

void ColumnTitles::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const int start = -m_list.horizontalScrollBar()->value();
    const int baseline = (height() + fontMetrics().ascent() - fontMetrics().descent()) / 2;
    for (const ColumnTitle& column : m_columns()) {
        painter.setPen(column.stressed ? palette().color(QPalette::WindowText) : QColor(theme::mutedText));
        painter.drawText(QPointF(start + column.left, baseline), column.text);
    }
}

} // namespace tavrel
