// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DoublesStatus.h"

#include "base/FailureTexts.h"
#include "base/QuotedRecords.h"

namespace tavrel {

std::optional<DoublesRecord> readDoublesRecord(std::string_view line)
{
    constexpr std::size_t fieldsOfRecord = 6;
    auto fields = splitRecord(line);
    if (!fields || fields->size() != fieldsOfRecord) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> number = wholeNumber((*fields)[0].text);
    if (!number) {
        return std::nullopt;
    }
    const auto take = [&fields](std::size_t field) { return std::move((*fields)[field].text); };
    return DoublesRecord{*number, take(1) == DoublesStatus::takesPart, take(2), take(3), take(4), take(5)};
}

LoadedDoubles parseDoubles(const TextFile& file, std::span<const std::size_t> protectedNumbers)
{
    LoadedDoubles loaded;
    std::size_t lineNumber = 0;
    for (const std::string_view line : file.lines()) {
        ++lineNumber;
        if (line.empty()) {
            continue;
        }
        const std::optional<DoublesRecord> record = readDoublesRecord(line);
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
            loaded.status.set(static_cast<std::size_t>(record->number),
                              record->ticked ? DoublesStatus::takesPart : DoublesStatus::leftOut);
        }
    }
    for (const std::size_t number : protectedNumbers) {
        loaded.status.set(number, DoublesStatus::leftOut);
    }
    return loaded;
}

} // namespace tavrel
