// SPDX-License-Identifier: GPL-3.0-or-later
// Words of values that say something else than they seem to.
#include "checks/CheckRun.h"
#include "checks/CheckTable.h"

namespace tavrel {

namespace {

// What the rules make of it: "VOL15" of VOL150.
std::string asRead(const ValueWord& value)
{
    constexpr std::size_t readDigits = 2;
    const int number = leadingNumber(value.digits.substr(0, readDigits));
    return std::string(value.keyword) + FormatValue(value.sign.empty() ? number : -number, 2, '0');
}

void claim(LineReading& reading, std::string_view word, const ValueWord& value)
{
    reading.named.emplace_back(word);
    reading.named.push_back(asRead(value));
}

BilingualText becomes(const std::string& before, const std::string& after)
{
    return {before + " becomes " + after, before + " devient " + after};
}

BilingualText takenAway(const std::string& word)
{
    return {"Take " + word + " away", "Enlever " + word};
}

// The word in its best spelling; empty for one that says nothing; none where only the user knows.
std::optional<std::string> bestDigits(const ValueWord& value)
{
    const std::string_view digits =
        value.digits.substr(std::min(value.digits.find_first_not_of('0'), value.digits.size()));
    constexpr std::string_view full = "100"; // what the absence of the word means, too
    const bool hasFull = value.keyword == "VOL" || value.keyword == "CH";
    if ((hasFull && digits == full) || (value.keyword == "CH" && value.digits.empty())) {
        return "";
    }
    constexpr std::size_t mostDigits = 2;
    if (value.digits.empty() || digits.size() > mostDigits) {
        return std::nullopt;
    }
    return std::string(value.keyword)
        .append(value.sign)
        .append(digits.size() < mostDigits ? "0" : "")
        .append(digits);
}

void offer(CheckRun& run, Finding& finding, std::string_view word, const std::string& replacement)
{
    const std::string before(word);
    run.offerRewrite(
        finding, replacement.empty() ? takenAway(before) : becomes(before, replacement),
        [before, replacement](const std::string& line) { return withWord(line, before, replacement); });
}

} // namespace

void checks::valueZero(CheckRun& run)
{
    run.forEachValue([&run](LineReading& reading, const LineWord& word, const ValueWord& value) {
        if (!value.inCapitals || !value.isZero()) {
            return;
        }
        claim(reading, word.text, value);
        const std::string shown(word.text);
        const bool isVolume = value.keyword == "VOL";
        Finding& finding = run.addForSound(
            "value-zero", Severity::Error, reading,
            isVolume ? BilingualText(shown + ": the level editor's tool takes it for the name of a sample.",
                                     shown + " : l'outil de l'éditeur de niveaux le prend pour le nom d'un "
                                             "sample.")
                     : BilingualText(shown + " says nothing; a value starts at 1.",
                                     shown + " ne dit rien ; une valeur commence à 1."));
        offer(run, finding, word.text, isVolume ? "VOL01" : "");
    });
}

void checks::valueCase(CheckRun& run)
{
    run.forEachValue([&run](LineReading& reading, const LineWord& word, const ValueWord& value) {
        if (value.inCapitals) {
            return;
        }
        reading.named.emplace_back(word.text);
        const std::string shown(word.text);
        Finding& finding = run.addForSound(
            "value-case", Severity::Error, reading,
            word.kind == WordKind::Sample ? BilingualText(shown + " in small letters reads as a sample.",
                                                          shown + " en minuscules est lu comme un sample.")
                                          : BilingualText(shown + " in small letters is not read at all.",
                                                          shown + " en minuscules n'est pas lu du tout."));
        offer(run, finding, word.text, std::string(value.keyword).append(value.sign).append(value.digits));
    });
}

void checks::valueDigits(CheckRun& run)
{
    run.forEachValue([&run](LineReading& reading, const LineWord& word, const ValueWord& value) {
        constexpr std::size_t mostDigits = 2;
        const bool isRight = !value.digits.empty() && value.digits.size() <= mostDigits;
        if (!value.inCapitals || isRight || value.isZero()) {
            return;
        }
        claim(reading, word.text, value);
        const std::string shown(word.text);
        const std::string read = asRead(value);
        Finding& finding = run.addForSound(
            "value-digits", Severity::Warning, reading,
            word.kind == WordKind::Sample
                ? BilingualText(shown + " reads as a sample.", shown + " est lu comme un sample.")
                : BilingualText(shown + " reads as " + read + ".", shown + " est lu comme " + read + "."));
        if (const std::optional<std::string> best = bestDigits(value)) {
            offer(run, finding, word.text, *best);
        }
    });
}

} // namespace tavrel
