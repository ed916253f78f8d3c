// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/WadImport.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "catalogue/ApplyChanges.h"
#include "catalogue/SoundLine.h"
#include "references/LetterCommands.h"

#include <algorithm>
#include <unordered_map>

namespace tavrel {

namespace {

constexpr std::string_view separators = " \t";

// A letter must not stick to the last word of its line.
std::string withLetter(const std::string& line, const std::string& letter)
{
    const bool needsSeparator = line.find('#') == std::string::npos && !line.empty() &&
                                separators.find(line.back()) == std::string_view::npos;
    std::string result = AddLetter(needsSeparator ? line + "\t" : line, letter);
    return result == line + "\t" ? line : result;
}

// The lines as they would be, and which of them would get the letter.
class PlannedLines
{
public:
    PlannedLines(const SoundCatalogue& catalogue, const SavedLines& saved, std::string letter)
        : m_catalogue(catalogue), m_letter(std::move(letter)), m_gotLetter(catalogue.size(), false)
    {
        for (std::size_t k = 0; k < catalogue.size(); ++k) {
            m_lines.push_back(catalogue.currentLine(k));
        }
        for (const SavedLine& line : saved.lines) {
            m_lines[line.number] = line.text;
        }
        m_plan.notices = saved.notices;
    }

    const std::string& line(std::size_t number) const { return m_lines[number]; }
    std::size_t size() const { return m_lines.size(); }
    ImportPlan& plan() { return m_plan; }

    void addLetter(std::size_t number)
    {
        if (number >= m_lines.size()) {
            return;
        }
        std::string changed = withLetter(m_lines[number], m_letter);
        if (changed == m_lines[number]) {
            return;
        }
        if (!haveSameSampleCount(m_lines[number], changed)) {
            const std::string sound = std::to_string(number);
            m_plan.notices.push_back({{"Sound " + sound + " has no sample and cannot take a second letter.",
                                       "Le son " + sound +
                                           " n'a pas de sample et ne peut recevoir une deuxième "
                                           "lettre."}});
        } else {
            m_lines[number] = std::move(changed);
            m_gotLetter[number] = true;
        }
    }

    ImportPlan finish()
    {
        for (std::size_t k = 0; k < m_lines.size(); ++k) {
            if (m_lines[k] != m_catalogue.currentLine(k)) {
                if (losesLetters(k)) {
                    m_plan.soundsLosingLetters.push_back(k);
                }
                m_plan.changes.push_back({k, m_lines[k]});
            }
        }
        m_plan.linesWithNewLetter = static_cast<std::size_t>(std::ranges::count(m_gotLetter, true));
        return std::move(m_plan);
    }

private:
    bool losesLetters(std::size_t number) const
    {
        const std::vector<std::string> after = lettersOf(ParseSoundLine(m_lines[number]));
        return std::ranges::any_of(
            lettersOf(ParseSoundLine(m_catalogue.currentLine(number))), [&](const std::string& letter) {
                return letter != m_letter && std::ranges::find(after, letter) == after.end();
            });
    }

    const SoundCatalogue& m_catalogue;
    std::string m_letter;
    std::vector<std::string> m_lines;
    std::vector<bool> m_gotLetter;
    ImportPlan m_plan;
};

// Which lines hold a word at all, so that not every sample is looked for in every line.
class WordIndex
{
public:
    void add(std::size_t number, std::string_view line)
    {
        std::size_t start = line.find_first_not_of(separators);
        while (start != std::string_view::npos) {
            const std::size_t end = std::min(line.find_first_of(separators, start), line.size());
            std::vector<std::size_t>& lines = m_lines[std::string(line.substr(start, end - start))];
            if (lines.empty() || lines.back() != number) {
                lines.push_back(number);
            }
            start = line.find_first_not_of(separators, end);
        }
    }
    // In ascending order.
    const std::vector<std::size_t>& linesWith(const std::string& word) const
    {
        static const std::vector<std::size_t> none;
        const auto found = m_lines.find(word);
        return found == m_lines.end() ? none : found->second;
    }

private:
    std::unordered_map<std::string, std::vector<std::size_t>> m_lines;
};

// True when a line uses the sample.
bool markSample(PlannedLines& lines, const WordIndex& words, const std::string& sample,
                const DoublesStatus& doubles)
{
    bool matched = false;
    const auto look = [&](std::size_t number) {
        if (standsAsFirstWord(lines.line(number), sample)) {
            matched = true;
            if (doubles.of(number) == DoublesStatus::takesPart) {
                lines.addLetter(number);
            }
        }
    };
    if (sample.find_first_of(separators) == std::string::npos) {
        std::ranges::for_each(words.linesWith(sample), look);
    } else {
        for (std::size_t k = 0; k < lines.size(); ++k) {
            look(k);
        }
    }
    return matched;
}

Failure passedOver(const WadList& list, const ListedValue& value)
{
    return wrongLine(list.path, value.line,
                     {"This is no entry of the list. It is passed over.",
                      "Ce n'est pas une entrée de la liste. Elle est ignorée."});
}

// Texts that differ between the two lists.
struct KindTexts
{
    std::string_view ending;
    BilingualText button;
    BilingualText title;
    BilingualText objects; // what gets the letter
    std::string_view gap;  // the blank before "will", doubled in one of the questions
};

KindTexts textsOf(WadListKind kind)
{
    if (kind == WadListKind::Samples) {
        return {".SAM",
                {"Import SAM (samples) file", "Importer le fichier SAM (samples)"},
                {"Load SAM file", "Charger fichier SAM"},
                {"included sounds", "aux sons incorporés"},
                " "};
    }
    return {".WAS",
            {"Import WAS (objects) file", "Importer le fichier WAS (objets)"},
            {"Load WAS file", "Charger fichier WAS"},
            {"included objects", "aux objets incorporés"},
            "  "};
}

bool confirmImport(const CurrentWad& wad, const KindTexts& texts, Dialogs& dialogs)
{
    const std::string file = "[" + utf8FromCodePage(wad.wadName) + std::string(texts.ending) + "]";
    const std::string letter = "[#" + utf8FromCodePage(wad.letter) + "]";
    const Question question{texts.title,
                            {"Open " + file + " and assign " + letter + " to " + texts.objects.english +
                                 ".\nAll modifications already applied" + std::string(texts.gap) +
                                 "will be lost.",
                             "Ouvrir " + file + " et assigner " + letter + " " + texts.objects.french +
                                 ".\nLes modifications déjà apportées seront perdues"},
                            Buttons::OkCancel};
    return dialogs.ask(question) == Answer::Ok;
}

void sayWhatWasDone(const ImportPlan& plan, WadListKind kind, const KindTexts& texts, Dialogs& dialogs)
{
    const std::string lines = std::to_string(plan.linesWithNewLetter);
    BilingualText text(lines + " line(s) got the letter.", lines + " ligne(s) ont reçu la lettre.");
    if (kind == WadListKind::Samples) {
        const std::string unknown = std::to_string(plan.unknownSamples.size());
        text += BilingualText("\n" + unknown + " sample(s) are used by no sound.",
                              "\n" + unknown + " sample(s) ne sont utilisés par aucun son.");
    }
    if (!plan.soundsLosingLetters.empty()) {
        std::string numbers;
        for (const std::size_t number : plan.soundsLosingLetters) {
            numbers += (numbers.empty() ? "" : ", ") + std::to_string(number);
        }
        text += BilingualText("\nThe saved lines took letters of other WADs off these sounds: ",
                              "\nLes lignes enregistrées ont ôté des lettres d'autres WADs à ces sons : ") +
                numbers;
    }
    if (!plan.notices.empty()) {
        text += BilingualText::same("\n\n") + listOf(plan.notices);
    }
    dialogs.show({MessageIcon::Information, texts.title, text});
}

} // namespace

ImportPlan planSamplesImport(const SoundCatalogue& catalogue, const SavedLines& saved, const WadList& list,
                             const std::string& letter)
{
    PlannedLines lines(catalogue, saved, letter);
    // A line that gets the letter gains a separator behind its last word; the words themselves stay.
    WordIndex words;
    for (std::size_t k = 0; k < lines.size(); ++k) {
        words.add(k, lines.line(k));
    }
    for (const ListedValue& value : list.values) {
        const std::string sample(sampleOfValue(value.text));
        if (sample.empty()) {
            lines.plan().notices.push_back(passedOver(list, value));
        } else if (!markSample(lines, words, sample, catalogue.doubles())) {
            lines.plan().unknownSamples.push_back(sample);
        }
    }
    return lines.finish();
}

ImportPlan planObjectsImport(const SoundCatalogue& catalogue, const SavedLines& saved, const WadList& list,
                             const std::string& letter)
{
    PlannedLines lines(catalogue, saved, letter);
    for (const ListedValue& value : list.values) {
        const std::string_view listed = objectOfValue(value.text);
        if (listed.empty()) {
            lines.plan().notices.push_back(passedOver(list, value));
        }
        for (const SoundObject& object : catalogue.objects()) {
            if (objectsMatch(listed, object.name)) {
                std::ranges::for_each(object.sounds,
                                      [&lines](std::size_t number) { lines.addLetter(number); });
            }
        }
    }
    lines.addLetter(underwaterSound);
    return lines.finish();
}

BilingualText importTitle(WadListKind kind)
{
    return textsOf(kind).button;
}

ImportResult importWadList(SoundCatalogue& catalogue, const CurrentWad& wad, WadListKind kind,
                           const ImportFolders& folders, Dialogs& dialogs)
{
    const KindTexts texts = textsOf(kind);
    const auto refuse = [&](const Failure& failure) {
        dialogs.show({MessageIcon::Exclamation, texts.button, failure.text});
        return ImportResult();
    };
    if (!RequireCurrentReference(wad, texts.button, dialogs)) {
        return {};
    }
    const Result<WadList> list = readWadList(folders.wads, wad.wadName, texts.ending);
    if (!list) {
        return refuse(list.failure());
    }
    if (!confirmImport(wad, texts, dialogs)) {
        return {};
    }
    std::error_code ignored;
    std::filesystem::create_directory(fileIn(folders.program, changedLinesFolderName), ignored);
    const Result<SavedLines> saved = readSavedLines(folders.program, wad.wadName, catalogue);
    if (!saved) {
        return refuse(saved.failure());
    }
    ImportPlan plan = kind == WadListKind::Samples ? planSamplesImport(catalogue, *saved, *list, wad.letter)
                                                   : planObjectsImport(catalogue, *saved, *list, wad.letter);
    if (const Problem problem = catalogue.setCurrentLines(std::move(plan.changes))) {
        return refuse(*problem);
    }
    sayWhatWasDone(plan, kind, texts, dialogs);
    return {true, std::move(plan.unknownSamples)};
}

} // namespace tavrel
