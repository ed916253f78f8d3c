// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/DoublesRegister.h"

#include "base/FileNames.h"
#include "base/QuotedRecords.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"
#include "catalogue/CatalogueLoading.h"
#include "catalogue/FixedText.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t numberWidth = 3;

// Of a field without quotes around it: between quotes, nobody could read it again.
bool holdsQuote(const DoublesRecord& record)
{
    const auto texts = {&record.firstCarried, &record.name, &record.samples, &record.secondCarried};
    return std::ranges::any_of(texts,
                               [](const std::string* text) { return text->find('"') != std::string::npos; });
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
        std::optional<DoublesRecord> record = readDoublesRecord(line);
        if (record && !holdsQuote(*record)) {
            result.m_records.push_back(std::move(*record));
        } else {
            result.m_keptLines.push_back({result.m_records.size(), std::string(line)});
        }
    }
    return result;
}

std::string DoublesRegister::row(std::size_t index) const
{
    const DoublesRecord& record = m_records.at(index);
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
            const DoublesRecord& record = m_records[i];
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
