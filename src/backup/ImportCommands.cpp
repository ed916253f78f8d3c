// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ImportCommands.h"

#include "backup/SampleTransfer.h"
#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/Titles.h"
#include "references/LetterCommands.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

std::string_view nameOf(std::string_view line)
{
    return line.substr(0, line.find(':'));
}

bool isInCatalogue(std::int64_t id, const SoundCatalogue& catalogue)
{
    return id >= 0 && static_cast<std::uint64_t>(id) < catalogue.size();
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

std::string resultFor(const ImportRow& row, ExchangeKind kind, std::string_view currentLine,
                      std::string_view letter)
{
    return kind == ExchangeKind::Backup ? row.line : mergedLine(row.line, currentLine, letter);
}

BilingualText refusalToCut(std::string_view line)
{
    switch (firstHashOf(line)) {
    case FirstHash::InNameOrSample:
        return {"A \"#\" stands in a name or sample; the line would be cut there.",
                "Un « # » se trouve dans un nom ou un sample ; la ligne y serait coupée."};
    case FirstHash::BeforeVolume:
        return {
            R"("VOL" stands behind the first "#"; the letters would be cut from the wrong place.)",
            "« VOL » se trouve après le premier « # » ; les lettres seraient coupées au mauvais endroit."};
    case FirstHash::OpensLetters:
        break;
    }
    return {};
}

BilingualText refusalOf(const ImportRow& row, ExchangeKind kind, const SoundCatalogue& catalogue,
                        std::string_view letter)
{
    if (!isInCatalogue(row.id, catalogue)) {
        const std::string& id = row.idText;
        return BilingualText("The catalogue has no line " + id + ": it has ",
                             "Le catalogue n'a pas de ligne " + id + " : il contient ") +
               countedLines(catalogue.size()) + BilingualText(", from 0.", ", à partir de 0.");
    }
    if (const std::optional<BilingualText> refusal = SoundCatalogue::refusal(row.line)) {
        return *refusal;
    }
    const std::string& current = catalogue.currentLine(static_cast<std::size_t>(row.id));
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; };
    if (kind == ExchangeKind::Exchange && std::ranges::any_of(row.line, isControl)) {
        return {"The line contains control characters.", "La ligne contient des caractères de contrôle."};
    }
    if (kind == ExchangeKind::Exchange) {
        for (const std::string& line : {row.line, current}) {
            if (BilingualText refusal = refusalToCut(line); !refusal.empty()) {
                return refusal;
            }
        }
    }
    return SoundCatalogue::refusal(resultFor(row, kind, current, letter)).value_or(BilingualText());
}

// The names are compared with the catalogue: another row of the file tells nothing about sounds.txt.
BilingualText remarkOn(const ImportRow& row, const SoundCatalogue& catalogue)
{
    const std::string_view current = catalogue.currentLine(static_cast<std::size_t>(row.id));
    if (nameOf(row.line) != nameOf(current)) {
        const std::string name = "[" + shownText(nameOf(current)) + "]";
        return {"The catalogue has " + name + " here: the file comes from another sounds.txt.",
                "Le catalogue a " + name + " ici : le fichier provient d'un autre sounds.txt."};
    }
    const std::string_view head = std::string_view(row.line).substr(0, row.line.find('#'));
    if (row.result != row.line && !readAlike(row.result, std::string(head) + "\t")) {
        return {"With the letters after it, the line will be read differently.",
                "Avec les lettres ajoutées, la ligne sera lue autrement."};
    }
    return {};
}

ImportRow makeRow(ExchangeRecord record, ExchangeKind kind, const SoundCatalogue& catalogue,
                  std::string_view letter)
{
    ImportRow row;
    row.id = record.id;
    row.idText = std::move(record.idText);
    row.line = std::move(record.line);
    row.refusal = refusalOf(row, kind, catalogue, letter);
    return row;
}

// The lines of the catalogue while rows are applied in their order: one may build on what an earlier one made
// of its line.
class LinesSoFar
{
public:
    explicit LinesSoFar(const SoundCatalogue& catalogue) : m_catalogue(catalogue) {}

    const std::string& line(const ImportRow& row) const
    {
        const auto changed = m_changed.find(row.id);
        return changed == m_changed.end() ? m_catalogue.currentLine(static_cast<std::size_t>(row.id))
                                          : changed->second;
    }
    void apply(const ImportRow& row, const std::string& result) { m_changed[row.id] = result; }

private:
    const SoundCatalogue& m_catalogue;
    std::unordered_map<std::int64_t, std::string> m_changed;
};

// The lines after all rows. One that was applied before is in the catalogue already.
Result<std::vector<SoundCatalogue::LineChange>> plan(const ImportRequest& request,
                                                     const SoundCatalogue& catalogue)
{
    std::vector<SoundCatalogue::LineChange> changes;
    LinesSoFar lines(catalogue);
    for (const std::size_t index : request.rows) {
        const ImportRow& row = request.file.rows.at(index);
        if (!row.applicable() || !isInCatalogue(row.id, catalogue)) {
            return Failure{BilingualText::same("ID " + row.idText + "\n") + row.refusal};
        }
        if (!row.applied) {
            const std::string result = resultFor(row, request.file.kind, lines.line(row), request.wad.letter);
            lines.apply(row, result);
            changes.push_back({static_cast<std::size_t>(row.id), result});
        }
    }
    return changes;
}

Message report(const ImportRequest& request, MessageIcon icon, const BilingualText& text)
{
    return {icon, actionOf(request.file.kind), text};
}

// The lines are in the catalogue; some samples are not in their folder.
Message incomplete(const ImportRequest& request, const SampleCopies& copies)
{
    BilingualText text = copies.failure ? copies.failure->text : BilingualText("Cancelled.", "Annulé.");
    text += BilingualText("\n\nThe lines were imported. ", "\n\nLes lignes ont été importées. ");
    text += copies.copied.empty()
                ? BilingualText("No sample was copied.", "Aucun sample n'a été copié.")
                : BilingualText("These samples were copied before:", "Ces samples ont été copiés avant :") +
                      listOfFiles(copies.copied);
    return report(request, MessageIcon::Exclamation, text);
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
    const Result<TextFile> text = readTextFile(file, largestLines);
    Result<ImportFile> result =
        text ? parseImportFile(*text, catalogue, letter) : Result<ImportFile>(text.failure());
    if (result && result->kind == ExchangeKind::Exchange) {
        std::error_code error;
        const fs::path whole = fs::absolute(file, error);
        result->samplesFolder = error ? std::nullopt : samplesFolderToRead(samplesFolderOf(whole));
    }
    return result;
}

Result<ImportFile> parseImportFile(const TextFile& text, const SoundCatalogue& catalogue,
                                   std::string_view letter)
{
    Result<std::vector<ExchangeRecord>> records = parseExchangeFile(text);
    if (!records) {
        return records.failure();
    }
    ImportFile result{text.path, kindOfFile(text.path), {}};
    if (text.hadByteOrderMark) {
        result.notices.push_back(
            wrongContent(text.path, {"The file starts with a UTF-8 mark, which is left out.",
                                     "Le fichier commence par une marque UTF-8, qui est ignorée."}));
    }
    result.rows.reserve(records->size());
    for (ExchangeRecord& record : *records) {
        result.rows.push_back(makeRow(std::move(record), result.kind, catalogue, letter));
    }
    std::vector<std::size_t> all(result.rows.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    foresee(result, all, catalogue, letter);
    return result;
}

void foresee(ImportFile& file, std::span<const std::size_t> ticked, const SoundCatalogue& catalogue,
             std::string_view letter)
{
    LinesSoFar lines(catalogue);
    for (std::size_t i = 0; i < file.rows.size(); ++i) {
        ImportRow& row = file.rows[i];
        if (!row.applicable() || row.applied) {
            continue;
        }
        row.result = resultFor(row, file.kind, lines.line(row), letter);
        row.remark = remarkOn(row, catalogue);
        if (std::ranges::binary_search(ticked, i)) {
            lines.apply(row, row.result);
        }
    }
}

void markApplied(ImportFile& file, std::span<const std::size_t> rows, const SoundCatalogue& catalogue,
                 std::string_view letter)
{
    for (const std::size_t i : rows) {
        ImportRow& row = file.rows.at(i);
        row.applied = true;
        row.result = catalogue.currentLine(static_cast<std::size_t>(row.id));
        row.remark = {};
    }
    foresee(file, rows, catalogue, letter);
}

std::optional<fs::path> chooseImportFile(const fs::path& programFolder, Dialogs& dialogs)
{
    return dialogs.chooseFile(
        {titles::chooseImportFile,
         {"Exchange/Backup files (*.tox,*.tob)", "Fichiers d'Echange/Backup (*.tox,*.tob)"},
         {"*.tox", "*.tob"},
         makeBackupsFolder(programFolder)});
}

std::optional<SoundLine> recordOf(const ImportRow& row)
{
    return tryParse(row.line);
}

std::string listedText(const ImportRow& row)
{
    const std::optional<SoundLine> record = recordOf(row);
    return record ? exchangeRow(row.idText, *record, record->Letters) : row.idText + " " + row.line;
}

std::vector<std::string> offeredSamples(const ImportRow& row)
{
    const std::optional<SoundLine> record = row.applicable() ? recordOf(row) : std::nullopt;
    return record ? sampleNamesOf(*record) : std::vector<std::string>();
}

BilingualText samplesOfBackup(const fs::path& backup)
{
    std::error_code ignored;
    const std::optional<fs::path> folder =
        samplesFolderToRead(samplesFolderOf(fs::absolute(backup, ignored)));
    const BilingualText text("The samples of a backup are not copied back.",
                             "Les samples d'une sauvegarde ne sont pas recopiés.");
    return folder ? text +
                        BilingualText("\nCopy those that you need yourself; they are in ",
                                      "\nCopiez vous-même ceux qu'il vous faut ; ils sont dans ") +
                        displayPath(*folder)
                  : text + BilingualText("\nThere are none beside this one.",
                                         "\nIl n'y en a pas à côté de celle-ci.");
}

namespace {

// The sounds of the ticked lines.
BilingualText listedSounds(const ImportRequest& request)
{
    std::string rows;
    for (const std::size_t index : request.rows) {
        const ImportRow& row = request.file.rows[index];
        rows += (rows.empty() ? "" : "\n") + std::to_string(row.id) + ": " +
                shownText(row.line.substr(0, row.line.find(':')));
    }
    return BilingualText::same(rows);
}

} // namespace

bool confirmImport(const ImportRequest& request, Dialogs& dialogs)
{
    Question question{
        actionOf(request.file.kind), {"Restore all lines.", "Restaurer toutes les lignes."}, Buttons::YesNo};
    question.details = listedSounds(request);
    if (request.file.kind == ExchangeKind::Backup) {
        return dialogs.ask(question) == Answer::Yes;
    }
    if (!RequireCurrentReference(request.wad, question.title, dialogs)) {
        return false;
    }
    const std::string letter = "[#" + shownText(request.wad.letter) + "]";
    BilingualText& text = question.text;
    text = BilingualText("Import lines and apply " + letter + " letter",
                         "Importer les lignes et appliquer la lettre " + letter);
    if (request.withSamples) {
        text += BilingualText("\r\n\r\nCopy selected Samples Files to\r\n",
                              "\r\n\r\nCopier les Fichiers Samples sélectionnés dans\r\n") +
                displayPath(request.samplesFolder / "");
    }
    return dialogs.ask(question) == Answer::Yes;
}

ImportOutcome applyImport(SoundCatalogue& catalogue, const ImportRequest& request, Progress& progress)
{
    ImportOutcome outcome = importLines(catalogue, request);
    return outcome.complete ? copyImportedSamples(request, progress) : outcome;
}

namespace {

BilingualText stepLabelOf(const ImportRequest& request)
{
    BilingualText label = actionOf(request.file.kind) + (", " + displayPath(request.file.path.filename()));
    if (request.withSamples) {
        label += BilingualText(" (the copied samples stay)", " (les samples copiés restent)");
    }
    return label;
}

} // namespace

ImportOutcome importLines(SoundCatalogue& catalogue, const ImportRequest& request)
{
    Result<std::vector<SoundCatalogue::LineChange>> changes = plan(request, catalogue);
    const Problem problem = [&] {
        const Step step(catalogue, stepLabelOf(request));
        return changes ? catalogue.setCurrentLines(std::move(*changes)) : Problem(changes.failure());
    }();
    if (problem) {
        return {false, false, report(request, MessageIcon::Exclamation, problem->text)};
    }
    return {true, true, std::nullopt};
}

namespace {

// Files that the applied lines name, each once.
std::vector<std::string> missingSamples(const ImportRequest& request)
{
    std::vector<std::string> missing;
    const Result<FolderIndex> folder = FolderIndex::of(request.samplesFolder);
    if (!folder) {
        return missing; // whoever needs the folder says so
    }
    std::unordered_set<std::string> looked;
    for (const std::size_t row : request.rows) {
        for (const std::string& name : offeredSamples(request.file.rows.at(row))) {
            const std::string file = name + ".wav";
            if (!isSafeSampleName(name) || !looked.insert(upperCase(file)).second) {
                continue;
            }
            const FolderEntry* const entry = folder->find(file);
            if (entry == nullptr || !isSample(*entry)) {
                missing.push_back(file);
            }
        }
    }
    return missing;
}

ImportOutcome withMissingSamples(const ImportRequest& request, const BilingualText& text)
{
    Message told = report(request, MessageIcon::Information, text);
    addListedFiles({"sample of the lines is not in the level editor's samples folder:",
                    "sample des lignes est absent du répertoire des samples de l'éditeur de niveaux :"},
                   {"samples of the lines are not in the level editor's samples folder:",
                    "samples des lignes sont absents du répertoire des samples de l'éditeur de niveaux :"},
                   missingSamples(request), told);
    return {true, true, told.text.empty() ? std::nullopt : std::optional(std::move(told))};
}

} // namespace

ImportOutcome copyImportedSamples(const ImportRequest& request, Progress& progress)
{
    if (!request.withSamples) {
        return withMissingSamples(request, {});
    }
    if (!request.file.samplesFolder) {
        return {true, false,
                report(request, MessageIcon::Exclamation,
                       {"The lines were imported. No samples come with the file.",
                        "Les lignes ont été importées. Aucun sample n'accompagne le fichier."})};
    }
    const SampleCopies copies =
        replaceSamples(request.samples, *request.file.samplesFolder, request.samplesFolder, progress);
    if (copies.end != CopyEnd::Complete) {
        return {true, false, incomplete(request, copies)};
    }
    return withMissingSamples(request,
                              copies.refused.empty() ? BilingualText() : unsafeSampleNames(copies.refused));
}

std::vector<FieldComparison> compareWithCatalogue(const ImportRow& row, const SoundCatalogue& catalogue)
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
    const bool known = isInCatalogue(row.id, catalogue);
    const std::optional<SoundLine> current =
        known ? tryParse(catalogue.currentLine(static_cast<std::size_t>(row.id))) : std::nullopt;
    const std::optional<SoundLine> result = row.applicable() ? tryParse(row.result) : std::nullopt;
    const std::optional<SoundLine> held = recordOf(row);
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

BilingualText actionOf(ExchangeKind kind)
{
    return kind == ExchangeKind::Backup ? titles::restore : titles::importLines;
}

} // namespace tavrel
