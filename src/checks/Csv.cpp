// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/Csv.h"

namespace tavrel {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // or accents come out wrong

void appendField(std::string& text, std::string_view field)
{
    text += '"';
    // A spreadsheet would take it for a formula.
    if (!field.empty() && std::string_view("=+-@").find(field.front()) != std::string_view::npos) {
        text += '\'';
    }
    for (const char c : field) {
        text += c;
        if (c == '"') {
            text += c;
        }
    }
    text += '"';
}

} // namespace

CsvTable::CsvTable(const std::vector<BilingualText>& heading, Language language) : m_text(byteOrderMark)
{
    std::vector<std::string> fields;
    for (const BilingualText& field : heading) {
        fields.push_back(field.in(language));
    }
    addRow(fields);
}

void CsvTable::addRow(const std::vector<std::string>& fields)
{
    for (const std::string& field : fields) {
        if (&field != &fields.front()) {
            m_text += ',';
        }
        appendField(m_text, field);
    }
    m_text += "\r\n";
}

} // namespace tavrel
