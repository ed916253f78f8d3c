// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineWords.h"
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"
#include "references/LineLetters.h"

namespace tavrel {

namespace {

// A letter that looks like a flag or a value makes one appear, or hides one.
std::vector<std::string> makingsOfLetters(const LineReading& reading)
{
    std::vector<std::string> words;
    for (const std::string& letter : reading.letters) {
        if (looksLikeFlagOrValue(letter)) {
            words.emplace_back(1, letter.back());
            words.emplace_back(reading.record.Ch.trimmed());
        }
    }
    return words;
}

// Takes out what a check has named already, each word once.
void leaveRest(std::vector<std::string>& words, std::vector<std::string> named)
{
    std::erase_if(words, [&named](const std::string& word) {
        const auto found = std::ranges::find_if(
            named, [&word](const std::string& known) { return comparableWord(known) == word; });
        const bool isNamed = found != named.end();
        if (isNamed) {
            named.erase(found);
        }
        return isNamed;
    });
}

BilingualText textOf(const WordChanges& changes)
{
    BilingualText text;
    if (!changes.vanishing.empty()) {
        text += BilingualText("Lost when the line is rewritten: ", "Perdus quand la ligne est réécrite : ") +
                listedWords(changes.vanishing);
    }
    if (!changes.appearing.empty()) {
        text += text.empty() ? "" : "  ";
        text += BilingualText("New when the line is rewritten: ", "Nouveaux quand la ligne est réécrite : ") +
                listedWords(changes.appearing);
    }
    return text;
}

} // namespace

void checks::wordsLost(CheckRun& run)
{
    run.forEachSound([&run](const LineReading& reading) {
        WordChanges changes = wordsChangedByComposing(reading.line);
        if (changes.none()) {
            return;
        }
        std::vector<std::string> named = makingsOfLetters(reading);
        named.insert(named.end(), reading.named.begin(), reading.named.end());
        named.insert(named.end(), reading.cut.begin(), reading.cut.end());
        leaveRest(changes.vanishing, named);
        leaveRest(changes.appearing, named);
        if (!changes.none()) {
            run.addForSound("words-lost", Severity::Warning, reading, textOf(changes));
        }
    });
}

} // namespace tavrel
