// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/QuotedRecords.h"

#include <algorithm>
#include <charconv>

namespace tavrel {

namespace {

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool isBetweenQuotes(std::string_view text)
{
    return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

struct TakenField
{
    std::string_view text;
    bool wrong = false;
    bool quoted = false;
    bool isLast = false;
};

// Takes the first field, and the comma after it, from the front of the line. Nothing when its quote never
// closes.
std::optional<TakenField> takeField(std::string_view& rest)
{
    const std::size_t start = rest.find_first_not_of(" \t");
    const bool quoted = start != std::string_view::npos && rest[start] == '"';
    std::size_t searchFrom = 0;
    if (quoted) {
        const std::size_t close = rest.find('"', start + 1);
        if (close == std::string_view::npos) {
            return std::nullopt;
        }
        searchFrom = close + 1;
    }
    const std::size_t comma = rest.find(',', searchFrom);
    const bool isLast = comma == std::string_view::npos;
    const std::string_view field = trimmed(rest.substr(0, comma));
    rest = isLast ? std::string_view() : rest.substr(comma + 1);
    if (!quoted) {
        return TakenField{field, false, false, isLast};
    }
    const std::string_view text = field.substr(1, field.size() - 2);
    if (field.back() != '"' || text.find('"') != std::string_view::npos) {
        return TakenField{field, true, true, isLast};
    }
    return TakenField{text, false, true, isLast};
}

} // namespace

std::optional<std::vector<RecordField>> splitRecord(std::string_view line)
{
    std::vector<RecordField> fields;
    bool isLast = false;
    while (!isLast) {
        const std::optional<TakenField> taken = takeField(line);
        if (!taken || taken->wrong) {
            return std::nullopt;
        }
        fields.push_back({std::string(taken->text), taken->quoted});
        isLast = taken->isLast;
    }
    return fields;
}

std::optional<std::vector<ListedValue>> splitList(std::string_view line)
{
    std::vector<ListedValue> values;
    bool isLast = false;
    while (!isLast) {
        const std::optional<TakenField> taken = takeField(line);
        if (!taken) {
            return std::nullopt;
        }
        values.push_back({std::string(taken->text), taken->wrong});
        isLast = taken->isLast;
    }
    return values;
}

std::optional<RegisterRecord> splitRegisterRecord(std::string_view line)
{
    const std::optional<std::vector<RecordField>> fields = splitRecord(line);
    if (fields && fields->size() == 3) {
        return RegisterRecord{(*fields)[0].text, (*fields)[1].text, (*fields)[2].text};
    }
    if (!isBetweenQuotes(line)) {
        return std::nullopt;
    }
    constexpr std::string_view separator = "\",\"";
    const std::string_view inside = line.substr(1, line.size() - 2);
    const std::size_t second = inside.rfind(separator);
    if (second == std::string_view::npos || second == 0) {
        return std::nullopt;
    }
    const std::size_t first = inside.rfind(separator, second - 1);
    if (first == std::string_view::npos || first + separator.size() > second) {
        return std::nullopt;
    }
    const std::size_t letterAt = first + separator.size();
    return RegisterRecord{std::string(inside.substr(0, first)),
                          std::string(inside.substr(letterAt, second - letterAt)),
                          std::string(inside.substr(second + separator.size()))};
}

std::optional<ExchangeFields> splitExchangeRecord(std::string_view line)
{
    const std::optional<TakenField> number = takeField(line);
    if (!number || number->wrong || number->isLast) {
        return std::nullopt;
    }
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (line.starts_with('"')) {
        if (!isBetweenQuotes(line)) {
            return std::nullopt;
        }
        return ExchangeFields{number->text, line.substr(1, line.size() - 2)};
    }
    if (line.find(',') != std::string_view::npos) {
        return std::nullopt;
    }
    return ExchangeFields{number->text, line};
}

std::optional<RecordField> readSettingsValue(std::string_view line)
{
    const std::string_view value = trimmed(line);
    if (!value.starts_with('"')) {
        return RecordField{std::string(value), false};
    }
    if (!isBetweenQuotes(value)) {
        return std::nullopt;
    }
    return RecordField{std::string(value.substr(1, value.size() - 2)), true};
}

std::optional<std::int64_t> wholeNumber(std::string_view text)
{
    const std::string_view digits = trimmed(text);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return value;
}

void RecordWriter::separate()
{
    if (!m_startsRecord) {
        m_bytes += ',';
    }
    m_startsRecord = false;
}

RecordWriter& RecordWriter::text(std::string_view value)
{
    separate();
    m_bytes += '"';
    m_bytes += value;
    m_bytes += '"';
    return *this;
}

RecordWriter& RecordWriter::number(std::int64_t value)
{
    separate();
    m_bytes += std::to_string(value);
    return *this;
}

RecordWriter& RecordWriter::endRecord()
{
    m_bytes += "\r\n";
    m_startsRecord = true;
    return *this;
}

} // namespace tavrel
