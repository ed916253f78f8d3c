// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DoublesStatus.h"

#include "base/FailureTexts.h"
#include "base/QuotedRecords.h"

namespace tavrel {

namespace {

constexpr std::size_t fieldsOfRecord = 6;

struct DoublesRecord
{
    std::int64_t number;
    std::string mark;
};

std::optional<DoublesRecord> readRecord(std::string_view line)
{
    const auto fields = splitRecord(line);
    if (!fields || fields->size() != fieldsOfRecord) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> number = wholeNumber((*fields)[0].text);
    if (!number) {
        return std::nullopt;
    }
    return DoublesRecord{*number, (*fields)[1].text};
}

} // namespace

LoadedDoubles parseDoubles(const TextFile& file, std::span<const std::size_t> protectedNumbers)
{
    LoadedDoubles loaded;
    std::size_t lineNumber = 0;
    for (const std::string_view line : file.lines()) {
        ++lineNumber;
        if (line.empty()) {
            continue;
        }
        const std::optional<DoublesRecord> record = readRecord(line);
        if (!record) {
            loaded.notices.push_back(
                wrongLine(file.path, lineNumber,
                          {"This is not the record of a double. It was ignored.",
                           "Ce n'est pas un enregistrement de doublon. Il a été ignoré."}));
        } else if (record->number < 0 || record->number >= std::int64_t{DoublesStatus::size}) {
            loaded.notices.push_back(wrongLine(
                file.path, lineNumber,
                {"The sound number is not between 0 and 369. The record was ignored.",
                 "Le numéro de son n'est pas compris entre 0 et 369. L'enregistrement a été ignoré."}));
        } else {
            const bool ticked = record->mark == DoublesStatus::takesPart;
            loaded.status.set(static_cast<std::size_t>(record->number),
                              ticked ? DoublesStatus::takesPart : DoublesStatus::leftOut);
        }
    }
    for (const std::size_t number : protectedNumbers) {
        loaded.status.set(number, DoublesStatus::leftOut);
    }
    return loaded;
}

} // namespace tavrel
