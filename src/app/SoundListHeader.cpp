// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SoundListHeader.h"

#include "app/SoundListDelegate.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QPainter>

namespace tavrel {

BilingualText columnTitle(SoundColumn column)
{
    switch (column) {
    case SoundColumn::Samples:
        return {"Samples", "Samples"};
    case SoundColumn::Values:
        return {"Values", "Valeurs"};
    case SoundColumn::Flags:
        return {"Flags", "Flags"};
    case SoundColumn::Letters:
        return {"Letters", "Lettres"};
    case SoundColumn::Sound:
        break;
    }
    return {"Sound", "Son"};
}

SoundListHeader::SoundListHeader(const QFont& font)
{
    constexpr int padding = 6;
    setFont(font);
    setFixedHeight(QFontMetrics(font).height() + padding);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

void SoundListHeader::show(const std::set<SoundColumn>& columns, Language language)
{
    m_columns = columns;
    m_language = language;
    setVisible(!columns.empty());
    update();
}

void SoundListHeader::scrollTo(int offset)
{
    m_offset = offset;
    update();
}

void SoundListHeader::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), theme::panel);
    painter.setPen(theme::mutedText);
    std::set<SoundColumn> shown = m_columns;
    shown.insert(SoundColumn::Sound);
    for (const SoundColumn column : shown) {
        const int left = columnLeft(fontMetrics(), m_columns, column) - m_offset;
        painter.drawText(QRect(left, 0, width(), height()), Qt::AlignVCenter | Qt::AlignLeft,
                         inLanguage(columnTitle(column), m_language));
    }
}

} // namespace tavrel
