// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundFilter.h"

#include "base/CodePage.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::string_view flagWord = "FLAG:";

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

std::uint8_t withFlag(std::uint8_t flags, LineFlag flag)
{
    return static_cast<std::uint8_t>(flags | 1U << static_cast<unsigned>(flag));
}

bool areDigits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool compares(int left, std::string_view comparison, long right)
{
    if (comparison == "<") {
        return left < right;
    }
    if (comparison == ">") {
        return left > right;
    }
    if (comparison == "<=") {
        return left <= right;
    }
    if (comparison == ">=") {
        return left >= right;
    }
    return left == right;
}

// A word may begin where another of the same letters has.
template <typename Add>
void forEachPlace(std::string_view text, std::string_view wanted, std::size_t from, Add add)
{
    for (std::size_t place = text.find(wanted, from); place != std::string_view::npos;
         place = text.find(wanted, place + 1)) {
        add(place, wanted.size());
    }
}

} // namespace

BilingualText columnTitle(SoundColumn column)
{
    switch (column) {
    case SoundColumn::Samples:
        return {"Samples", "Samples"};
    case SoundColumn::Values:
        return {"Values", "Valeurs"};
    case SoundColumn::Flags:
        return {"Flags", "Flags"};
    case SoundColumn::Letters:
        return {"Letters", "Lettres"};
    case SoundColumn::Sound:
        break;
    }
    return {"Sound", "Son"};
}

std::string columnText(const SoundLine& record, SoundColumn column)
{
    const auto present = [](std::initializer_list<std::string_view> fields) {
        std::vector<std::string> words;
        for (const std::string_view field : fields) {
            if (!field.empty()) {
                words.emplace_back(field);
            }
        }
        return joined(words);
    };
    switch (column) {
    case SoundColumn::Samples:
        return joined({record.Samples.begin(),
                       record.Samples.begin() + static_cast<std::ptrdiff_t>(record.sampleCount())});
    case SoundColumn::Values:
        return present(
            {record.Vol.trimmed(), record.Pit.trimmed(), record.Rad.trimmed(), record.Ch.trimmed()});
    case SoundColumn::Flags:
        return present({record.FlagP.trimmed(), record.FlagV.trimmed(), record.FlagRN.trimmed(),
                        record.FlagL.trimmed()});
    case SoundColumn::Letters:
        return record.Letters;
    case SoundColumn::Sound:
        break;
    }
    return {};
}

FilteredSound::FilteredSound(std::size_t number, std::string_view line) : number(number)
{
    const SoundLine record = ParseSoundLine(line);
    letters = record.Letters;
    words = upperCase(std::string(line.substr(0, line.find(':'))) + "\n" +
                      columnText(record, SoundColumn::Samples) + "\n" + letters + "\n");
    for (const ValueBox box : allValueBoxes) {
        if (const std::optional<int> value = heardValue(box, boxText(record, box))) {
            values[static_cast<std::size_t>(box)] = static_cast<std::int8_t>(*value);
        }
    }
    for (const LineFlag flag : allLineFlags) {
        if (hasFlag(record, flag)) {
            flags = withFlag(flags, flag);
        }
    }
    isGlobal = line.find("#g") != std::string_view::npos;
}

SoundFilter::SoundFilter(std::string_view text)
{
    for (std::size_t start = text.find_first_not_of(" \t"); start != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(" \t", start), text.size());
        read(text.substr(start, end - start));
        start = text.find_first_not_of(" \t", end);
    }
}

void SoundFilter::read(std::string_view word)
{
    constexpr std::size_t mostDigits = 9;
    if (areDigits(word) && word.size() <= mostDigits) {
        m_words.push_back({.kind = Kind::Number, .text = {}, .number = std::stol(std::string(word))});
    } else if (word.starts_with('#')) {
        m_words.push_back({.kind = Kind::Letter, .text = std::string(word)});
    } else if (!readComparison(word) && !readFlags(word)) {
        m_words.push_back({.kind = Kind::Text, .text = upperCase(word)});
    }
}

bool SoundFilter::readComparison(std::string_view word)
{
    const std::size_t sign = word.find_first_of("<>=");
    if (sign == std::string_view::npos) {
        return false;
    }
    const std::string name = upperCase(word.substr(0, sign));
    const auto* const box = std::ranges::find(allValueBoxes, name, keyword);
    if (box == allValueBoxes.end()) {
        return false;
    }
    std::string_view number = word.substr(sign + 1);
    const bool orEqual = word[sign] != '=' && number.starts_with('=');
    number.remove_prefix(orEqual ? 1 : 0);
    constexpr std::string_view comparisons[] = {"<", "<=", ">", ">=", "="};
    const std::string comparison = std::string(1, word[sign]) + (orEqual ? "=" : "");
    if (!areDigits(number.substr(number.starts_with('-') ? 1 : 0))) {
        m_unfinished = m_unfinished.value_or(std::string(word));
        return true;
    }
    m_words.push_back({.kind = Kind::Value,
                       .text = {},
                       .box = *box,
                       .comparison = *std::ranges::find(comparisons, comparison),
                       .number = leadingNumber(number)});
    return true;
}

bool SoundFilter::readFlags(std::string_view word)
{
    if (!upperCase(word).starts_with(flagWord)) {
        return false;
    }
    Word flags{.kind = Kind::Flags, .text = upperCase(word.substr(flagWord.size()))};
    for (const LineFlag flag : allLineFlags) {
        if (flags.text.find(letterOf(flag)) != std::string::npos) {
            flags.flags = withFlag(flags.flags, flag);
        }
    }
    if (flags.text.empty() || flags.text.find_first_not_of("PVRNL") != std::string::npos) {
        m_unfinished = m_unfinished.value_or(std::string(word));
    } else {
        m_words.push_back(std::move(flags));
    }
    return true;
}

bool SoundFilter::matches(const FilteredSound& sound) const
{
    return std::ranges::all_of(m_words, [&sound](const Word& word) { return matches(word, sound); });
}

bool SoundFilter::matches(const Word& word, const FilteredSound& sound)
{
    switch (word.kind) {
    case Kind::Text:
        return sound.words.find(word.text) != std::string::npos;
    case Kind::Letter:
        return sound.letters.find(word.text) != std::string::npos;
    case Kind::Number:
        return static_cast<long>(sound.number) == word.number;
    case Kind::Value: {
        const std::optional<std::int8_t>& value = sound.values[static_cast<std::size_t>(word.box)];
        return value && compares(*value, word.comparison, word.number);
    }
    case Kind::Flags:
        break;
    }
    return (sound.flags & word.flags) == word.flags;
}

std::vector<SoundFilter::Part> SoundFilter::matchingParts(std::string_view shown, SoundColumn column) const
{
    std::vector<Part> parts;
    for (const Word& word : m_words) {
        addParts(word, shown, column, parts);
    }
    std::ranges::sort(parts, {}, &Part::from);
    return parts;
}

void SoundFilter::addParts(const Word& word, std::string_view shown, SoundColumn column,
                           std::vector<Part>& parts)
{
    const auto add = [&parts](std::size_t from, std::size_t length) { parts.push_back({from, length}); };
    const bool isWords = column != SoundColumn::Values && column != SoundColumn::Flags;
    if (word.kind == Kind::Text && isWords) {
        // The number of the sound stands before its name.
        const std::size_t from = column == SoundColumn::Sound ? shown.find(':') + 1 : 0;
        forEachPlace(upperCase(shown), word.text, from, add);
    } else if (word.kind == Kind::Letter && column == SoundColumn::Letters) {
        forEachPlace(shown, word.text, 0, add);
    } else if (word.kind == Kind::Number && column == SoundColumn::Sound) {
        const std::size_t from = shown.find_first_not_of(' ');
        add(from, shown.find(':') - from);
    } else if (word.kind == Kind::Value && column == SoundColumn::Values) {
        if (const std::size_t from = shown.find(keyword(word.box)); from != std::string_view::npos) {
            add(from, std::min(shown.find(' ', from), shown.size()) - from);
        }
    } else if (word.kind == Kind::Flags && column == SoundColumn::Flags) {
        for (const char flag : word.text) {
            forEachPlace(shown, {&flag, 1}, 0, add);
        }
    }
}

} // namespace tavrel
