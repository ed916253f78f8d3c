// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The quoted, comma-separated text form in which the program keeps its files: texts between double quotes,
// numbers bare, nothing escaped. Every reader and writer of such files is here, one for each dialect.
namespace tavrel {

struct RecordField
{
    std::string text; // without the quotes; an unquoted text without the blanks around it
    bool quoted = false;
};

// One line by the usual rules: a comma inside quotes belongs to its field. Nothing when a quote never closes
// or text follows a closing quote.
std::optional<std::vector<RecordField>> splitRecord(std::string_view line);

// One line of a list of values, split by the same rules. Nothing when a quote never closes.
struct ListedValue
{
    std::string text;
    bool wrong = false; // text follows the closing quote; the value as it stands, quotes included
};
std::optional<std::vector<ListedValue>> splitList(std::string_view line);

// A line of the register files: three fields by the usual rules. A title may itself hold `","` or a quote, so
// any other line that starts and ends with a quote is split at its last two `","`.
struct RegisterRecord
{
    std::string title;
    std::string letter;
    std::string wadName;

    friend bool operator==(const RegisterRecord&, const RegisterRecord&) = default;
};
std::optional<RegisterRecord> splitRegisterRecord(std::string_view line);

// A line of an exchange or backup file: a number and a line of sounds.txt, each quoted or bare. A quoted text
// reaches to the last character of the line, which must be its closing quote; commas and quotes inside stay.
// Without its quotes a text ends at a comma, and nothing may follow.
struct ExchangeFields
{
    std::string_view number; // both in the line
    std::string_view text;
};
std::optional<ExchangeFields> splitExchangeRecord(std::string_view line);

// A line of the settings file: one value. Whatever stands between the first and the last quote is the text.
std::optional<RecordField> readSettingsValue(std::string_view line);

// The whole text as a number, blanks around it allowed.
std::optional<std::int64_t> wholeNumber(std::string_view text);

// Builds the lines of a file, CR LF at each end.
class RecordWriter
{
public:
    RecordWriter& text(std::string_view value);
    RecordWriter& number(std::int64_t value);
    RecordWriter& endRecord();
    const std::string& bytes() const { return m_bytes; }

private:
    void separate();

    std::string m_bytes;
    bool m_startsRecord = true;
};

} // namespace tavrel
