// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "backup/ExchangeFile.h"
#include "catalogue/SoundCatalogue.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// What an import makes of a line: the file's name, samples and values with the letters of the current line,
// and the current WAD's letter. A current line without letters keeps those of the file. The letter counts as
// there when the current line holds "#" and the letter anywhere, be it as a part of a longer one; an empty
// one is never added.
std::string mergedLine(std::string_view fileLine, std::string_view currentLine, std::string_view letter);

// An exchange file or a backup that was read to be imported: its rows, which of them are ticked, and what the
// ticked ones make of the catalogue's lines. What can be shown of a row is what importing it does. Strangers
// send files of any size, so a row is a few bytes beside the file's text, and its texts are made when they
// are asked for.
class ImportFile
{
public:
    ImportFile(TextFile text, const SoundCatalogue& catalogue, std::string letter);

    const std::filesystem::path& path() const { return m_text.path; }
    ExchangeKind kind() const { return m_kind; }
    const SoundCatalogue& catalogue() const { return *m_catalogue; }
    // That come with an exchange file.
    const std::optional<std::filesystem::path>& samplesFolder() const { return m_samplesFolder; }
    // About the file as a whole.
    std::vector<Failure> notices() const;

    std::size_t rows() const { return m_rows.size(); }
    std::int64_t id(std::size_t row) const { return m_rows.at(row).id; }
    std::string idText(std::size_t row) const; // decimal, however large
    std::string_view line(std::size_t row) const;
    // What the line holds; nothing for one with more samples than a record takes.
    std::optional<SoundLine> record(std::size_t row) const { return tryParse(line(row)); }

    // Of the catalogue; none for a row whose number it does not have.
    std::optional<std::string_view> lineToReplace(std::size_t row) const;

    bool isApplicable(std::size_t row) const { return m_rows.at(row).refusal == Refusal::None; }
    BilingualText whyRefused(std::size_t row) const;
    // What to look at before the row is imported.
    bool hasRemark(std::size_t row) const { return m_rows.at(row).remark != Remark::None; }
    BilingualText remark(std::size_t row) const;
    // What the catalogue's line would become, or has become; empty for a row that cannot be applied.
    std::string result(std::size_t row) const;

    // First all that can be applied. Rows build on the ticked ones before them; one that cannot be applied
    // stays unticked.
    void tick(std::span<const std::size_t> rows);
    bool isTicked(std::size_t row) const { return m_rows.at(row).ticked; }
    std::size_t tickedRows() const;
    // The numbers of the lines that ticked rows are for, each once.
    std::vector<std::size_t> tickedLines() const;

    // The ticked rows that are not in the catalogue yet: one line for each sound, after its last row.
    std::vector<SoundCatalogue::LineChange> changes() const;
    // After the changes were made: the ticked rows are done and will not be merged a second time. What is
    // asked for again concerns their samples.
    void markApplied();

private:
    friend Result<ImportFile> parseImportFile(TextFile text, const SoundCatalogue& catalogue,
                                              std::string_view letter);
    friend Result<ImportFile> readImportFile(const std::filesystem::path& file,
                                             const SoundCatalogue& catalogue, std::string_view letter);

    enum class Refusal : std::uint8_t {
        None,
        NoSuchLine,
        NoSoundLine,
        ControlCharacters,
        HashInNameOrSample,
        HashBeforeVolume,
        NotWithTheLetters
    };
    enum class Remark : std::uint8_t { None, OtherName, ReadDifferently };

    struct Row
    {
        std::int64_t id = -1;
        std::uint32_t start = 0; // of the line, in the text
        std::uint32_t length = 0;
        std::uint32_t buildsOn = noRow; // the ticked row of the same sound before it
        Refusal refusal = Refusal::None;
        Remark remark = Remark::None;
        bool ticked = false;
        bool applied = false;
    };
    static constexpr std::uint32_t noRow = 0xFFFFFFFF;

    bool isInCatalogue(std::int64_t id) const;
    const std::string& currentLine(const Row& row) const;
    std::string_view lineOf(const Row& row) const;
    std::string merged(const Row& row, std::string_view currentLine) const;
    Refusal refusalOf(const Row& row) const;
    static Refusal refusalToCut(std::string_view line);
    Remark remarkOn(const Row& row, std::string_view result) const;
    void mergeTicked();

    TextFile m_text;
    ExchangeKind m_kind;
    const SoundCatalogue* m_catalogue;
    std::string m_letter;
    std::size_t m_linesWhenRead;
    std::optional<std::filesystem::path> m_samplesFolder;
    std::vector<Row> m_rows;
    std::map<std::size_t, std::string> m_results; // of the ticked rows to come, by sound
};

// Reads all of the file or, when a record is damaged, fails with its line. The catalogue must outlive what
// was read.
Result<ImportFile> readImportFile(const std::filesystem::path& file, const SoundCatalogue& catalogue,
                                  std::string_view letter);
// Reads bytes, without a look at the folder for samples.
Result<ImportFile> parseImportFile(TextFile text, const SoundCatalogue& catalogue, std::string_view letter);

// A field of a line as the file has it, as the catalogue has it, and as it would become.
struct FieldComparison
{
    enum Line : std::size_t { file, catalogue, result, lines };

    BilingualText field;
    std::array<std::string, lines> values; // empty where there is no line to read
    bool differs = false;                  // file and catalogue
    bool changes() const { return values[result] != values[catalogue]; }
};
// Without a file and a row, the fields alone.
std::vector<FieldComparison> compareWithCatalogue(const ImportFile* file, std::optional<std::size_t> row);

} // namespace tavrel
