// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/TickList.h"

#include "ui/Colours.h"
#include "ui/Icons.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QMetaMethod>

#include <algorithm>

namespace tavrel {

namespace {

constexpr int markSize = 14;

} // namespace

class TickModel : public QAbstractListModel
{
public:
    explicit TickModel(TickList* list) : QAbstractListModel(list), m_list(*list) {}

    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.count);
    }

    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const Qt::ItemFlags flags = QAbstractListModel::flags(index) | Qt::ItemNeverHasChildren;
        return index.isValid() && isTickable(rowOf(index)) ? flags | Qt::ItemIsUserCheckable : flags;
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid()) {
            return {};
        }
        const std::size_t row = rowOf(index);
        switch (role) {
        case Qt::DisplayRole:
            return m_rows.text(row);
        case Qt::CheckStateRole:
            return m_ticked[row] ? Qt::Checked : Qt::Unchecked;
        case Qt::DecorationRole:
            return hasMarks() ? m_icons.at(static_cast<std::size_t>(markOf(row))) : QVariant();
        case Qt::ForegroundRole:
            return isTickable(row) ? QVariant() : mutedColour(paintedWith(m_list.palette()));
        case Qt::ToolTipRole:
            return m_rows.why ? plainToolTip(m_rows.why(row)) : QString();
        case Qt::AccessibleDescriptionRole:
            return m_rows.why ? m_rows.why(row) : QString();
        default:
            return {};
        }
    }

    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (!index.isValid() || role != Qt::CheckStateRole || !isTickable(rowOf(index))) {
            return false;
        }
        m_ticked[rowOf(index)] = value.toInt() == Qt::Checked;
        Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
        Q_EMIT m_list.ticksChanged();
        return true;
    }

    void setRows(TickList::Rows rows)
    {
        beginResetModel();
        m_rows = std::move(rows);
        m_ticked.assign(m_rows.count, false);
        for (std::size_t row = 0; row < m_rows.count; ++row) {
            m_ticked[row] = isTickable(row) && (!m_rows.startsTicked || m_rows.startsTicked(row));
        }
        endResetModel();
    }

    void tick(std::size_t row, bool ticked) { m_ticked.at(row) = ticked && isTickable(row); }
    void tellAll()
    {
        if (m_rows.count > 0) {
            Q_EMIT dataChanged(index(0), index(rowCount({}) - 1));
        }
    }

    void setIcons(std::array<QIcon, 3> icons) { m_icons = std::move(icons); }
    bool hasMarks() const { return !noMark().isNull(); }
    const QIcon& noMark() const { return m_icons.front(); }
    const std::vector<bool>& ticked() const { return m_ticked; }

private:
    static std::size_t rowOf(const QModelIndex& index) { return static_cast<std::size_t>(index.row()); }
    TickList::Mark markOf(std::size_t row) const
    {
        return m_rows.mark ? m_rows.mark(row) : TickList::Mark::None;
    }
    bool isTickable(std::size_t row) const { return markOf(row) != TickList::Mark::Refusal; }

    TickList& m_list;
    TickList::Rows m_rows;
    std::vector<bool> m_ticked;
    std::array<QIcon, 3> m_icons; // by mark; none without marks
};

TickList::TickList(const char* name) : m_model(new TickModel(this))
{
    setObjectName(name);
    setFont(fixedPitchFont());
    setUniformItemSizes(true);
    setIconSize({markSize, markSize});
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setModel(m_model);
}

void TickList::useMarks()
{
    QPixmap room(markSize, markSize);
    room.fill(Qt::transparent);
    m_model->setIcons(
        {room, glyphIcon(Glyph::Exclamation, theme::accent), glyphIcon(Glyph::Critical, theme::alarm)});
}

void TickList::setRows(Rows rows)
{
    m_model->setRows(std::move(rows));
    Q_EMIT selectedRowChanged();
}

void TickList::showMarks()
{
    m_model->tellAll();
}

void TickList::tick(const std::vector<std::size_t>& rows, bool ticked)
{
    for (const std::size_t row : rows) {
        m_model->tick(row, ticked);
    }
    m_model->tellAll();
    Q_EMIT ticksChanged();
}

void TickList::tickAll(bool ticked)
{
    for (std::size_t row = 0; row < rows(); ++row) {
        m_model->tick(row, ticked);
    }
    m_model->tellAll();
    Q_EMIT ticksChanged();
}

bool TickList::isTicked(std::size_t row) const
{
    return m_model->ticked().at(row);
}

std::vector<std::size_t> TickList::tickedRows() const
{
    std::vector<std::size_t> result;
    for (std::size_t row = 0; row < rows(); ++row) {
        if (isTicked(row)) {
            result.push_back(row);
        }
    }
    return result;
}

std::size_t TickList::tickedCount() const
{
    return static_cast<std::size_t>(std::ranges::count(m_model->ticked(), true));
}

std::size_t TickList::rows() const
{
    return m_model->ticked().size();
}

std::optional<std::size_t> TickList::selectedRow() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() && selectionModel()->isSelected(current)
               ? std::optional(static_cast<std::size_t>(current.row()))
               : std::nullopt;
}

void TickList::selectRow(std::size_t row)
{
    const QModelIndex index = m_model->index(static_cast<int>(row));
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(index);
}

void TickList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QListView::selectionChanged(selected, deselected);
    Q_EMIT selectedRowChanged();
}

void TickList::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && isSignalConnected(QMetaMethod::fromSignal(&TickList::enterPressed))) {
        Q_EMIT enterPressed();
        return;
    }
    if (event->key() != Qt::Key_Space || !currentIndex().isValid()) {
        QListView::keyPressEvent(event);
        return;
    }
    std::vector<std::size_t> selected;
    for (const QModelIndex& index : selectionModel()->selectedRows()) {
        selected.push_back(static_cast<std::size_t>(index.row()));
    }
    const auto current = static_cast<std::size_t>(currentIndex().row());
    if (selected.empty()) { // show first what the key is about
        selectRow(current);
        return;
    }
    tick(selected, !isTicked(current));
}

int TickList::textStart() const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.features |= QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    if (m_model->hasMarks()) {
        option.features |= QStyleOptionViewItem::HasDecoration;
        option.decorationSize = iconSize();
        option.icon = m_model->noMark();
    }
    option.text = "0";
    option.rect = QRect(0, 0, width(), fontMetrics().height());
    const int textMargin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, this) + 1;
    return frameWidth() + style()->subElementRect(QStyle::SE_ItemViewItemText, &option, this).left() +
           textMargin;
}

} // namespace tavrel
