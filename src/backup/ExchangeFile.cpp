// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeFile.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
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

// The lone CR of a file with other line ends.
std::size_t findCarriageReturn(std::string_view text)
{
    if (text.find('\n') == std::string_view::npos) {
        return std::string_view::npos; // they end its lines
    }
    std::size_t at = text.find('\r');
    while (at != std::string_view::npos && text.substr(at).starts_with("\r\n")) {
        at = text.find('\r', at + 1);
    }
    return at;
}

Problem refusalOfText(const TextFile& text)
{
    const std::size_t at = findCarriageReturn(text.text);
    if (at != std::string::npos) {
        const auto before = std::string_view(text.text).substr(0, at);
        const auto line = static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1;
        return wrongLine(text.path, line,
                         {"A carriage return stands inside a record.",
                          "Un retour chariot se trouve à l'intérieur d'un enregistrement."});
    }
    const auto isBeyondAscii = [](char c) { return static_cast<unsigned char>(c) > 127; };
    if (text.hadByteOrderMark && std::ranges::any_of(text.text, isBeyondAscii)) {
        return wrongContent(
            text.path, {"The file is written in Unicode (UTF-8), and its accented letters would become "
                        "others. Save it as ANSI text.",
                        "Le fichier est écrit en Unicode (UTF-8) et ses lettres accentuées deviendraient "
                        "d'autres caractères. Enregistrez-le en texte ANSI."});
    }
    return std::nullopt;
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

std::string shownId(std::int64_t id, std::string_view number)
{
    using Limits = std::numeric_limits<std::int64_t>;
    const bool isExact = id != Limits::min() && id != Limits::max();
    return isExact ? std::to_string(id) : std::string(number.substr(number.find_first_not_of(' ')));
}

Result<std::vector<ExchangeRecord>> readExchangeFile(const fs::path& file)
{
    const Result<TextFile> text = readTextFile(file, largestLines);
    if (!text) {
        return text.failure();
    }
    std::vector<ExchangeRecord> records;
    const Problem problem = forEachExchangeRecord(*text, [&records](const ExchangeRecordView& record) {
        records.push_back({record.id, std::string(record.line), shownId(record.id, record.number)});
    });
    return problem ? Result<std::vector<ExchangeRecord>>(*problem) : records;
}

std::size_t mostRecordsIn(std::string_view text)
{
    const bool endsInLineFeeds = text.find('\n') != std::string_view::npos;
    return static_cast<std::size_t>(std::ranges::count(text, endsInLineFeeds ? '\n' : '\r')) + 1;
}

Problem forEachExchangeRecord(const TextFile& text,
                              const std::function<void(const ExchangeRecordView&)>& take)
{
    if (Problem problem = refusalOfText(text)) {
        return problem;
    }
    std::size_t number = 0;
    std::size_t emptyLines = 0; // at the end of the file, an editor left them
    std::string_view rest = text.text;
    while (const std::optional<std::string_view> line = takeLine(rest)) {
        if (line->empty()) {
            ++emptyLines;
            continue;
        }
        ++number;
        const std::optional<ExchangeFields> fields =
            emptyLines == 0 ? splitExchangeRecord(*line) : std::nullopt;
        if (!fields) {
            return wrongLine(
                text.path, number,
                {"This is not an ID and a line of sounds.txt, each between double quotes.",
                 "Ce n'est pas un ID suivi d'une ligne de sounds.txt, chacun entre guillemets."});
        }
        const std::optional<std::int64_t> id = parseId(fields->number);
        if (!id) {
            const std::string shown = bracketed(fields->number);
            return wrongLine(
                text.path, number,
                {"The ID " + shown + " is not a number.", "L'ID " + shown + " n'est pas un nombre."});
        }
        take({*id, fields->number, fields->text});
    }
    return std::nullopt;
}

Problem writeExchangeFile(const fs::path& file, std::span<const ExchangeRecord> records)
{
    RecordWriter writer;
    for (const ExchangeRecord& record : records) {
        writer.text(std::to_string(record.id)).text(record.line).endRecord();
    }
    const Result<FolderIndex> folder = FolderIndex::of(file.parent_path());
    Problem problem = folder ? checkOtherSpellings(*folder, file) : std::nullopt;
    if (!problem) {
        problem = writeFileSafely(file, writer.bytes());
    }
    if (!problem && folder) {
        removeOtherSpellings(*folder, file);
    }
    return problem;
}

fs::path samplesFolderOf(const fs::path& file)
{
    fs::path::string_type name = file.filename().native();
    for (std::size_t i = 0; i < endingLength; ++i) {
        dropLastCharacter(name);
    }
    return asOnDisk(file.parent_path() / (fs::path(name) += "_Samples"));
}

FirstHash firstHashOf(std::string_view line)
{
    const std::size_t hash = line.find('#');
    if (hash == std::string_view::npos) {
        return FirstHash::OpensLetters;
    }
    const std::optional<SoundLine> record = tryParse(line);
    const auto holdsHash = [](const std::string& sample) {
        return !sample.starts_with('#') && sample.find('#') != std::string::npos;
    };
    if (hash <= line.find(':') || !record || std::ranges::any_of(record->Samples, holdsHash)) {
        return FirstHash::InNameOrSample;
    }
    return hash == lettersStart(line) ? FirstHash::OpensLetters : FirstHash::BeforeVolume;
}

std::string exchangeRow(std::string_view id, const SoundLine& record, std::string_view letters)
{
    const FixedText<5> idField(std::string(id) + " ");
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
