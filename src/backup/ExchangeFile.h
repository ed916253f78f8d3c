// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/TextFile.h"
#include "catalogue/SoundLine.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The files in which users keep lines and hand them to each other: "ID","line" and CR LF for each line, bytes
// in the system code page. Exchange files (.tox) and backups (.tob) differ by name alone.
namespace tavrel {

enum class ExchangeKind { Exchange, Backup };

// How a file of that name will be read: as a backup when its last three characters are "tob".
ExchangeKind kindOfFile(const std::filesystem::path& file);

struct ExchangeRecord
{
    // The sound's number when it was exported; a number too large for the type is the largest.
    std::int64_t id;
    std::string line;
    std::string idText = {}; // of a record that was read: decimal, however large
};

// All of the file or, on the first line that is no record, nothing.
Result<std::vector<ExchangeRecord>> readExchangeFile(const std::filesystem::path& file);

// A record where it stands in the file's text.
struct ExchangeRecordView
{
    std::int64_t id;
    std::string_view number; // as it is written
    std::string_view line;
};
// Fails on the first line that is no record, which comes after those before it were taken.
[[nodiscard]] Problem forEachExchangeRecord(const TextFile& text,
                                            const std::function<void(const ExchangeRecordView&)>& take);
// The file has that many lines.
std::size_t mostRecordsIn(std::string_view text);
// The number without blanks before it; that of a record whose number is too large as it is written.
std::string shownId(std::int64_t id, std::string_view number);

// Replaces the file, and with it files whose names differ in letter case alone, once the new one is whole.
[[nodiscard]] Problem writeExchangeFile(const std::filesystem::path& file,
                                        std::span<const ExchangeRecord> records);

// Where the samples of the file travel: beside it, its name less four characters and "_Samples". The folder
// need not exist; one in another letter case is found.
std::filesystem::path samplesFolderOf(const std::filesystem::path& file);

// What the first "#" of a line is. The files' lines are cut there and get other letters.
enum class FirstHash {
    OpensLetters, // or there is none
    InNameOrSample,
    BeforeVolume // letters are read behind "VOL" alone
};
FirstHash firstHashOf(std::string_view line);

// The line as both windows list it, in fixed columns.
std::string exchangeRow(std::string_view id, const SoundLine& record, std::string_view letters);

// What the line holds; empty for one with more samples than a record takes.
std::optional<SoundLine> tryParse(std::string_view line);

// Where the file dialogs start. Creates it when it is missing.
std::filesystem::path makeBackupsFolder(const std::filesystem::path& programFolder);

} // namespace tavrel
