// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleList.h"

#include "base/CodePage.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QListWidget>
#include <QShortcut>
#include <QUrl>

#include <algorithm>

namespace tavrel {

void onSpace(QListWidget& list, const std::function<void()>& action)
{
    auto* const space = new QShortcut(QKeySequence(Qt::Key_Space), &list);
    space->setContext(Qt::WidgetShortcut);
    QObject::connect(space, &QShortcut::activated, &list, action);
}

std::vector<int> selectedRows(const QListWidget& list)
{
    std::vector<int> rows;
    for (const QListWidgetItem* const item : list.selectedItems()) {
        rows.push_back(list.row(item));
    }
    std::ranges::sort(rows);
    return rows;
}

void copyRows(const QListWidget& list, const std::vector<int>& rows)
{
    QStringList texts;
    for (const int row : rows) {
        texts += list.item(row)->text();
    }
    QApplication::clipboard()->setText(texts.join('\n'));
}

void copyAllRows(const QListWidget& list)
{
    std::vector<int> rows;
    for (int row = 0; row < list.count(); ++row) {
        rows.push_back(row);
    }
    copyRows(list, rows);
}

void copySelectionByKey(QListWidget& list)
{
    auto* const copy = new QShortcut(QKeySequence(QKeySequence::Copy), &list);
    copy->setContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QShortcut::activated, &list, [&list] { copyRows(list, selectedRows(list)); });
}

void openFolder(const std::filesystem::path& folder)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(displayPath(folder))));
}

} // namespace tavrel
