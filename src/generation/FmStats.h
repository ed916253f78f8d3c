// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "generation/ScriptStatistics.h"
#include "ui/TitledWindow.h"

#include <array>
#include <filesystem>

class QLineEdit;

namespace tavrel {

// Counts the trigger entries of the project's script. Its texts exist in French only.
class FmStats : public TitledWindow
{
    Q_OBJECT

public:
    FmStats(QWidget* parent, std::filesystem::path script, Dialogs& dialogs);

private:
    static constexpr std::size_t columns = 3; // two levels and their total

    void layOut();
    void showCaptions();
    void count();
    void fill(std::size_t column, const EntryCounts& counts);

    std::filesystem::path m_script;
    Dialogs& m_dialogs;
    std::array<std::array<QLineEdit*, columns>, countedEntries> m_fields{};
};

} // namespace tavrel
