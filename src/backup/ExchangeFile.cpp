// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeFile.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/QuotedRecords.h"
#include "base/SafeFile.h"
#include "base/TextFile.h"
#include "catalogue/FixedText.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <stdexcept>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t endingLength = 4; // ".tox"

// Blanks, a sign, digits.
std::optional<std::int64_t> parseId(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos) {
        return std::nullopt;
    }
    std::int64_t id = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), id).ec != std::errc()) {
        using Limits = std::numeric_limits<std::int64_t>;
        return text.starts_with('-') ? Limits::min() : Limits::max();
    }
    return id;
}

// Counts characters, not bytes.
void dropLastCharacter(fs::path::string_type& name)
{
    const auto isContinuation = [](auto unit) { return (static_cast<unsigned>(unit) & 0xC0U) == 0x80U; };
    if constexpr (sizeof(fs::path::value_type) == 1) { // UTF-8
        while (name.size() > 1 && isContinuation(name.back())) {
            name.pop_back();
        }
    }
    if (!name.empty()) {
        name.pop_back();
    }
}

} // namespace

ExchangeKind kindOfFile(const fs::path& file)
{
    constexpr std::string_view ending = "tob";
    const std::string name = codePagePath(file.filename()).bytes;
    const bool isBackup =
        name.size() >= ending.size() && sameName(name.substr(name.size() - ending.size()), ending);
    return isBackup ? ExchangeKind::Backup : ExchangeKind::Exchange;
}

Result<std::vector<ExchangeRecord>> readExchangeFile(const fs::path& file)
{
    const Result<TextFile> text = readTextFile(file);
    if (!text) {
        return text.failure();
    }
    std::vector<ExchangeRecord> records;
    for (const std::string_view line : text->lines()) {
        std::optional<ExchangeFields> fields = splitExchangeRecord(line);
        if (!fields) {
            return wrongLine(
                file, records.size() + 1,
                {"This is not an ID and a line of sounds.txt, each between double quotes.",
                 "Ce n'est pas un ID suivi d'une ligne de sounds.txt, chacun entre guillemets."});
        }
        const std::optional<std::int64_t> id = parseId(fields->number);
        if (!id) {
            const std::string shown = "[" + utf8FromCodePage(fields->number) + "]";
            return wrongLine(
                file, records.size() + 1,
                {"The ID " + shown + " is not a number.", "L'ID " + shown + " n'est pas un nombre."});
        }
        records.push_back({*id, std::move(fields->text)});
    }
    return records;
}

Problem writeExchangeFile(const fs::path& file, std::span<const ExchangeRecord> records)
{
    RecordWriter writer;
    for (const ExchangeRecord& record : records) {
        writer.text(std::to_string(record.id)).text(record.line).endRecord();
    }
    if (Problem problem = writeFileSafely(file, writer.bytes())) {
        return problem;
    }
    if (const Result<FolderIndex> folder = FolderIndex::of(file.parent_path())) {
        removeOtherSpellings(*folder, file);
    }
    return std::nullopt;
}

fs::path samplesFolderOf(const fs::path& file)
{
    fs::path::string_type name = file.filename().native();
    for (std::size_t i = 0; i < endingLength; ++i) {
        dropLastCharacter(name);
    }
    fs::path folder = file.parent_path() / (fs::path(name) += "_Samples");
    std::error_code ignored;
    if (!fs::exists(folder, ignored)) {
        const CodePageText wanted = codePagePath(folder.filename());
        const std::optional<fs::path> found =
            wanted.exact ? findEntry(file.parent_path(), wanted.bytes) : std::nullopt;
        return found.value_or(folder);
    }
    return folder;
}

std::string exchangeRow(std::int64_t id, const SoundLine& record, std::string_view letters)
{
    const FixedText<5> idField(std::to_string(id) + " ");
    std::string row;
    for (const std::string_view field :
         {idField.view(), record.Name.view(), record.SampleText.view(), record.Vol.view(),
          record.FlagP.view(), record.FlagV.view(), record.FlagRN.view(), record.FlagL.view(),
          record.Ch.view(), record.Pit.view(), record.Rad.view(), letters}) {
        row += field;
    }
    return row;
}

std::optional<SoundLine> tryParse(std::string_view line)
{
    try {
        return ParseSoundLine(line);
    } catch (const std::out_of_range&) {
        return std::nullopt;
    }
}

fs::path makeBackupsFolder(const fs::path& programFolder)
{
    fs::path folder = fileIn(programFolder, backupsFolderName);
    std::error_code ignored;
    fs::create_directory(folder, ignored);
    return folder;
}

} // namespace tavrel
