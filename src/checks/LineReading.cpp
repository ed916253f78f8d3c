// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/LineReading.h"

#include "catalogue/LineWords.h"
#include "references/LetterList.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr auto npos = std::string_view::npos;

bool isSeparator(char c)
{
    return c == ' ' || c == '\t';
}

} // namespace

bool LineReading::isNamed(std::string_view word) const
{
    return std::ranges::find(named, word) != named.end();
}

std::vector<LineWord> wordsWithKinds(std::string_view line)
{
    const std::size_t endOfSamples = samplesEnd(line);
    const std::size_t startOfLetters = lettersStart(line);
    std::vector<LineWord> words;
    for (const std::string_view word : wordsBehindName(line)) {
        const auto start = static_cast<std::size_t>(word.data() - line.data());
        WordKind kind = WordKind::Other;
        if (word.starts_with('#')) {
            kind = startOfLetters != npos && start >= startOfLetters ? WordKind::Letter : WordKind::Other;
        } else if (endOfSamples != npos && start < endOfSamples) {
            kind = WordKind::Sample;
        } else if (readValueWord(word)) {
            kind = WordKind::Value;
        } else if (word.size() == 1 && std::string_view("PVRNL").find(word) != npos) {
            kind = WordKind::Flag;
        }
        words.push_back({word, kind});
    }
    return words;
}

LineReading readLine(std::size_t sound, std::string_view line)
{
    LineReading reading{sound, line, ParseSoundLine(line), wordsWithKinds(line), {}, {}, false, {}, {}};
    const std::size_t count = reading.record.sampleCount();
    for (std::size_t i = 0; i < count; ++i) {
        // A letter that stands where the samples begin is none, though the rules read it as one.
        if (!reading.record.Samples[i].starts_with('#')) {
            reading.samples.push_back(reading.record.Samples[i]);
        }
    }
    reading.letters = lettersOf(reading.record);
    return reading;
}

std::string_view nameOf(std::string_view line)
{
    return line.substr(0, line.find(':'));
}

std::string withWord(std::string_view line, std::string_view word, std::string_view replacement)
{
    for (const std::string_view present : wordsBehindName(line)) {
        if (present != word) {
            continue;
        }
        if (replacement.empty()) {
            return withoutWord(line, present);
        }
        const auto start = static_cast<std::size_t>(present.data() - line.data());
        return std::string(line).replace(start, word.size(), replacement);
    }
    return std::string(line);
}

std::string_view rawValueWord(std::string_view line, std::string_view keyword)
{
    for (const LineWord& word : wordsWithKinds(line)) {
        const std::optional<ValueWord> value =
            word.kind == WordKind::Value ? readValueWord(word.text) : std::nullopt;
        if (value && value->keyword == keyword) {
            return word.text;
        }
    }
    return {};
}

std::string withoutWord(std::string_view line, std::string_view word)
{
    const auto start = static_cast<std::size_t>(word.data() - line.data());
    std::size_t end = start + word.size();
    const char before = start == 0 ? ' ' : line[start - 1];
    if (end < line.size() && line[end] == ' ' && (isSeparator(before) || before == ':')) {
        ++end;
    }
    return std::string(line.substr(0, start)).append(line.substr(end));
}

std::vector<std::string> effectiveLetters(const LineReading& reading)
{
    if (reading.samples.empty()) {
        return {};
    }
    if (std::ranges::find(reading.letters, "g") != reading.letters.end()) {
        return {"g"};
    }
    std::vector<std::string> letters;
    std::ranges::copy_if(reading.letters, std::back_inserter(letters), [&letters](const std::string& letter) {
        return std::ranges::find(letters, letter) == letters.end();
    });
    return letters;
}

std::string withOtherLetter(std::string line, std::string_view before, std::string_view after)
{
    for (std::size_t seen = 0;; ++seen) {
        const std::vector<LineWord> words = wordsWithKinds(line);
        if (seen == words.size()) {
            return line;
        }
        const LineWord& word = words[seen];
        if (word.kind == WordKind::Letter && word.text.substr(1) == before) {
            const auto start = static_cast<std::size_t>(word.text.data() - line.data()) + 1;
            line.replace(start, before.size(), after);
        }
    }
}

} // namespace tavrel
