// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SoundListDelegate.h"

#include "app/SoundListModel.h"
#include "ui/Colours.h"
#include "ui/Theme.h"

#include <QPainter>

namespace tavrel {

namespace {

constexpr int barWidth = 4;
constexpr int textMargin = 9;
constexpr int rowPadding = 3;

} // namespace

void SoundListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool modified = index.data(SoundListModel::ModifiedRole).toBool();
    if (selected) {
        painter->fillRect(option.rect, theme::accent);
    }
    const ColourPair pair = paintedWith(option.palette);
    const QColor marked = markColour(pair);
    if (modified) {
        const QRect bar(option.rect.left(), option.rect.top() + 1, barWidth, option.rect.height() - 2);
        painter->fillRect(bar, selected ? theme::accentText : marked);
    }
    painter->setPen(selected ? theme::accentText : modified ? marked : colourFrom(pair.text));
    painter->setFont(option.font);
    painter->drawText(option.rect.adjusted(textMargin, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                      index.data(Qt::DisplayRole).toString());
}

QSize SoundListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QString text = index.data(Qt::DisplayRole).toString();
    return {option.fontMetrics.horizontalAdvance(text) + 2 * textMargin,
            option.fontMetrics.height() + rowPadding};
}

} // namespace tavrel
