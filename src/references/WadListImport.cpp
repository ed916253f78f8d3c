// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/WadListImport.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Titles.h"
#include "catalogue/ApplyChanges.h"
#include "catalogue/ChangeSounds.h"
#include "catalogue/ChangedLines.h"
#include "catalogue/SoundLine.h"
#include "references/LetterCommands.h"
#include "references/LetterList.h"
#include "references/LineLetters.h"

#include <algorithm>

namespace tavrel {

namespace {

std::vector<std::string> lettersOn(const std::string& line)
{
    return lettersOf(ParseSoundLine(line));
}

bool holds(const std::vector<std::string>& letters, const std::string& letter)
{
    return std::ranges::find(letters, letter) != letters.end();
}

// The saved lines of the WAD take the place of the current ones.
std::vector<std::string> startOfImport(const SoundCatalogue& catalogue, const ChangedLines& saved)
{
    std::vector<std::string> lines;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        lines.push_back(catalogue.currentLine(k));
    }
    for (const ChangedLine& line : saved.lines) {
        lines[line.number] = line.text;
    }
    return lines;
}

// The lines as they would be, and what happened to them.
class PlannedLines
{
public:
    PlannedLines(const SoundCatalogue& catalogue, const ChangedLines& saved, const WadList& list,
                 std::string letter)
        : m_catalogue(catalogue), m_letter(std::move(letter)), m_askedFor(catalogue.size(), false)
    {
        m_start = startOfImport(catalogue, saved);
        m_lines = m_start;
        m_plan.notices = saved.notices;
        m_plan.notices.insert(m_plan.notices.end(), list.notices.begin(), list.notices.end());
    }

    const std::string& line(std::size_t number) const { return m_lines[number]; }
    ImportPlan& plan() { return m_plan; }

    void addLetter(std::size_t number)
    {
        if (number >= m_lines.size() || m_askedFor[number]) {
            return;
        }
        m_askedFor[number] = true;
        if (std::optional<std::string> line = withLetter(m_lines[number], m_letter)) {
            m_lines[number] = std::move(*line);
        } else {
            m_plan.refusedLetter.push_back(number);
        }
    }

    ImportPlan finish()
    {
        for (std::size_t k = 0; k < m_lines.size(); ++k) {
            if (m_start[k] != m_catalogue.currentLine(k)) {
                m_plan.putBack.push_back(k);
            }
            if (m_lines[k] != m_catalogue.currentLine(k)) {
                countChange(k);
                m_plan.changes.push_back({k, m_lines[k]});
            } else if (m_askedFor[k] && holds(lettersOn(m_lines[k]), m_letter)) {
                ++m_plan.linesThatHadLetter;
            }
        }
        return std::move(m_plan);
    }

private:
    void countChange(std::size_t number)
    {
        const std::vector<std::string> before = lettersOn(m_catalogue.currentLine(number));
        const std::vector<std::string> after = lettersOn(m_lines[number]);
        if (holds(after, m_letter)) {
            ++(holds(before, m_letter) ? m_plan.linesThatHadLetter : m_plan.linesWithNewLetter);
        }
        TakenLetters taken{number, {}};
        std::ranges::copy_if(before, std::back_inserter(taken.letters), [&](const std::string& letter) {
            return letter != m_letter && !holds(after, letter);
        });
        if (!taken.letters.empty()) {
            m_plan.takenLetters.push_back(std::move(taken));
        }
    }

    const SoundCatalogue& m_catalogue;
    std::string m_letter;
    std::vector<std::string> m_start;
    std::vector<std::string> m_lines;
    std::vector<bool> m_askedFor;
    ImportPlan m_plan;
};

// Texts that differ between the two lists.
struct KindTexts
{
    Title button; // and of what keeps it from its work
    Title title;
    BilingualText objects; // what gets the letter
    std::string_view gap;  // the blank before "will", doubled in one of the questions
};

KindTexts textsOf(WadListKind kind)
{
    if (kind == WadListKind::Samples) {
        return {titles::importSamples, titles::loadSamples, {"included sounds", "aux sons incorporés"}, " "};
    }
    return {titles::importObjects, titles::loadObjects, {"included objects", "aux objets incorporés"}, "  "};
}

std::vector<std::size_t> soundsThatGetLetter(const ImportPlan& plan, const SoundCatalogue& catalogue,
                                             const std::string& letter)
{
    std::vector<std::size_t> sounds;
    for (const SoundCatalogue::LineChange& change : plan.changes) {
        if (holds(lettersOn(change.text), letter) &&
            !holds(lettersOn(catalogue.currentLine(change.number)), letter)) {
            sounds.push_back(change.number);
        }
    }
    return sounds;
}

// The words for a number of sounds, and the sounds below.
BilingualText headed(const BilingualText& heading, const SoundCatalogue& catalogue,
                     std::span<const std::size_t> sounds)
{
    return heading + BilingualText::same("\n") + listedSounds(catalogue, sounds);
}

BilingualText whatImportDoes(const ImportPlan& plan, const SoundCatalogue& catalogue,
                             const std::string& letter)
{
    BilingualText text;
    if (!plan.putBack.empty()) {
        text = headed(counted(plan.putBack.size(),
                              {"sound goes back to its saved line:", "son revient à sa ligne enregistrée :"},
                              {"sounds go back to their saved lines:",
                               "sons reviennent à leurs lignes enregistrées :"}),
                      catalogue, plan.putBack);
    }
    const std::vector<std::size_t> getting = soundsThatGetLetter(plan, catalogue, letter);
    if (!getting.empty()) {
        text += text.empty() ? "" : "\n\n";
        text += headed(counted(getting.size(), {"sound gets the letter:", "son reçoit la lettre :"},
                               {"sounds get the letter:", "sons reçoivent la lettre :"}),
                       catalogue, getting);
    }
    return text;
}

bool confirmListImport(const CurrentWad& wad, WadListKind kind, const ImportPlan& plan,
                       const SoundCatalogue& catalogue, Dialogs& dialogs)
{
    const KindTexts texts = textsOf(kind);
    const std::string file = "[" + shownText(wad.wadName) + std::string(endingOf(kind)) + "]";
    const std::string letter = "[#" + shownText(wad.letter) + "]";
    Question question{texts.title,
                      {"Open " + file + " and assign " + letter + " to " + texts.objects.english +
                           ".\nAll modifications already applied" + std::string(texts.gap) + "will be lost.",
                       "Ouvrir " + file + " et assigner " + letter + " " + texts.objects.french +
                           ".\nLes modifications déjà apportées seront perdues"},
                      Buttons::OkCancel};
    question.details = whatImportDoes(plan, catalogue, wad.letter);
    return dialogs.ask(question) == Answer::Ok;
}

BilingualText whoGotTheLetter(const ImportPlan& plan)
{
    if (plan.linesWithNewLetter > 0) {
        return counted(plan.linesWithNewLetter, {"sound got the letter.", "son a reçu la lettre."},
                       {"sounds got the letter.", "sons ont reçu la lettre."});
    }
    if (plan.linesThatHadLetter > 0) {
        return BilingualText("No sound got the letter: ", "Aucun son n'a reçu la lettre : ") +
               counted(plan.linesThatHadLetter, {"already had it.", "l'avait déjà."},
                       {"already had it.", "l'avaient déjà."});
    }
    return {"No sound got the letter.", "Aucun son n'a reçu la lettre."};
}

std::string rowOf(const TakenLetters& taken, const SoundCatalogue& catalogue)
{
    const std::size_t sound[] = {taken.sound};
    std::string row = "\n  " + listedSounds(catalogue, sound).english;
    for (const std::string& letter : taken.letters) {
        row += "  #" + shownText(letter);
    }
    return row;
}

BilingualText whatCameBack(const ImportPlan& plan, const SoundCatalogue& catalogue)
{
    constexpr std::size_t mostNamed = 8;
    BilingualText text = counted(
        plan.putBack.size(),
        {"sound is back as it was saved for this WAD, with its samples and values.",
         "son est revenu tel qu'il était enregistré pour ce WAD, avec ses samples et ses valeurs."},
        {"sounds are back as they were saved for this WAD, with their samples and values.",
         "sons sont revenus tels qu'ils étaient enregistrés pour ce WAD, avec leurs samples et leurs valeurs."});
    const std::vector<TakenLetters>& taken = plan.takenLetters;
    if (!taken.empty()) {
        text += BilingualText("\nLetters of other WADs that this took off:",
                              "\nLettres d'autres WADs ainsi ôtées :");
    }
    for (std::size_t i = 0; i < std::min(taken.size(), mostNamed); ++i) {
        text += rowOf(taken[i], catalogue);
    }
    if (taken.size() > mostNamed) {
        const std::string rest = std::to_string(taken.size() - mostNamed);
        text += BilingualText("\n  ... and " + rest + " more", "\n  ... et " + rest + " de plus");
    }
    return text;
}

BilingualText objectsWithoutSounds(const std::vector<std::string>& objects)
{
    constexpr std::size_t mostNamed = 8;
    std::string names;
    for (std::size_t i = 0; i < std::min(objects.size(), mostNamed); ++i) {
        names += (i == 0 ? " [" : ", [") + shownText(objects[i]) + "]";
    }
    BilingualText text = counted(objects.size(),
                                 {"object of the list has no sounds that Tavrel knows:",
                                  "objet de la liste n'a pas de sons connus de Tavrel :"},
                                 {"objects of the list have no sounds that Tavrel knows:",
                                  "objets de la liste n'ont pas de sons connus de Tavrel :"}) +
                         names;
    if (objects.size() > mostNamed) {
        const std::string rest = std::to_string(objects.size() - mostNamed);
        text += BilingualText(" and " + rest + " more", " et " + rest + " de plus");
    }
    return text;
}

BilingualText whatWasDone(const ImportPlan& plan, const SoundCatalogue& catalogue, bool appliesLater)
{
    BilingualText text = whoGotTheLetter(plan);
    if (!plan.unknownSamples.empty()) {
        text += BilingualText::same("\n") +
                counted(plan.unknownSamples.size(),
                        {"sample is used by no sound.", "sample n'est utilisé par aucun son."},
                        {"samples are used by no sound.", "samples ne sont utilisés par aucun son."});
    }
    if (!plan.unknownObjects.empty()) {
        text += BilingualText::same("\n") + objectsWithoutSounds(plan.unknownObjects);
    }
    if (!plan.refusedLetter.empty()) {
        text += BilingualText::same("\n") + takeNoOtherLetter(plan.refusedLetter);
    }
    if (!plan.putBack.empty()) {
        text += BilingualText::same("\n\n") + whatCameBack(plan, catalogue);
    }
    if (appliesLater && !plan.changes.empty()) {
        text += BilingualText("\n\nNothing is written until the changes are applied.",
                              "\n\nRien n'est écrit tant que les changements ne sont pas appliqués.");
    }
    if (!plan.notices.empty()) {
        text += BilingualText::same("\n\n") + listOf(plan.notices);
    }
    return text;
}

} // namespace

ImportPlan planSamplesImport(const SoundCatalogue& catalogue, const ChangedLines& saved, const WadList& list,
                             const std::string& letter)
{
    PlannedLines lines(catalogue, saved, list, letter);
    SampleUses uses(startOfImport(catalogue, saved));
    for (const std::string& sample : list.names) {
        const std::vector<std::size_t> numbers = uses.of(sample);
        if (numbers.empty()) {
            lines.plan().unknownSamples.push_back(sample);
        }
        for (const std::size_t number : numbers) {
            if (catalogue.doubles().of(number) == DoublesStatus::takesPart) {
                lines.addLetter(number);
                uses.setLine(number, lines.line(number)); // the letter ends the word before it
            }
        }
    }
    return lines.finish();
}

ImportPlan planObjectsImport(const SoundCatalogue& catalogue, const ChangedLines& saved, const WadList& list,
                             const std::string& letter)
{
    PlannedLines lines(catalogue, saved, list, letter);
    for (const std::string& listed : list.names) {
        bool matches = false;
        for (const SoundObject& object : catalogue.objects()) {
            if (objectsMatch(listed, object.name)) {
                matches = true;
                std::ranges::for_each(object.sounds,
                                      [&lines](std::size_t number) { lines.addLetter(number); });
            }
        }
        std::vector<std::string>& unknown = lines.plan().unknownObjects;
        if (!matches && std::ranges::find(unknown, listed) == unknown.end()) {
            unknown.push_back(listed);
        }
    }
    lines.addLetter(underwaterSound);
    return lines.finish();
}

BilingualText importTitle(WadListKind kind)
{
    return textsOf(kind).button;
}

BilingualText importForbidden()
{
    return {"Off while modifications are pending or saved for this WAD. Parameters can allow it.",
            "Désactivé tant que des modifications sont en attente ou enregistrées pour ce WAD. "
            "Les Paramètres peuvent l'autoriser."};
}

ImportResult importWadList(SoundCatalogue& catalogue, const CurrentWad& wad, WadListKind kind,
                           const Places& places, Dialogs& dialogs)
{
    const KindTexts texts = textsOf(kind);
    const auto refuse = [&](const Failure& failure, bool unreadable) {
        dialogs.show({MessageIcon::Exclamation, texts.button, failure.text});
        return ImportResult{false, unreadable, {}};
    };
    if (!RequireCurrentReference(wad, texts.button, dialogs)) {
        return {};
    }
    const Result<WadList> list = readWadList(places.wads, wad.wadName, kind);
    if (!list) {
        return refuse(list.failure(), true);
    }
    const Result<ChangedLines> saved = readChangedLines(places.program, wad.wadName, catalogue);
    if (!saved) {
        return refuse(saved.failure(), true);
    }
    ImportPlan plan = kind == WadListKind::Samples ? planSamplesImport(catalogue, *saved, *list, wad.letter)
                                                   : planObjectsImport(catalogue, *saved, *list, wad.letter);
    if (!confirmListImport(wad, kind, plan, catalogue, dialogs)) {
        return {};
    }
    const BilingualText getting = listedSounds(catalogue, soundsThatGetLetter(plan, catalogue, wad.letter));
    std::error_code ignored;
    std::filesystem::create_directory(fileIn(places.program, changedLinesFolderName), ignored);
    const Problem problem = [&] {
        const Step step(catalogue, texts.button + BilingualText::same(", " + utf8FromCodePage(wad.wadName)));
        return catalogue.setCurrentLines(plan.changes);
    }();
    if (problem) {
        return refuse(*problem, false);
    }
    const bool isWhole = plan.refusedLetter.empty() && plan.notices.empty();
    dialogs.show({isWhole ? MessageIcon::Information : MessageIcon::Exclamation, texts.title,
                  whatWasDone(plan, catalogue, dialogs.appliesLater()), getting});
    return {true, false, std::move(plan.unknownSamples)};
}

} // namespace tavrel
