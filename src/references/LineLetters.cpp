// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/LineLetters.h"

#include "base/FailureTexts.h"
#include "catalogue/LineWords.h"
#include "catalogue/SoundLine.h"

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

// A letter must not stick to the last word of its line.
std::string separated(const std::string& line)
{
    const bool sticks =
        line.find('#') == std::string::npos && !line.empty() && line.back() != ' ' && line.back() != '\t';
    return sticks ? line + '\t' : line;
}

std::optional<std::string> ifSameSamples(const std::string& before, std::string after)
{
    return haveSameSampleCount(before, after) ? std::optional(std::move(after)) : std::nullopt;
}

// The whole letter that starts like this one, and one blank beside it.
std::string cutOut(const std::string& line, std::string_view letter)
{
    const std::size_t first = lettersStart(line);
    const std::size_t start =
        first == std::string::npos ? first : line.find("#" + std::string(letter), first);
    if (start == std::string::npos) {
        return line;
    }
    const std::size_t end = std::min(line.find_first_of("# \t", start + 1), line.size());
    const bool blankBehind = end < line.size() && line[end] == ' ';
    const bool blankBefore = !blankBehind && start > 0 && line[start - 1] == ' ';
    return line.substr(0, blankBefore ? start - 1 : start) + line.substr(blankBehind ? end + 1 : end);
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

std::optional<std::string> withLetter(const std::string& line, std::string_view letter)
{
    const std::string before = separated(line);
    std::string after = AddLetter(before, letter);
    return after == before ? std::optional(line) : ifSameSamples(before, std::move(after));
}

std::optional<std::string> withLetterInFront(const std::string& line, std::string_view letter)
{
    if (!wordsChangedByComposing(line).none()) {
        return withLetter(line, letter);
    }
    const bool isThere = ParseSoundLine(line).Letters.find("#" + std::string(letter)) != std::string::npos;
    return isThere ? std::optional(line) : ifSameSamples(line, AddLetterByRecord(line, letter));
}

std::optional<std::string> withoutLetter(const std::string& line, std::string_view letter)
{
    if (!wordsChangedByComposing(line).none()) {
        return ifSameSamples(line, cutOut(line, letter));
    }
    // Taking a letter out from between two others can glue them; reading and composing parts them again.
    const std::string removed = RemoveLetter(line, letter);
    return removed == line ? line : ifSameSamples(line, ComposeSoundLine(ParseSoundLine(removed)));
}

BilingualText takeNoOtherLetter(std::span<const std::size_t> sounds)
{
    const BilingualText one("Sound ", "Le son ");
    const BilingualText several("Sounds ", "Les sons ");
    return (sounds.size() == 1 ? one : several) + listOfNumbers(sounds) +
           BilingualText(": another letter would be read as a sample.",
                         " : une autre lettre serait lue comme un sample.");
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
