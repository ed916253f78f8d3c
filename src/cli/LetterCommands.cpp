// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/LetterCommands.h"

#include "base/CodePage.h"
#include "catalogue/LineEditor.h"
#include "cli/Commands.h"
#include "cli/Opening.h"
#include "references/LetterList.h"
#include "references/LetterReplacementNote.h"

#include <algorithm>
#include <memory>
#include <span>

namespace tavrel {

namespace {

struct LetterArguments
{
    std::string letter;
    std::string newLetter;
    SoundsArgument sounds;
    std::optional<std::string> wadName;
};

std::string tagged(std::string_view letter)
{
    return "[#" + shownText(letter) + "]";
}

bool mayEdit(Session& session, std::size_t number, Console& console)
{
    if (session.catalogue().isProtected(number)) {
        console.dialogs.show(protectedLineRefusal());
        return false;
    }
    return true;
}

bool removeLetter(LineEditor& editor, const std::string& letter, Console& console)
{
    const std::vector<std::string> letters = lettersOf(editor.record());
    const auto entry = std::ranges::find(letters, letter);
    if (entry == letters.end()) {
        console.dialogs.refuse({"The sound does not carry the letter " + tagged(letter) + ".",
                                "Le son ne porte pas la lettre " + tagged(letter) + "."});
        return false;
    }
    return removeLetterFromLine(editor, static_cast<std::size_t>(entry - letters.begin()), console.dialogs);
}

// Sounds that refuse the change stay as they are; the others, if any, are written.
template <typename Change>
ExitStatus changeEach(Session& session, std::span<const std::size_t> numbers,
                      const LetterArguments& arguments, Change change, Console& console)
{
    if (!std::ranges::all_of(numbers,
                             [&](std::size_t number) { return mayEdit(session, number, console); })) {
        return ExitStatus::Refused;
    }
    LineEditor editor(session.catalogue());
    bool anyChanged = false;
    for (const std::size_t number : numbers) {
        editor.select(number);
        if (change(editor)) {
            anyChanged = true;
        } else {
            const std::string sound = std::to_string(number);
            console.dialogs.refuse(
                {"Sound " + sound + " stays as it is.", "Le son " + sound + " reste tel quel."});
        }
    }
    return anyChanged ? apply(session, arguments.wadName, console) : ExitStatus::Refused;
}

ExitStatus applyAll(Session& session, const SoundsChanged& changed, const LetterArguments& arguments,
                    Console& console)
{
    if (!changed.agreed) {
        return ExitStatus::Refused;
    }
    console.dialogs.say(changed.report());
    const ExitStatus status = apply(session, arguments.wadName, console);
    return std::max(status, console.dialogs.status());
}

ExitStatus addLetters(const LetterArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSessionToChange(console, arguments.wadName);
    if (!session) {
        return console.dialogs.status();
    }
    const std::optional<CurrentWad> wad = wadWithLetter(*session, arguments.letter, console);
    const auto numbers = wad ? soundsOf(arguments.sounds, *session, console) : std::nullopt;
    if (!numbers) {
        return ExitStatus::Refused;
    }
    if (!arguments.sounds.namesEach) {
        return applyAll(*session, addLetterToSounds(session->catalogue(), *numbers, *wad, console.dialogs),
                        arguments, console);
    }
    const auto add = [&](LineEditor& editor) {
        return addLetterToLine(editor, *wad, console.dialogs) == AddedLetter::Added;
    };
    return changeEach(*session, *numbers, arguments, add, console);
}

ExitStatus removeLetters(const LetterArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSessionToChange(console, arguments.wadName);
    if (!session) {
        return console.dialogs.status();
    }
    const auto numbers = soundsOf(arguments.sounds, *session, console);
    if (!numbers) {
        return ExitStatus::Refused;
    }
    if (!arguments.sounds.namesEach) {
        return applyAll(
            *session,
            removeLetterFromSounds(session->catalogue(), *numbers, arguments.letter, console.dialogs),
            arguments, console);
    }
    const auto remove = [&](LineEditor& editor) { return removeLetter(editor, arguments.letter, console); };
    return changeEach(*session, *numbers, arguments, remove, console);
}

ExitStatus eraseLetters(const LetterArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSessionToChange(console, arguments.wadName);
    if (!session) {
        return console.dialogs.status();
    }
    const std::optional<CurrentWad> wad = wadWithLetter(*session, arguments.letter, console);
    if (!wad || !removeLetterEverywhere(session->catalogue(), *wad, console.dialogs)) {
        return ExitStatus::Refused;
    }
    return apply(*session, arguments.wadName, console);
}

// The lines first: when they cannot be written, the register still has the letter that they carry. A note
// lasts until both are.
ExitStatus writeReplacement(Session& session, const LetterReplacement& replacement,
                            const std::optional<std::string>& wadName, Console& console)
{
    if (const Problem problem = noteLetterReplacement(console.programFolder, replacement)) {
        return console.dialogs.fail(*problem);
    }
    ExitStatus status = apply(session, wadName, console);
    if (status == ExitStatus::Done) {
        status = writeRegister(session, console);
        if (status != ExitStatus::Done) {
            console.dialogs.refuse(halfReplacedLetter(replacement));
            return status;
        }
    }
    const Problem problem = forgetLetterReplacement(console.programFolder, replacement);
    return problem ? console.dialogs.fail(*problem) : status;
}

ExitStatus replaceLetters(const LetterArguments& arguments, Console& console)
{
    const std::unique_ptr<Session> session = openSessionToChange(console, arguments.wadName);
    if (!session) {
        return console.dialogs.status();
    }
    std::optional<CurrentWad> wad = wadWithLetter(*session, arguments.letter, console);
    if (!wad || replaceLetterEverywhere(session->catalogue(), session->references(), *wad,
                                        arguments.newLetter, console.dialogs) != ReplacedLetter::Replaced) {
        return ExitStatus::Refused;
    }
    return writeReplacement(
        *session, {session->catalogue().file().path, wad->wadName, arguments.letter, arguments.newLetter},
        arguments.wadName, console);
}

using Run = ExitStatus (*)(const LetterArguments&, Console&);

// The arguments live as long as the command.
struct AddedCommand
{
    CommandEntry entry;
    LetterArguments& arguments;
};

AddedCommand addCommand(const Menu& menu, const std::string& name, const BilingualText& what, Run run)
{
    const auto arguments = std::make_shared<LetterArguments>();
    CommandEntry entry =
        menu.command(name, what, [arguments, run](Console& console) { return run(*arguments, console); });
    entry.wad(arguments->wadName);
    return {entry, *arguments};
}

} // namespace

void addLetterCommands(const Menu& menu)
{
    const Menu letters =
        menu.group("letters", {"Give letters to sounds and take them off, and write sounds.txt",
                               "Donner des lettres aux sons et les enlever, et écrire sounds.txt"});
    const BilingualText letter("The letter of a WAD", "La lettre d'un WAD");
    AddedCommand add =
        addCommand(letters, "add", {"Give the letter to sounds", "Donner la lettre à des sons"}, addLetters);
    add.entry.letter("X", letter, add.arguments.letter).sounds(add.arguments.sounds);
    AddedCommand remove = addCommand(
        letters, "remove", {"Take the letter off sounds", "Enlever la lettre à des sons"}, removeLetters);
    remove.entry.letter("X", letter, remove.arguments.letter).sounds(remove.arguments.sounds);
    AddedCommand erase = addCommand(
        letters, "erase", {"Take the letter off every line", "Enlever la lettre de toutes les lignes"},
        eraseLetters);
    erase.entry.letter("X", letter, erase.arguments.letter);
    AddedCommand replace =
        addCommand(letters, "replace",
                   {"Give a WAD another letter, on every line and in the register",
                    "Donner une autre lettre à un WAD, sur toutes les lignes et dans le registre"},
                   replaceLetters);
    replace.entry.letter("OLD", letter, replace.arguments.letter)
        .letter("NEW", {"Its new letter", "Sa nouvelle lettre"}, replace.arguments.newLetter);
}

} // namespace tavrel
