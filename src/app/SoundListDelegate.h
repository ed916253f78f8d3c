// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundFilter.h"

#include <QStyledItemDelegate>

#include <set>

namespace tavrel {

// Where the columns of the list stand, in its fixed-pitch font. Sound comes first and is always there.
int columnLeft(const QFontMetrics& metrics, const std::set<SoundColumn>& columns, SoundColumn column);
int columnsWidth(const QFontMetrics& metrics, const std::set<SoundColumn>& columns);

// Paints the rows of the sound list. A modified line gets an amber bar and amber text, what the filter looks
// for is underlaid, and a dot at the end of the name tells what a check has found.
class SoundListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace tavrel
