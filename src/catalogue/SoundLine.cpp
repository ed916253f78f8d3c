// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundLine.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>

namespace tavrel {

namespace {

constexpr char tab = '\t';
constexpr auto npos = std::string_view::npos;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

int leadingDigits(std::string_view text)
{
    constexpr std::size_t mostDigits = 9;
    int value = 0;
    for (std::size_t i = 0; i < std::min(text.size(), mostDigits) && isDigit(text[i]); ++i) {
        value = value * 10 + (text[i] - '0');
    }
    return value;
}

// 0-based position of the character that ends the sample list as it counts: the separator after the last
// stored name. Nothing (npos) when no name was stored.
std::size_t readSamples(std::string_view line, std::size_t start, std::vector<std::string>& samples)
{
    std::size_t end = npos;
    const auto store = [&](std::string_view name, std::size_t position) {
        if (samples.size() == SoundLine::maximumSamples) {
            throw std::out_of_range("more than 50 samples");
        }
        samples.emplace_back(name);
        end = position;
    };
    std::size_t nameStart = start;
    for (std::size_t i = start; i < line.size(); ++i) {
        if (line[i] == tab || line.substr(i).starts_with("  ")) {
            if (i > nameStart) {
                store(line.substr(nameStart, i - nameStart), i);
            }
            return end;
        }
        if (line[i] == ' ') {
            store(line.substr(nameStart, i - nameStart), i);
            nameStart = i + 1;
        }
    }
    return end;
}

std::size_t readSamplesOf(std::string_view line, std::vector<std::string>& samples)
{
    const std::size_t afterName = line.find(':') + 1;
    const std::size_t firstName = line.find_first_not_of(" \t", afterName);
    return readSamples(line, firstName == npos ? afterName : firstName, samples);
}

// The value of a keyword from its first occurrence at or after `from`, formatted behind the keyword.
std::string readValue(std::string_view line, std::size_t from, std::string_view keyword)
{
    const std::size_t found = line.find(keyword, from);
    if (found == npos) {
        return {};
    }
    const std::string_view rest = line.substr(found + keyword.size());
    const bool negative = keyword == "PIT" && rest.starts_with('-');
    const int value = leadingDigits(rest.substr(negative ? 1 : 0, 2));
    return std::string(keyword) + FormatValue(negative ? -value : value, 2, '0');
}

std::string_view flagIf(bool present, std::string_view flag)
{
    return present ? flag : std::string_view();
}

std::string readLetters(std::string_view line)
{
    std::string letters;
    for (std::size_t hash = lettersStart(line); hash != npos; hash = line.find('#', hash + 1)) {
        const std::size_t end = line.find_first_of("# \t", hash + 1);
        letters += line.substr(hash, end == npos ? npos : end - hash);
        letters += ' ';
    }
    if (!letters.empty()) {
        letters.pop_back();
    }
    return letters;
}

void appendTabs(std::string& line, std::size_t count)
{
    line.append(count, tab);
}

void appendColumn(std::string& line, std::string_view text)
{
    line += text;
    line += tab;
}

std::string withHash(std::string_view letter)
{
    return "#" + std::string(letter);
}

} // namespace

std::size_t SoundLine::sampleCount() const
{
    return static_cast<std::size_t>(std::ranges::find(Samples, std::string()) - Samples.begin());
}

void SoundLine::refreshSampleText()
{
    std::string text;
    for (const std::string& sample : Samples) {
        text += sample;
        text += ' ';
    }
    SampleText = text;
}

SoundLine ParseSoundLine(std::string_view line)
{
    SoundLine record;
    const std::size_t afterName = line.find(':') + 1; // npos + 1 is 0: no name
    record.Name = line.substr(0, afterName);
    const std::size_t end = readSamplesOf(line, record.Samples);
    record.refreshSampleText();

    if (end != npos) {
        record.Vol = readValue(line, end, "VOL");
        record.Ch = readValue(line, end, "CH");
        record.Pit = readValue(line, end, "PIT");
        record.Rad = readValue(line, end, "RAD");
        const auto has = [&](char flag) { return HasFlag(line, end + 1, flag); };
        record.FlagP = flagIf(has('P'), "P");
        record.FlagV = flagIf(has('V'), "V");
        record.FlagRN = flagIf(has('R'), "R");
        if (has('N')) { // the same field: N wins over R
            record.FlagRN = "N";
        }
        record.FlagL = flagIf(has('L'), "L");
    }
    record.Letters = readLetters(line);
    return record;
}

std::string ComposeSoundLine(const SoundLine& record)
{
    std::string line;
    line.reserve(128);
    const std::string_view name = record.Name.view();
    const std::size_t nameLength = name.find(':') + 1;
    line += name.substr(0, nameLength);
    appendTabs(line, nameLength < 8 ? 3 : nameLength < 16 ? 2 : 1);

    const std::string_view samples = record.SampleText.trimmed();
    line += samples;
    appendTabs(line, samples.size() < 8 ? 4 : samples.size() < 16 ? 3 : samples.size() < 24 ? 2 : 1);

    appendColumn(line, record.Vol.trimmed());
    std::array<char, 8> flags{};
    auto* column = flags.begin();
    for (const FixedText<2>* flag : {&record.FlagP, &record.FlagV, &record.FlagRN, &record.FlagL}) {
        column = std::ranges::copy(flag->view(), column).out;
    }
    appendColumn(line, RTrimBlanks({flags.data(), flags.size()}));
    appendColumn(line, record.Ch.trimmed());
    appendColumn(line, record.Pit.trimmed());
    appendColumn(line, record.Rad.trimmed());
    line += RTrimBlanks(record.Letters);
    return line;
}

std::size_t samplesEnd(std::string_view line)
{
    std::vector<std::string> samples;
    return readSamplesOf(line, samples);
}

std::size_t lettersStart(std::string_view line)
{
    const std::size_t volume = line.find("VOL");
    return line.find('#', volume == npos ? 2 : volume + 3);
}

std::string_view RTrimBlanks(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1); // npos + 1 is 0
}

std::string FormatValue(int value, int width, char pad)
{
    const std::string digits = std::to_string(value < 0 ? -std::int64_t{value} : std::int64_t{value});
    const int padding = width - static_cast<int>(digits.size());
    if (padding < 0) {
        throw std::invalid_argument("value too wide");
    }
    std::string text(value < 0 ? "-" : "");
    text.append(static_cast<std::size_t>(padding), pad);
    return text + digits;
}

bool HasFlag(std::string_view line, std::size_t start, char flag)
{
    const std::size_t from = start == 0 ? 0 : start - 1;
    const std::array<char, 2> beforeBlank = {flag, ' '};
    const std::array<char, 2> beforeTab = {flag, tab};
    std::size_t found = line.find({beforeBlank.data(), 2}, from);
    if (found == npos) {
        found = line.find({beforeTab.data(), 2}, from);
    }
    return found != npos && (found == 0 || line[found - 1] != '#');
}

int leadingNumber(std::string_view text)
{
    return text.starts_with('-') ? -leadingDigits(text.substr(1)) : leadingDigits(text);
}

std::string AddLetter(std::string_view line, std::string_view letter)
{
    const std::string marked = withHash(letter);
    if (line.find("#g") != npos || line.find(marked) != npos) {
        return std::string(line);
    }
    const std::string_view separator = line.find('#') == npos ? "" : " ";
    return std::string(line).append(separator).append(marked);
}

std::string RemoveLetter(std::string_view line, std::string_view letter)
{
    SoundLine record = ParseSoundLine(line);
    const std::string marked = withHash(letter);
    const std::size_t found = record.Letters.find(marked);
    if (found == std::string::npos) {
        return std::string(line);
    }
    const std::size_t from = found == 0 ? 0 : found - 1;
    record.Letters.erase(from, found + marked.size() + 1 - from);
    if (record.Letters.starts_with(' ')) {
        record.Letters.erase(0, 1);
    }
    record.Letters = RTrimBlanks(record.Letters);
    return ComposeSoundLine(record);
}

bool haveSameSampleCount(std::string_view before, std::string_view after)
{
    return ParseSoundLine(before).sampleCount() == ParseSoundLine(after).sampleCount();
}

std::string AddLetterByRecord(std::string_view line, std::string_view letter)
{
    SoundLine record = ParseSoundLine(line);
    const std::string marked = withHash(letter);
    if (record.Letters.find(marked) == std::string::npos) {
        record.Letters = marked + " " + record.Letters;
    }
    return ComposeSoundLine(record);
}

} // namespace tavrel
