// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ImportFile.h"

#include "backup/SamplesFolderSwap.h"
#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/FilledText.h"
#include "base/QuotedRecords.h"

#include <algorithm>
#include <functional>
#include <set>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

std::string_view nameOf(std::string_view line)
{
    return line.substr(0, line.find(':'));
}

// The samples and values that are read from both lines are the same, whatever their letters.
bool readAlike(std::string_view left, std::string_view right)
{
    std::optional<SoundLine> first = tryParse(left);
    std::optional<SoundLine> second = tryParse(right);
    if (!first || !second) {
        return false;
    }
    first->Letters.clear();
    second->Letters.clear();
    return first == second;
}

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 && c != '\t';
}

} // namespace

std::string mergedLine(std::string_view fileLine, std::string_view currentLine, std::string_view letter)
{
    const std::string tag = "#" + std::string(letter);
    const std::size_t hash = currentLine.find('#');
    std::string line(fileLine);
    if (hash != std::string_view::npos) {
        line = std::string(fileLine.substr(0, fileLine.find('#'))).append(currentLine.substr(hash));
    }
    const bool lacksLetter = !letter.empty() && currentLine.find(tag) == std::string_view::npos;
    return lacksLetter ? line + " " + tag : line;
}

Result<ImportFile> readImportFile(const fs::path& file, const SoundCatalogue& catalogue,
                                  std::string_view letter)
{
    Result<TextFile> text = readTextFile(file, largestLines);
    Result<ImportFile> result =
        text ? parseImportFile(std::move(*text), catalogue, letter) : Result<ImportFile>(text.failure());
    if (result && result->kind() == ExchangeKind::Exchange) {
        std::error_code error;
        const fs::path whole = fs::absolute(file, error);
        result->m_samplesFolder = error ? std::nullopt : samplesFolderToRead(samplesFolderOf(whole));
    }
    return result;
}

Result<ImportFile> parseImportFile(TextFile text, const SoundCatalogue& catalogue, std::string_view letter)
{
    ImportFile file(std::move(text), catalogue, std::string(letter));
    const std::string& bytes = file.m_text.text;
    file.m_rows.reserve(mostRecordsIn(bytes));
    const Problem problem = forEachExchangeRecord(file.m_text, [&](const ExchangeRecordView& record) {
        ImportFile::Row row;
        row.id = record.id;
        row.start = static_cast<std::uint32_t>(record.line.data() - bytes.data());
        row.length = static_cast<std::uint32_t>(record.line.size());
        row.refusal = file.refusalOf(row);
        row.ticked = row.refusal == ImportFile::Refusal::None;
        file.m_rows.push_back(row);
    });
    if (problem) {
        return *problem;
    }
    file.mergeTicked();
    return file;
}

ImportFile::ImportFile(TextFile text, const SoundCatalogue& catalogue, std::string letter)
    : m_text(std::move(text)), m_kind(kindOfFile(m_text.path)), m_catalogue(&catalogue),
      m_letter(std::move(letter)), m_linesWhenRead(catalogue.size())
{}

std::vector<Failure> ImportFile::notices() const
{
    if (!m_text.hadByteOrderMark) {
        return {};
    }
    return {wrongContent(m_text.path, {"The file starts with a UTF-8 mark, which is left out.",
                                       "Le fichier commence par une marque UTF-8, qui est ignorée."})};
}

std::string ImportFile::idText(std::size_t row) const
{
    const Row& found = m_rows.at(row);
    const std::string_view text = m_text.text;
    const std::size_t start = text.substr(0, found.start).find_last_of("\r\n") + 1; // npos is one less than 0
    std::string_view rest = text.substr(start);
    const std::optional<ExchangeFields> fields = splitExchangeRecord(takeLine(rest).value_or(""));
    return shownId(found.id, fields ? fields->number : std::string_view());
}

std::string_view ImportFile::lineOf(const Row& row) const
{
    return std::string_view(m_text.text).substr(row.start, row.length);
}

std::string_view ImportFile::line(std::size_t row) const
{
    return lineOf(m_rows.at(row));
}

bool ImportFile::isInCatalogue(std::int64_t id) const
{
    return id >= 0 && static_cast<std::uint64_t>(id) < m_catalogue->size();
}

const std::string& ImportFile::currentLine(const Row& row) const
{
    return m_catalogue->currentLine(static_cast<std::size_t>(row.id));
}

std::optional<std::string_view> ImportFile::lineToReplace(std::size_t row) const
{
    const Row& found = m_rows.at(row);
    return isInCatalogue(found.id) ? std::optional<std::string_view>(currentLine(found)) : std::nullopt;
}

std::string ImportFile::merged(const Row& row, std::string_view currentLine) const
{
    return kind() == ExchangeKind::Backup ? std::string(lineOf(row))
                                          : mergedLine(lineOf(row), currentLine, m_letter);
}

ImportFile::Refusal ImportFile::refusalToCut(std::string_view line)
{
    switch (firstHashOf(line)) {
    case FirstHash::InNameOrSample:
        return Refusal::HashInNameOrSample;
    case FirstHash::BeforeVolume:
        return Refusal::HashBeforeVolume;
    case FirstHash::OpensLetters:
        break;
    }
    return Refusal::None;
}

ImportFile::Refusal ImportFile::refusalOf(const Row& row) const
{
    if (!isInCatalogue(row.id)) {
        return Refusal::NoSuchLine;
    }
    const std::string_view line = lineOf(row);
    if (!SoundCatalogue::accepts(line)) {
        return Refusal::NoSoundLine;
    }
    const std::string& current = currentLine(row);
    if (kind() == ExchangeKind::Exchange) {
        if (std::ranges::any_of(line, isControl)) {
            return Refusal::ControlCharacters;
        }
        for (const std::string_view cut : {line, std::string_view(current)}) {
            if (const Refusal refusal = refusalToCut(cut); refusal != Refusal::None) {
                return refusal;
            }
        }
    }
    return SoundCatalogue::accepts(merged(row, current)) ? Refusal::None : Refusal::NotWithTheLetters;
}

BilingualText ImportFile::whyRefused(std::size_t row) const
{
    switch (m_rows.at(row).refusal) {
    case Refusal::None:
        break;
    case Refusal::NoSuchLine:
        return filled({"The catalogue has no line {}: it has {}, from 0.",
                       "Le catalogue n'a pas de ligne {} : il contient {}, à partir de 0."},
                      {idText(row), countedLines(m_linesWhenRead)});
    case Refusal::NoSoundLine:
        return SoundCatalogue::refusal(line(row)).value_or(BilingualText());
    case Refusal::ControlCharacters:
        return {"The line contains control characters.", "La ligne contient des caractères de contrôle."};
    case Refusal::HashInNameOrSample:
        return {"A \"#\" stands in a name or sample; the line would be cut there.",
                "Un « # » se trouve dans un nom ou un sample ; la ligne y serait coupée."};
    case Refusal::HashBeforeVolume:
        return {
            R"("VOL" stands behind the first "#"; the letters would be cut from the wrong place.)",
            "« VOL » se trouve après le premier « # » ; les lettres seraient coupées au mauvais endroit."};
    case Refusal::NotWithTheLetters: // the line itself is one, but letters behind it begin another sample
        return tooManySamples();
    }
    return {};
}

// The names are compared with the catalogue: another row of the file tells nothing about sounds.txt.
ImportFile::Remark ImportFile::remarkOn(const Row& row, std::string_view result) const
{
    const std::string_view line = lineOf(row);
    if (nameOf(line) != nameOf(currentLine(row))) {
        return Remark::OtherName;
    }
    return result != line && !readAlike(result, std::string(line.substr(0, line.find('#'))) + "\t")
               ? Remark::ReadDifferently
               : Remark::None;
}

BilingualText ImportFile::remark(std::size_t row) const
{
    switch (m_rows.at(row).remark) {
    case Remark::None:
        break;
    case Remark::OtherName: {
        const std::string name = bracketed(nameOf(currentLine(m_rows[row])));
        return {"The catalogue has " + name + " here: the file comes from another sounds.txt.",
                "Le catalogue a " + name + " ici : le fichier provient d'un autre sounds.txt."};
    }
    case Remark::ReadDifferently:
        return {"With the letters after it, the line will be read differently.",
                "Avec les lettres ajoutées, la ligne sera lue autrement."};
    }
    return {};
}

void ImportFile::mergeTicked()
{
    m_results.clear();
    std::vector<std::uint32_t> lastTicked(m_catalogue->size(), noRow);
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        Row& row = m_rows[i];
        if (row.refusal != Refusal::None || row.applied || !isInCatalogue(row.id)) {
            continue;
        }
        const auto sound = static_cast<std::size_t>(row.id);
        const auto before = m_results.find(sound);
        std::string result = merged(row, before == m_results.end() ? currentLine(row) : before->second);
        row.buildsOn = lastTicked[sound];
        row.remark = remarkOn(row, result);
        if (row.ticked) {
            m_results.insert_or_assign(sound, std::move(result));
            lastTicked[sound] = static_cast<std::uint32_t>(i);
        }
    }
}

std::string ImportFile::result(std::size_t row) const
{
    const Row& wanted = m_rows.at(row);
    if (wanted.refusal != Refusal::None || !isInCatalogue(wanted.id)) {
        return {};
    }
    if (wanted.applied) {
        return currentLine(wanted);
    }
    std::vector<const Row*> chain{&wanted};
    while (chain.back()->buildsOn != noRow) {
        chain.push_back(&m_rows.at(chain.back()->buildsOn));
    }
    std::string line = currentLine(wanted);
    std::for_each(chain.rbegin(), chain.rend(), [&](const Row* step) { line = merged(*step, line); });
    return line;
}

void ImportFile::tick(std::span<const std::size_t> rows)
{
    for (Row& row : m_rows) {
        row.ticked = false;
    }
    for (const std::size_t i : rows) {
        m_rows.at(i).ticked = m_rows[i].refusal == Refusal::None;
    }
    mergeTicked();
}

std::size_t ImportFile::tickedRows() const
{
    return static_cast<std::size_t>(std::ranges::count_if(m_rows, &Row::ticked));
}

std::vector<std::size_t> ImportFile::tickedLines() const
{
    std::set<std::size_t> lines;
    for (const Row& row : m_rows) {
        if (row.ticked && isInCatalogue(row.id)) {
            lines.insert(static_cast<std::size_t>(row.id));
        }
    }
    return {lines.begin(), lines.end()};
}

std::vector<SoundCatalogue::LineChange> ImportFile::changes() const
{
    std::vector<SoundCatalogue::LineChange> changes;
    changes.reserve(m_results.size());
    for (const auto& [sound, line] : m_results) {
        changes.push_back({sound, line});
    }
    return changes;
}

void ImportFile::markApplied()
{
    for (Row& row : m_rows) {
        if (row.ticked) {
            row.applied = true;
            row.remark = Remark::None;
        }
    }
    mergeTicked();
}

std::vector<FieldComparison> compareWithCatalogue(const ImportFile* file, std::optional<std::size_t> row)
{
    const auto allSamples = [](const SoundLine& line) {
        std::string samples;
        for (const std::string& name : line.Samples) {
            samples += (samples.empty() ? "" : " ") + name;
        }
        return samples;
    };
    const auto trimmed = [](auto SoundLine::*field) {
        return [field](const SoundLine& line) { return std::string((line.*field).trimmed()); };
    };
    const struct
    {
        BilingualText name;
        std::function<std::string(const SoundLine&)> value;
    } fields[] = {
        {{"Name", "Nom"}, trimmed(&SoundLine::Name)},
        {{"Samples", "Samples"}, allSamples},
        {{"VOL", "VOL"}, trimmed(&SoundLine::Vol)},
        {{"P", "P"}, trimmed(&SoundLine::FlagP)},
        {{"V", "V"}, trimmed(&SoundLine::FlagV)},
        {{"R/N", "R/N"}, trimmed(&SoundLine::FlagRN)},
        {{"L", "L"}, trimmed(&SoundLine::FlagL)},
        {{"CH", "CH"}, trimmed(&SoundLine::Ch)},
        {{"PIT", "PIT"}, trimmed(&SoundLine::Pit)},
        {{"RAD", "RAD"}, trimmed(&SoundLine::Rad)},
        {{"Letters", "Lettres"}, [](const SoundLine& line) { return line.Letters; }},
    };
    std::optional<SoundLine> held;
    std::optional<SoundLine> current;
    std::optional<SoundLine> result;
    if (file != nullptr && row) {
        held = file->record(*row);
        const std::optional<std::string_view> line = file->lineToReplace(*row);
        current = line ? tryParse(*line) : std::nullopt;
        result = file->isApplicable(*row) ? tryParse(file->result(*row)) : std::nullopt;
    }
    std::vector<FieldComparison> comparison;
    for (const auto& part : fields) {
        const auto valueIn = [&part](const std::optional<SoundLine>& line) {
            return line ? part.value(*line) : std::string();
        };
        FieldComparison field{part.name, {valueIn(held), valueIn(current), valueIn(result)}};
        field.differs =
            current && field.values[FieldComparison::file] != field.values[FieldComparison::catalogue];
        comparison.push_back(std::move(field));
    }
    return comparison;
}

} // namespace tavrel
