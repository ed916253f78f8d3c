// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

class QListWidget;
class QWidget;

// What every list of samples offers.
namespace tavrel {

// Space, wherever the selection is, does this.
void onSpace(QListWidget& list, const std::function<void()>& action);

// The selected rows, from top to bottom.
std::vector<int> selectedRows(const QListWidget& list);

// All rows, or the selected ones.
void copyRows(const QListWidget& list, const std::vector<int>& rows);
void copyAllRows(const QListWidget& list);
// Ctrl+C copies the selected rows.
void copySelectionByKey(QListWidget& list);

// In the system's file manager.
void openFolder(const std::filesystem::path& folder);

} // namespace tavrel
