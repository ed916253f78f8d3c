// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

#include <functional>
#include <vector>

class QAbstractScrollArea;

namespace tavrel {

struct ColumnTitle
{
    double left = 0; // in the rows of the list, pixels
    QString text;
    bool stressed = false;
};

// The titles over the columns of a list of text; they scroll with it.
class ColumnTitles : public QLabel
{
    Q_OBJECT

public:
    using Columns = std::function<std::vector<ColumnTitle>()>;

    // The columns are asked for each time that they are painted.
    ColumnTitles(const char* name, const QAbstractScrollArea& list, Columns columns);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QAbstractScrollArea& m_list;
    Columns m_columns;
};

} // namespace tavrel
