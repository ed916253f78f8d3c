// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// Rows of fields for a spreadsheet: UTF-8 with its mark, fields between quotes, CR LF.
class CsvTable
{
public:
    CsvTable(const std::vector<BilingualText>& heading, Language language);

    void addRow(const std::vector<std::string>& fields);
    const std::string& text() const { return m_text; }

private:
    std::string m_text;
};

} // namespace tavrel
