// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SoundListDelegate.h"

#include "app/SoundListModel.h"
#include "ui/Colours.h"
#include "ui/Theme.h"

#include <QAbstractItemView>
#include <QPainter>

#include <array>

namespace tavrel {

namespace {

constexpr int barWidth = 4;
constexpr int textMargin = 9;
constexpr int rowPadding = 3;
constexpr int dotSize = 6;
// In characters, with a gap: what lines of the usual make hold.
constexpr std::array<int, soundColumnCount> columnCharacters = {29, 34, 25, 9, 24};

int charactersOf(SoundColumn column)
{
    return columnCharacters[static_cast<std::size_t>(column)];
}

const SoundListModel& modelOf(const QModelIndex& index)
{
    return static_cast<const SoundListModel&>(*index.model());
}

QColor colourOf(Severity severity, const ColourPair& pair)
{
    switch (severity) {
    case Severity::Error:
        return alarmColour(pair);
    case Severity::Warning:
        return markColour(pair);
    case Severity::Note:
        break;
    }
    return mutedColour(pair);
}

// What the filter has found is underlined: any other ground would take from its contrast.
void paintCell(QPainter& painter, const QRect& rect, const SoundListModel::Cell& cell, const QColor& mark)
{
    const QFontMetrics metrics = painter.fontMetrics();
    for (const SoundListModel::Cell::Part& part : cell.parts) {
        const int from = rect.left() + metrics.horizontalAdvance(cell.text.left(part.from));
        const int width = metrics.horizontalAdvance(cell.text.mid(part.from, part.length));
        painter.fillRect(QRect(from, rect.bottom() - 2, width, 2).intersected(rect), mark);
    }
    painter.drawText(rect, Qt::AlignVCenter | Qt::AlignLeft,
                     metrics.elidedText(cell.text, Qt::ElideRight, rect.width()));
}

bool severalAreSelected(const QStyleOptionViewItem& option)
{
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    const QItemSelection selected = view == nullptr ? QItemSelection() : view->selectionModel()->selection();
    return selected.size() > 1 || (!selected.empty() && selected.front().height() > 1);
}

} // namespace

int columnLeft(const QFontMetrics& metrics, const std::set<SoundColumn>& columns, SoundColumn column)
{
    int characters = column == SoundColumn::Sound ? 0 : charactersOf(SoundColumn::Sound);
    for (const SoundColumn before : columns) {
        characters += before < column ? charactersOf(before) : 0;
    }
    return textMargin + characters * metrics.horizontalAdvance('0');
}

int columnsWidth(const QFontMetrics& metrics, const std::set<SoundColumn>& columns)
{
    const SoundColumn last = columns.empty() ? SoundColumn::Sound : *columns.rbegin();
    return columnLeft(metrics, columns, last) + charactersOf(last) * metrics.horizontalAdvance('0');
}

void SoundListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const SoundListModel& model = modelOf(index);
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
    std::set<SoundColumn> shown = model.columns();
    shown.insert(SoundColumn::Sound);
    const int character = option.fontMetrics.horizontalAdvance('0');
    for (const SoundColumn column : shown) {
        const int left = option.rect.left() + columnLeft(option.fontMetrics, model.columns(), column);
        const QRect room(left, option.rect.top(), charactersOf(column) * character, option.rect.height());
        paintCell(*painter, room, model.cell(index, column), selected ? theme::accentText : marked);
    }
    const QVariant mark = index.data(SoundListModel::MarkRole);
    if (mark.isValid()) {
        const int end = option.rect.left() + textMargin + charactersOf(SoundColumn::Sound) * character;
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(selected ? QColor(theme::accentText)
                                   : colourOf(static_cast<Severity>(mark.toInt()), pair));
        painter->drawEllipse(end - dotSize, option.rect.center().y() - dotSize / 2 + 1, dotSize, dotSize);
        painter->setRenderHint(QPainter::Antialiasing, false);
    }
    painter->setBrush(Qt::NoBrush);
    // Of several, the one that the other panels show.
    if (option.state.testFlag(QStyle::State_HasFocus) && (!selected || severalAreSelected(option))) {
        painter->setPen(selected ? theme::accentText : theme::accent);
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}

QSize SoundListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return {columnsWidth(option.fontMetrics, modelOf(index).columns()),
            option.fontMetrics.height() + rowPadding};
}

} // namespace tavrel
