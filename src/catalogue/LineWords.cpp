// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineWords.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/Titles.h"
#include "catalogue/SoundLine.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tavrel {

namespace {

// Sorted. The name up to ":" is one word.
std::vector<std::string> wordsOf(std::string_view line)
{
    std::vector<std::string> words;
    if (const std::size_t afterName = line.find(':') + 1; afterName > 0) {
        words.emplace_back(line.substr(0, afterName));
    }
    for (const std::string_view word : wordsBehindName(line)) {
        words.push_back(comparableWord(word));
    }
    std::ranges::sort(words);
    return words;
}

std::vector<std::string> missingFrom(const std::vector<std::string>& words,
                                     const std::vector<std::string>& present)
{
    std::vector<std::string> missing;
    std::ranges::set_difference(words, present, std::back_inserter(missing));
    return missing;
}

char inCapitals(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool startsWithKeyword(std::string_view word, std::string_view keyword)
{
    return word.size() >= keyword.size() &&
           std::ranges::equal(word.substr(0, keyword.size()), keyword, {}, inCapitals);
}

} // namespace

std::vector<std::string_view> wordsBehindName(std::string_view line)
{
    std::vector<std::string_view> words;
    std::size_t start = line.find_first_not_of(" \t", line.find(':') + 1);
    while (start != std::string_view::npos) {
        const std::size_t end = std::min(line.find_first_of(" \t#", start + 1), line.size());
        words.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(" \t", end);
    }
    return words;
}

bool ValueWord::isZero() const
{
    return !digits.empty() && digits.find_first_not_of('0') == std::string_view::npos;
}

std::optional<ValueWord> readValueWord(std::string_view word)
{
    for (const std::string_view keyword : {"VOL", "CH", "PIT", "RAD"}) {
        if (!startsWithKeyword(word, keyword)) {
            continue;
        }
        const std::string_view number = word.substr(keyword.size());
        const std::string_view sign = keyword == "PIT" && number.starts_with('-') ? "-" : "";
        const std::string_view digits = number.substr(sign.size());
        const bool capitals = word.starts_with(keyword);
        if (digits.find_first_not_of("0123456789") != std::string_view::npos ||
            (digits.empty() && !capitals)) {
            return std::nullopt;
        }
        return ValueWord{keyword, capitals, sign, digits};
    }
    return std::nullopt;
}

std::string comparableWord(std::string_view word)
{
    for (const std::string_view keyword : {"VOL", "CH", "PIT", "RAD"}) {
        if (!word.starts_with(keyword)) {
            continue;
        }
        std::string_view digits = word.substr(keyword.size());
        const std::string_view sign = keyword == "PIT" && digits.starts_with('-') ? "-" : "";
        digits.remove_prefix(sign.size());
        if (digits == "0" || digits == "00") {
            return std::string(keyword) + "00";
        }
        if (digits.size() == 1 && digits[0] >= '1' && digits[0] <= '9') {
            return std::string(keyword).append(sign).append("0").append(digits);
        }
    }
    return std::string(word);
}

WordChanges wordsChangedByComposing(std::string_view line)
{
    const std::vector<std::string> before = wordsOf(line);
    const std::vector<std::string> after = wordsOf(ComposeSoundLine(ParseSoundLine(line)));
    return {missingFrom(before, after), missingFrom(after, before)};
}

bool haveSameWords(std::string_view left, std::string_view right)
{
    return left == right || wordsOf(left) == wordsOf(right);
}

std::string listedWords(const std::vector<std::string>& words)
{
    constexpr std::size_t mostWords = 20;
    constexpr std::size_t longestWord = 60;
    std::string list;
    for (std::size_t i = 0; i < std::min(words.size(), mostWords); ++i) {
        list += i == 0 ? "[" : " [";
        list += shownText(words[i].substr(0, longestWord));
        list += words[i].size() > longestWord ? "...]" : "]";
    }
    return words.size() > mostWords ? list + " ..." : list;
}

namespace {

BilingualText describe(const WordChanges& changes)
{
    BilingualText text;
    if (!changes.vanishing.empty()) {
        text += BilingualText("\nLost: ", "\nPerdus : ") + listedWords(changes.vanishing);
    }
    if (!changes.appearing.empty()) {
        text += BilingualText("\nNew: ", "\nNouveaux : ") + listedWords(changes.appearing);
    }
    return text;
}

} // namespace

bool confirmComposing(std::span<const ComposedLine> lines, Dialogs& dialogs)
{
    std::vector<std::size_t> numbers;
    BilingualText details;
    for (const ComposedLine& line : lines) {
        const WordChanges changes = wordsChangedByComposing(line.text);
        if (changes.none()) {
            continue;
        }
        const std::string number = std::to_string(line.number);
        details += (numbers.empty() ? "" : "\n") + number + ": " +
                   shownText(line.text.substr(0, line.text.find(':')));
        details += describe(changes);
        numbers.push_back(line.number);
    }
    if (numbers.empty()) {
        return true;
    }
    const std::string ranges = numberRanges(numbers);
    const BilingualText text(
        "The lines of these sounds contain words that Tavrel reads differently. Rewriting them changes them: " +
            ranges + "\nRewrite the lines?",
        "Les lignes de ces sons contiennent des mots que Tavrel lit autrement. Les réécrire les modifie : " +
            ranges + "\nRéécrire les lignes ?");
    Question question{titles::lines, text, Buttons::YesNo, true};
    question.details = details;
    return dialogs.ask(question) == Answer::Yes;
}

bool confirmComposing(std::string_view line, Dialogs& dialogs)
{
    const WordChanges changes = wordsChangedByComposing(line);
    if (changes.none()) {
        return true;
    }
    BilingualText text("This line contains words that Tavrel reads differently. Rewriting it changes them.",
                       "Cette ligne contient des mots que Tavrel lit autrement. La réécrire les modifie.");
    text += describe(changes);
    text += BilingualText("\nRewrite the line?", "\nRéécrire la ligne ?");
    return dialogs.ask({titles::line, text, Buttons::YesNo, true}) == Answer::Yes;
}

} // namespace tavrel
