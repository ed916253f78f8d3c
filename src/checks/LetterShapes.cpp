// SPDX-License-Identifier: GPL-3.0-or-later
// Letters on lines that the level editor, the line rules or the register do not take for letters of a level.
// They are told once each, with all of their sounds.
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"
#include "references/LineLetters.h"

#include <map>
#include <set>

namespace tavrel {

namespace {

constexpr std::size_t rightLength = 2;

using LettersWithSounds = std::map<std::string, std::vector<std::size_t>>;

bool hasRightLength(std::string_view letter)
{
    return letter == "g" || letter.size() == rightLength;
}

bool readsAsWord(std::string_view letter)
{
    return letter != "g" && (letter.starts_with('g') || looksLikeFlagOrValue(letter));
}

template <typename Wanted>
LettersWithSounds lettersOnLines(CheckRun& run, Wanted wanted)
{
    LettersWithSounds letters;
    run.forEachSound([&](const LineReading& reading) {
        for (const std::string& letter : effectiveLetters(reading)) {
            if (wanted(letter)) {
                letters[letter].push_back(reading.sound);
            }
        }
    });
    return letters;
}

BilingualText onLines(const std::string& letter, std::size_t count)
{
    const std::string shown = "#" + utf8FromCodePage(letter);
    if (count == 1) {
        return {shown + " on one line: ", shown + " sur une ligne : "};
    }
    const std::string lines = std::to_string(count);
    return {shown + " on " + lines + " lines: ", shown + " sur " + lines + " lignes : "};
}

Finding& addLetter(CheckRun& run, std::string_view check, Severity severity,
                   const LettersWithSounds::value_type& letter, const BilingualText& text)
{
    Finding& finding = run.add(check, severity, onLines(letter.first, letter.second.size()) + text);
    finding.sounds = letter.second;
    return finding;
}

// Letters of two characters that nobody has.
class FreeLetters
{
public:
    explicit FreeLetters(CheckRun& run) : m_run(run) {}

    // One that starts like the given one; nothing when all are taken.
    std::optional<std::string> like(char start)
    {
        constexpr std::string_view candidates = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKMOQSTUWXYZ";
        for (const char end : candidates) {
            const std::string letter{start, end};
            if (isLetterOfOneLevel(letter) && !readsAsWord(letter) && isFree(letter)) {
                m_given.insert(letter);
                return letter;
            }
        }
        return std::nullopt;
    }

private:
    bool isFree(const std::string& letter) const
    {
        return !m_given.contains(letter) && m_run.subject().references.findLetter(letter) == nullptr &&
               std::ranges::none_of(m_run.lines(), [&letter](const LineReading& reading) {
                   return reading.line.find("#" + letter) != std::string_view::npos;
               });
    }

    CheckRun& m_run;
    std::set<std::string> m_given;
};

} // namespace

void checks::letterLength(CheckRun& run)
{
    FreeLetters freeLetters(run);
    for (const auto& found :
         lettersOnLines(run, [](const std::string& letter) { return !hasRightLength(letter); })) {
        Finding& finding = addLetter(
            run, "letter-length", Severity::Warning, found,
            {"a letter has two characters, or it hits others that start like it.",
             "une lettre a deux caractères, sinon elle en touche d'autres qui commencent comme elle."});
        const std::string& letter = found.first;
        const bool isReference = run.subject().references.findLetter(letter) != nullptr;
        if (letter.size() != 1 || isReference) {
            continue;
        }
        const std::optional<std::string> other = freeLetters.like(letter.front());
        if (!other) {
            continue;
        }
        const std::string before = "#" + utf8FromCodePage(letter);
        const std::string after = "#" + utf8FromCodePage(*other);
        std::vector<std::size_t> sounds = found.second;
        std::erase_if(sounds, [&run](std::size_t sound) { return run.catalogue().isProtected(sound); });
        finding.fix = Fix{{before + " becomes " + after + " on every line",
                           before + " devient " + after + " sur chaque ligne"},
                          [sounds, letter, other = *other](LineDraft& draft) {
                              for (const std::size_t sound : sounds) {
                                  draft.set(sound, withOtherLetter(draft.line(sound), letter, other));
                              }
                          }};
    }
}

void checks::letterAsWord(CheckRun& run)
{
    for (const auto& found : lettersOnLines(
             run, [](const std::string& letter) { return hasRightLength(letter) && readsAsWord(letter); })) {
        addLetter(run, "letter-as-word", Severity::Error, found,
                  found.first.starts_with('g')
                      ? BilingualText("it starts with #g, so every level takes the sound.",
                                      "elle commence par #g, donc chaque niveau prend le son.")
                      : BilingualText("it can be read as a flag or a value of the line.",
                                      "elle peut être lue comme un indicateur ou une valeur de la ligne."));
    }
}

void checks::letterUnknown(CheckRun& run)
{
    const ReferenceRegister& references = run.subject().references;
    for (const auto& found : lettersOnLines(run, [&references](const std::string& letter) {
             return letter != "g" && hasRightLength(letter) && !readsAsWord(letter) &&
                    references.findLetter(letter) == nullptr;
         })) {
        Finding& finding = addLetter(run, "letter-unknown", Severity::Warning, found,
                                     {"no reference has this letter.", "aucune référence n'a cette lettre."});
        finding.fix = Fix{{"Add a reference", "Ajouter une référence"}, RegisterFix{found.first}};
    }
}

} // namespace tavrel
