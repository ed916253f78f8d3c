// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/LineLetters.h"

namespace tavrel {

namespace {

struct Place
{
    std::size_t start;
    std::size_t end;
};

// Where the letter stands first, with its "#"; an empty place at the line's end when it does not.
Place findLetter(std::string_view line, std::string_view letter)
{
    const std::string marked = "#" + std::string(letter);
    const std::size_t start = line.find(marked);
    return start == std::string_view::npos ? Place{line.size(), line.size()}
                                           : Place{start, start + marked.size()};
}

} // namespace

std::string replaceLetter(std::string_view line, std::string_view oldLetter, std::string_view newLetter)
{
    const Place place = findLetter(line, oldLetter);
    if (place.start == line.size()) {
        return std::string(line);
    }
    return std::string(line.substr(0, place.start))
        .append("#")
        .append(newLetter)
        .append(line.substr(place.end, keptBehindReplacedLetter));
}

std::string eraseLetter(std::string_view line, std::string_view letter)
{
    const Place place = findLetter(line, letter);
    if (place.start == line.size()) {
        return std::string(line);
    }
    const std::size_t kept = place.start == 0 ? 0 : place.start - 1;
    return std::string(line.substr(0, kept)).append(line.substr(place.end, keptBehindErasedLetter));
}

bool belongsToLevel(std::string_view line, std::string_view letter)
{
    constexpr std::string_view letterOfAllLevels = "#g";
    return line.find("#" + std::string(letter)) != std::string_view::npos ||
           line.find(letterOfAllLevels) != std::string_view::npos;
}

bool hasForbiddenLetterCharacter(std::string_view letter)
{
    return letter.find_first_of(" \t#\"\r\n") != std::string_view::npos;
}

bool isLetterOfOneLevel(std::string_view letter)
{
    constexpr std::size_t length = 2;
    return letter.size() == length && !letter.starts_with('g') && !hasForbiddenLetterCharacter(letter);
}

bool looksLikeFlagOrValue(std::string_view letter)
{
    return letter == "CH" ||
           (!letter.empty() && std::string_view("PVRNL").find(letter.back()) != std::string_view::npos);
}

BilingualText flagLetterHint()
{
    return {
        "This letter can be read as a flag or a value of the line; choose another one to be safe.",
        "Cette lettre peut être lue comme un indicateur ou une valeur de la ligne ; préférez-en une autre."};
}

} // namespace tavrel
