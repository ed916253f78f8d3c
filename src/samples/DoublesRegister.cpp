// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/DoublesRegister.h"

#include "base/QuotedRecords.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"
#include "catalogue/CatalogueLoading.h"
#include "catalogue/FixedText.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t fieldsOfRecord = 6;
constexpr std::size_t numberWidth = 3;

// Of a field without quotes around it: between quotes, nobody could read it again.
bool holdsQuote(const RecordField& field)
{
    return field.text.find('"') != std::string::npos;
}

} // namespace

Result<DoublesRegister> DoublesRegister::load(const std::filesystem::path& programFolder)
{
    const Result<TextFile> file = readTextFile(programFolder, doublesFileName);
    if (!file) {
        return file.failure();
    }
    DoublesRegister result;
    result.m_file = file->path;
    for (const std::string_view line : file->lines()) {
        const auto fields = splitRecord(line);
        const std::optional<std::int64_t> number =
            fields && fields->size() == fieldsOfRecord ? wholeNumber((*fields)[0].text) : std::nullopt;
        if (!number || std::ranges::any_of(*fields, holdsQuote)) {
            result.m_keptLines.push_back({result.m_records.size(), std::string(line)});
            continue;
        }
        const bool ticked = (*fields)[1].text == DoublesStatus::takesPart;
        result.m_records.push_back(
            {*number, ticked, (*fields)[2].text, (*fields)[3].text, (*fields)[4].text, (*fields)[5].text});
    }
    return result;
}

std::string DoublesRegister::row(std::size_t index) const
{
    const Record& record = m_records.at(index);
    std::string number = std::to_string(record.number);
    number.insert(0, numberWidth - std::min(numberWidth, number.size()), ' ');
    return number.append(": ")
        .append(FixedText<24>(record.name).view())
        .append(" ")
        .append(FixedText<32>(record.samples).view());
}

Problem DoublesRegister::save() const
{
    std::string text;
    auto kept = m_keptLines.begin();
    for (std::size_t i = 0; i <= m_records.size(); ++i) {
        for (; kept != m_keptLines.end() && kept->before == i; ++kept) {
            text += kept->text + "\r\n";
        }
        if (i < m_records.size()) {
            const Record& record = m_records[i];
            RecordWriter writer;
            writer.number(record.number)
                .text(record.ticked ? DoublesStatus::takesPart : DoublesStatus::leftOut)
                .text(record.firstCarried)
                .text(FixedText<24>(record.name).view())
                .text(FixedText<32>(record.samples).view())
                .text(record.secondCarried)
                .endRecord();
            text += writer.bytes();
        }
    }
    return writeFileSafely(m_file, text);
}

} // namespace tavrel
