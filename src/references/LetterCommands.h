// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "catalogue/ChangeSounds.h"
#include "catalogue/LineEditor.h"
#include "catalogue/SoundCatalogue.h"
#include "references/CurrentWad.h"
#include "references/ReferenceRegister.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// Giving the current level's letter to sounds and taking it back. Only the lines in memory change.
namespace tavrel {

// Every command on letters needs a current WAD with a letter; a message when there is none.
bool RequireCurrentReference(const CurrentWad& wad, const Title& title, Dialogs& dialogs);
// A command over all lines takes no letter that would hit other levels; a message when it is such a one.
bool requireLetterOfOneLevel(std::string_view letter, Dialogs& dialogs);

enum class AddedLetter {
    Added,
    Refused,
    SoundOfAllLevels // refused, and the line is one of "#g"
};
// Puts the current letter behind the selected line's others.
AddedLetter addLetterToLine(LineEditor& editor, const CurrentWad& wad, Dialogs& dialogs);
// Takes the letter of an entry of the line's letter list off the line.
bool removeLetterFromLine(LineEditor& editor, std::optional<std::size_t> entry, Dialogs& dialogs);

// Takes the current letter off every line, after a question.
bool removeLetterEverywhere(SoundCatalogue& catalogue, const CurrentWad& wad, Dialogs& dialogs);

// Gives the current WAD another letter, on every line and in the register. The caller writes the register at
// once.
enum class ReplacedLetter {
    Replaced,
    Refused, // the typed letter is wrong and stays in its box
    Declined // the user said No
};
ReplacedLetter replaceLetterEverywhere(SoundCatalogue& catalogue, ReferenceRegister& references,
                                       CurrentWad& wad, std::string_view newLetter, Dialogs& dialogs);

// What a step of the history is called that does this.
BilingualText replacedLetterLabel(std::string_view oldLetter, std::string_view newLetter);
BilingualText removedLetterLabel(std::string_view letter);

// Walks over all lines; only a letter of one level is ever looked for.
[[nodiscard]] Problem replaceLetterOnAllLines(SoundCatalogue& catalogue, std::string_view oldLetter,
                                              std::string_view newLetter);
[[nodiscard]] Problem eraseLetterFromAllLines(SoundCatalogue& catalogue, std::string_view letter);
// Those whose lines carry the letter.
std::vector<std::size_t> soundsWithLetter(const SoundCatalogue& catalogue, std::string_view letter);
std::size_t linesWithLetter(const SoundCatalogue& catalogue, std::string_view letter);
// What to know before a reference takes a letter that lines carry.
BilingualText alreadyCarried(std::size_t lines, std::string_view letter);
// What to know of a letter while it is typed: that lines carry it, or that the line grammar can mistake it.
// Empty when there is nothing to know.
BilingualText hintOnNewLetter(const SoundCatalogue& catalogue, std::string_view letter);

// Gives many sounds the letter in one step. The letter goes in front of each line's others, which composes
// the line; where that would lose or change words, it goes behind the line instead. Lines that have it stay
// as they are, and so do those of all levels.
SoundsChanged addLetterToSounds(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                                const CurrentWad& wad, Dialogs& dialogs);
// Takes exactly this letter off the sounds that carry it.
SoundsChanged removeLetterFromSounds(SoundCatalogue& catalogue, std::span<const std::size_t> numbers,
                                     const std::string& letter, Dialogs& dialogs);

// All sounds of objects of the object table. Lines of all levels and protected ones are left alone.
SoundsChanged addLetterToObjects(SoundCatalogue& catalogue, std::span<const std::string> objects,
                                 const CurrentWad& wad, Dialogs& dialogs);
SoundsChanged removeLetterFromObjects(SoundCatalogue& catalogue, std::span<const std::string> objects,
                                      const CurrentWad& wad, Dialogs& dialogs);

// What a box for a letter makes of its text after each change: a leading "#" is dropped, two characters stay.
std::string correctedLetter(std::string_view typed);

} // namespace tavrel
