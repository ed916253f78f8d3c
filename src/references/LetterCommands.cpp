// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/LetterCommands.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Titles.h"
#include "catalogue/SoundLine.h"
#include "references/LetterList.h"
#include "references/LetterTexts.h"
#include "references/LineLetters.h"

#include <algorithm>

namespace tavrel {

namespace {

using LineChanges = std::vector<SoundCatalogue::LineChange>;

const Title& addTitle = titles::addLetter;
const Title& removeTitle = titles::removeLetter;
const Title& removeAllTitle = titles::removeAllLetters;
const Title& replaceTitle = titles::replaceLetter;

bool refuse(const Title& title, const BilingualText& text, Dialogs& dialogs)
{
    dialogs.show({MessageIcon::Exclamation, title, text});
    return false;
}

bool showIfFailed(const Problem& problem, const Title& title, Dialogs& dialogs)
{
    return problem && !refuse(title, problem->text, dialogs);
}

const BilingualText& whyNoLetterOfOneLevel(std::string_view letter)
{
    constexpr std::size_t length = 2;
    if (letter.size() != length) {
        return letterTexts::twoCharacters;
    }
    return letter.starts_with('g') ? letterTexts::startsWithG : letterTexts::forbiddenCharacter;
}

template <typename Rewrite>
LineChanges rewrittenLines(const SoundCatalogue& catalogue, Rewrite rewrite)
{
    LineChanges changes;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        std::string text = rewrite(catalogue.currentLine(k));
        if (text != catalogue.currentLine(k)) {
            changes.push_back({k, std::move(text)});
        }
    }
    return changes;
}

bool ValidateReplaceLetter(std::string_view newLetter, const CurrentWad& wad,
                           const ReferenceRegister& references, Dialogs& dialogs)
{
    constexpr std::size_t length = 2;
    if (newLetter.empty()) {
        return refuse(replaceTitle, {"Type a 'Replace by' letter", "Entrer une lettre de remplacement"},
                      dialogs);
    }
    if (newLetter.size() != length) {
        return refuse(letterTexts::letterTitle, letterTexts::twoCharacters, dialogs);
    }
    if (hasForbiddenLetterCharacter(newLetter)) {
        return refuse(letterTexts::letterTitle, letterTexts::forbiddenCharacter, dialogs);
    }
    if (newLetter.starts_with('g')) {
        return refuse(letterTexts::letterTitle, letterTexts::startsWithG, dialogs);
    }
    if (newLetter == wad.letter) {
        return refuse(
            replaceTitle,
            {"Same Replace letter as Wad letter", "Lettre de remplacement identique à la lettre du Wad"},
            dialogs);
    }
    if (const WadReference* const user = references.findLetter(newLetter)) {
        const std::string letter = "[#" + shownText(newLetter) + "]";
        const std::string name = bracketed(user->wadName);
        return refuse(replaceTitle,
                      {"The letter " + letter + " is already used for " + name,
                       "La lettre " + letter + " est déjà assignée à " + name},
                      dialogs);
    }
    return true;
}

// Two levels that become one cannot be parted again.
bool confirmMerging(const SoundCatalogue& catalogue, std::string_view oldLetter, std::string_view newLetter,
                    Dialogs& dialogs)
{
    const std::vector<std::size_t> carriers = soundsWithLetter(catalogue, newLetter);
    if (carriers.empty() || linesWithLetter(catalogue, oldLetter) == 0) {
        return true;
    }
    const BilingualText text =
        alreadyCarried(carriers.size(), newLetter) +
        BilingualText("\nOnce it is replaced, nothing tells the two levels apart.\nReplace it anyway?",
                      "\nAprès le remplacement, rien ne distinguera plus les deux niveaux.\nRemplacer quand "
                      "même ?");
    Question question{replaceTitle, text, Buttons::YesNo, true, true};
    question.details = listedSounds(catalogue, carriers);
    return dialogs.ask(question) == Answer::Yes;
}

// The sounds of objects that a command may change.
std::vector<std::size_t> soundsOf(const SoundCatalogue& catalogue, std::span<const std::string> objects)
{
    std::vector<std::size_t> sounds;
    for (const std::string& name : objects) {
        const auto object = std::ranges::find(catalogue.objects(), name, &SoundObject::name);
        if (object != catalogue.objects().end()) {
            std::ranges::copy_if(object->sounds, std::back_inserter(sounds),
                                 [&catalogue](std::size_t number) {
                                     return number < catalogue.size() && !catalogue.isProtected(number);
                                 });
        }
    }
    std::ranges::sort(sounds);
    sounds.erase(std::unique(sounds.begin(), sounds.end()), sounds.end());
    return sounds;
}

BilingualText objectsLabel(const Title& title, std::span<const std::string> objects)
{
    std::string names;
    for (const std::string& object : objects) {
        names += ", " + shownText(object);
    }
    return title + BilingualText::same(names);
}

BilingualText addLetterLabel(std::string_view letter)
{
    return BilingualText("Add letter", "Ajouter la lettre") + " #" + shownText(letter);
}

BilingualText removeLetterLabel(std::string_view letter)
{
    return BilingualText("Remove letter", "Enlever la lettre") + " #" + shownText(letter);
}

std::string joinedLetters(const std::vector<std::string>& letters)
{
    std::string text;
    for (const std::string& letter : letters) {
        text += (text.empty() ? "#" : " #") + letter;
    }
    return text;
}

// Nothing but the letters may be read in another way.
bool differInLettersAlone(const std::string& before, const std::string& after)
{
    SoundLine left = ParseSoundLine(before);
    SoundLine right = ParseSoundLine(after);
    left.Letters.clear();
    right.Letters.clear();
    return left == right;
}

Result<std::string> lineWithLetter(const std::string& line, const std::string& letter)
{
    if (line.find("#g") != std::string::npos) {
        return line;
    }
    std::optional<std::string> text = withLetterInFront(line, letter);
    if (!text || !differInLettersAlone(line, *text)) {
        return Failure{
            {"A letter behind this line would be read as something else, or change how it is read.",
             "Une lettre derrière cette ligne serait lue autrement, ou changerait sa lecture."}};
    }
    return *text;
}

SoundsChanged notAgreed()
{
    SoundsChanged nothing;
    nothing.agreed = false;
    return nothing;
}

SoundsChanged addLetter(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                        const CurrentWad& wad, const BilingualText& label, Dialogs& dialogs)
{
    if (!RequireCurrentReference(wad, addTitle, dialogs)) {
        return notAgreed();
    }
    const std::string letter = wad.letter;
    const auto rewrite = [&](std::size_t number) {
        return lineWithLetter(catalogue.currentLine(number), letter);
    };
    SoundsChanged changed = changeSounds(catalogue, numbers, {label, addTitle, rewrite}, dialogs);
    tellRefused(changed, addTitle, dialogs);
    return changed;
}

} // namespace

bool RequireCurrentReference(const CurrentWad& wad, const Title& title, Dialogs& dialogs)
{
    return (!wad.letter.empty() && !wad.wadName.empty()) ||
           refuse(title,
                  {"Select a WAD/Letter reference first", "Sélectionnez d'abord une référence WAD/Lettre"},
                  dialogs);
}

bool requireLetterOfOneLevel(std::string_view letter, Dialogs& dialogs)
{
    if (isLetterOfOneLevel(letter)) {
        return true;
    }
    const std::string marked = "[#" + shownText(letter) + "]";
    return refuse(letterTexts::letterTitle,
                  BilingualText(marked + ": ", marked + " : ") + whyNoLetterOfOneLevel(letter), dialogs);
}

AddedLetter addLetterToLine(LineEditor& editor, const CurrentWad& wad, Dialogs& dialogs)
{
    if (!editor.canEdit() || !RequireCurrentReference(wad, addTitle, dialogs)) {
        return AddedLetter::Refused;
    }
    const std::string marked = "#" + wad.letter;
    const std::vector<std::string> present = lettersOf(editor.record());
    std::string letters;
    for (const std::string& letter : present) {
        // A longer letter that starts like the current one counts as it, too.
        if (letter == "g" || ("#" + letter).find(marked) != std::string::npos) {
            refuse(addTitle,
                   {"WAD (letter) already allocated to this sound", "WAD (lettre) déjà assigné à ce son"},
                   dialogs);
            const bool isGlobal = std::ranges::find(present, "g") != present.end();
            return isGlobal ? AddedLetter::SoundOfAllLevels : AddedLetter::Refused;
        }
        letters += "#" + letter + " ";
    }
    if (!editor.confirmComposing(dialogs)) {
        return AddedLetter::Refused;
    }
    const Step step(editor.catalogue(),
                    stepLabel(addLetterLabel(wad.letter), editor.catalogue(), editor.selected().value()));
    if (!editor.storeLetters(letters + marked, dialogs)) {
        return AddedLetter::Refused;
    }
    return AddedLetter::Added;
}

bool removeLetterFromLine(LineEditor& editor, std::optional<std::size_t> entry, Dialogs& dialogs)
{
    if (!editor.canEdit()) {
        return false;
    }
    std::vector<std::string> letters = lettersOf(editor.record());
    if (!entry || *entry >= letters.size()) {
        return refuse(
            removeTitle,
            {"Select a letter in the [Assigned WADs] list", "Sélectionner une lettre dans la liste"},
            dialogs);
    }
    if (letters[*entry].starts_with('g')) {
        return refuse(removeTitle, letterTexts::ofAllLevelsStays, dialogs);
    }
    const BilingualText label = removeLetterLabel(letters[*entry]);
    letters.erase(letters.begin() + static_cast<std::ptrdiff_t>(*entry));
    if (!editor.confirmComposing(dialogs)) {
        return false;
    }
    const Step step(editor.catalogue(), stepLabel(label, editor.catalogue(), editor.selected().value()));
    return editor.storeLetters(joinedLetters(letters), dialogs);
}

bool removeLetterEverywhere(SoundCatalogue& catalogue, const CurrentWad& wad, Dialogs& dialogs)
{
    if (!RequireCurrentReference(wad, removeAllTitle, dialogs) ||
        !requireLetterOfOneLevel(wad.letter, dialogs)) {
        return false;
    }
    const std::string letter = "[#" + shownText(wad.letter) + "]";
    Question question{removeAllTitle,
                      {"Remove all " + letter + " from Sound ID list",
                       "Enlever toutes les lettres " + letter + " de la liste ID Sons"},
                      Buttons::OkCancel};
    question.details = listedSounds(catalogue, soundsWithLetter(catalogue, wad.letter));
    if (dialogs.ask(question) != Answer::Ok) {
        return false;
    }
    const Problem problem = [&] {
        const Step step(catalogue, removedLetterLabel(wad.letter));
        return eraseLetterFromAllLines(catalogue, wad.letter);
    }();
    return !showIfFailed(problem, removeAllTitle, dialogs);
}

BilingualText replacedLetterLabel(std::string_view oldLetter, std::string_view newLetter)
{
    const std::string before = "#" + shownText(oldLetter);
    const std::string after = "#" + shownText(newLetter);
    return {"Replace letter " + before + " by " + after, "Remplacer la lettre " + before + " par " + after};
}

BilingualText removedLetterLabel(std::string_view letter)
{
    const std::string name = "#" + shownText(letter);
    return {"Remove letter " + name + " from all lines",
            "Enlever la lettre " + name + " de toutes les lignes"};
}

ReplacedLetter replaceLetterEverywhere(SoundCatalogue& catalogue, ReferenceRegister& references,
                                       CurrentWad& wad, std::string_view newLetter, Dialogs& dialogs)
{
    if (!RequireCurrentReference(wad, replaceTitle, dialogs) ||
        !ValidateReplaceLetter(newLetter, wad, references, dialogs) ||
        !requireLetterOfOneLevel(wad.letter, dialogs)) {
        return ReplacedLetter::Refused;
    }
    if (!confirmMerging(catalogue, wad.letter, newLetter, dialogs)) {
        return ReplacedLetter::Declined;
    }
    const std::string oldShown = "#" + shownText(wad.letter);
    const std::string newShown = "#" + shownText(newLetter);
    const std::string name = bracketed(wad.wadName);
    BilingualText text(
        "Replace " + oldShown + " letter by " + newShown + " for all the sounds of the wad " + name,
        "Remplacer la lettre " + oldShown + " par " + newShown + " pour tous les sons du wad " + name);
    if (dialogs.appliesLater()) {
        text += BilingualText(
            "\nDon't forget to apply modifications to sounds.txt to validate the new letter",
            "\nN'oubliez pas d'appliquer les modifications à sounds.txt pour valider la nouvelle lettre");
    }
    Question question{replaceTitle, text, Buttons::YesNo};
    question.details = listedSounds(catalogue, soundsWithLetter(catalogue, wad.letter));
    if (dialogs.ask(question) != Answer::Yes) {
        return ReplacedLetter::Declined;
    }
    const Problem problem = [&] {
        const Step step(catalogue, replacedLetterLabel(wad.letter, newLetter));
        Problem refusal = replaceLetterOnAllLines(catalogue, wad.letter, newLetter);
        if (!refusal) {
            references.replaceLetter(wad.letter, newLetter);
            wad.letter = newLetter;
        }
        return refusal;
    }();
    return showIfFailed(problem, replaceTitle, dialogs) ? ReplacedLetter::Refused : ReplacedLetter::Replaced;
}

Problem replaceLetterOnAllLines(SoundCatalogue& catalogue, std::string_view oldLetter,
                                std::string_view newLetter)
{
    if (!isLetterOfOneLevel(oldLetter)) {
        return std::nullopt;
    }
    return catalogue.setCurrentLines(rewrittenLines(
        catalogue, [&](const std::string& line) { return replaceLetter(line, oldLetter, newLetter); }));
}

Problem eraseLetterFromAllLines(SoundCatalogue& catalogue, std::string_view letter)
{
    if (!isLetterOfOneLevel(letter)) {
        return std::nullopt;
    }
    return catalogue.setCurrentLines(
        rewrittenLines(catalogue, [&](const std::string& line) { return eraseLetter(line, letter); }));
}

std::size_t linesWithLetter(const SoundCatalogue& catalogue, std::string_view letter)
{
    return soundsWithLetter(catalogue, letter).size();
}

std::vector<std::size_t> soundsWithLetter(const SoundCatalogue& catalogue, std::string_view letter)
{
    std::vector<std::size_t> sounds;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        const std::vector<std::string> letters = lettersOf(ParseSoundLine(catalogue.currentLine(k)));
        if (std::ranges::find(letters, letter) != letters.end()) {
            sounds.push_back(k);
        }
    }
    return sounds;
}

BilingualText alreadyCarried(std::size_t lines, std::string_view letter)
{
    const std::string count = std::to_string(lines);
    const std::string marked = "#" + shownText(letter);
    return lines == 1
               ? BilingualText("1 line already carries " + marked + ".", "1 ligne porte déjà " + marked + ".")
               : BilingualText(count + " lines already carry " + marked + ".",
                               count + " lignes portent déjà " + marked + ".");
}

BilingualText hintOnNewLetter(const SoundCatalogue& catalogue, std::string_view letter)
{
    if (!isLetterOfOneLevel(letter)) {
        return {};
    }
    if (const std::size_t lines = linesWithLetter(catalogue, letter); lines > 0) {
        return alreadyCarried(lines, letter);
    }
    return looksLikeFlagOrValue(letter) ? flagLetterHint() : BilingualText();
}

SoundsChanged addLetterToSounds(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                                const CurrentWad& wad, Dialogs& dialogs)
{
    return addLetter(catalogue, numbers, wad, stepLabel(addLetterLabel(wad.letter), catalogue, numbers),
                     dialogs);
}

SoundsChanged removeLetterFromSounds(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                                     const std::string& letter, Dialogs& dialogs)
{
    if (letter.starts_with('g')) {
        refuse(removeTitle, letterTexts::ofAllLevelsStays, dialogs);
        return notAgreed();
    }
    const auto rewrite = [&](std::size_t number) -> Result<std::string> {
        const std::string& line = catalogue.currentLine(number);
        SoundLine record = ParseSoundLine(line);
        std::vector<std::string> letters = lettersOf(record);
        if (std::erase(letters, letter) == 0) {
            return line;
        }
        record.Letters = joinedLetters(letters);
        return composeEdited(record);
    };
    const SoundsChange change{stepLabel(removeLetterLabel(letter), catalogue, numbers), removeTitle, rewrite,
                              true};
    SoundsChanged changed = changeSounds(catalogue, numbers, change, dialogs);
    tellRefused(changed, removeTitle, dialogs);
    return changed;
}

SoundsChanged addLetterToObjects(SoundCatalogue& catalogue, std::span<const std::string> objects,
                                 const CurrentWad& wad, Dialogs& dialogs)
{
    return addLetter(catalogue, soundsOf(catalogue, objects), wad, objectsLabel(addTitle, objects), dialogs);
}

SoundsChanged removeLetterFromObjects(SoundCatalogue& catalogue, std::span<const std::string> objects,
                                      const CurrentWad& wad, Dialogs& dialogs)
{
    if (!RequireCurrentReference(wad, removeTitle, dialogs) ||
        !requireLetterOfOneLevel(wad.letter, dialogs)) {
        return notAgreed();
    }
    const auto rewrite = [&](std::size_t number) -> Result<std::string> {
        std::optional<std::string> text = withoutLetter(catalogue.currentLine(number), wad.letter);
        if (!text) {
            return Failure{{"Without the letter it would be read with other samples.",
                            "Sans la lettre, il serait lu avec d'autres samples."}};
        }
        return *text;
    };
    const std::vector<std::size_t> sounds = soundsOf(catalogue, objects);
    const SoundsChange change{objectsLabel(removeTitle, objects), removeTitle, rewrite};
    SoundsChanged changed = changeSounds(catalogue, sounds, change, dialogs);
    tellRefused(changed, removeTitle, dialogs);
    return changed;
}

std::string correctedLetter(std::string_view typed)
{
    constexpr std::size_t length = 2;
    return std::string(typed.substr(typed.starts_with('#') ? 1 : 0, length));
}

} // namespace tavrel
