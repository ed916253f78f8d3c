// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/WorkingFiles.h"

#include "base/QuotedRecords.h"
#include "base/TextFile.h"
#include "catalogue/DoublesStatus.h"
#include "catalogue/SoundCatalogue.h"
#include "catalogue/SoundLine.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace tavrel {

namespace {

constexpr std::string_view none = "-";

std::vector<std::string> split(std::string_view text, char separator)
{
    std::vector<std::string> parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

struct StockSound
{
    std::string number;
    SoundLine record;
};

// The level editor leaves out a keyword that has its usual value.
std::string valueUnless(std::string_view usual, std::string_view keyword, const std::string& value)
{
    if (value == none || value == usual) {
        return {};
    }
    return std::string(keyword) + FormatValue(std::stoi(value), 2, '0');
}

StockSound soundFromRow(const std::vector<std::string>& row)
{
    SoundLine record;
    record.Name = row.at(1) + ":";
    if (row.at(2) != none) {
        record.Samples = split(row.at(2), ' ');
        record.refreshSampleText();
    }
    record.Vol = valueUnless("100", "VOL", row.at(3));
    record.Pit = valueUnless("0", "PIT", row.at(4));
    record.Rad = valueUnless("", "RAD", row.at(5));
    record.Ch = valueUnless("100", "CH", row.at(6));
    const auto flag = [&row](char letter) {
        return row.at(7).find(letter) == std::string::npos ? std::string() : std::string(1, letter);
    };
    record.FlagP = flag('P');
    record.FlagV = flag('V');
    record.FlagRN = flag('N').empty() ? flag('R') : flag('N');
    record.FlagL = flag('L');
    record.Letters = row.at(8) == "g" ? "#g" : "";
    return {row.at(0), record};
}

std::string originalLines(const std::vector<StockSound>& sounds)
{
    std::string text;
    for (const StockSound& sound : sounds) {
        text += ComposeSoundLine(sound.record) + "\r\n";
    }
    return text;
}

// Every sound that shares a sample with another one. The carried fields tell a reader which samples and with
// which sounds.
std::string doublesRegister(const std::vector<StockSound>& sounds)
{
    std::map<std::string, std::vector<std::string>> usersOfSample;
    for (const StockSound& sound : sounds) {
        for (const std::string& sample : sound.record.Samples) {
            usersOfSample[sample].push_back(sound.number);
        }
    }
    RecordWriter records;
    for (const StockSound& sound : sounds) {
        std::string shared;
        std::string others;
        for (const std::string& sample : sound.record.Samples) {
            const std::vector<std::string>& users = usersOfSample[sample];
            if (users.size() < 2) {
                continue;
            }
            shared += (shared.empty() ? "" : " ") + sample;
            for (const std::string& user : users) {
                if (user != sound.number &&
                    (" " + others + " ").find(" " + user + " ") == std::string::npos) {
                    others += (others.empty() ? "" : " ") + user;
                }
            }
        }
        if (shared.empty()) {
            continue;
        }
        const std::size_t number = std::stoul(sound.number);
        const bool isProtected =
            std::ranges::find(emptyAndUnsureSounds, number) != emptyAndUnsureSounds.end();
        const std::string_view name = sound.record.Name.trimmed();
        records.number(static_cast<std::int64_t>(number))
            .text(isProtected ? DoublesStatus::leftOut : DoublesStatus::takesPart)
            .text(shared)
            .text(FixedText<24>(name.substr(0, name.size() - 1)).view())
            .text(sound.record.SampleText.view())
            .text(others)
            .endRecord();
    }
    return records.bytes();
}

std::string referenceRegister(const std::filesystem::path& table)
{
    RecordWriter records;
    for (const std::vector<std::string>& row : readTable(table)) {
        records.text(row.at(0)).text(row.at(1)).text(row.at(2)).endRecord();
    }
    return records.bytes();
}

std::string objectTable(const std::filesystem::path& table)
{
    std::string text;
    std::string type;
    for (const std::vector<std::string>& row : readTable(table)) {
        if (row.at(0) != type) {
            type = row.at(0);
            text += "*" + type + "\r\n";
        }
        const std::vector<std::string> sounds = split(row.at(2), ' ');
        text += std::string(FixedText<25>(row.at(1)).view());
        text += FormatValue(static_cast<int>(sounds.size()), 2, ' ') + "  ";
        for (const std::string& sound : sounds) {
            text += FormatValue(std::stoi(sound), 3, ' ') + " ";
        }
        text.pop_back();
        text += "\r\n";
    }
    return text;
}

} // namespace

std::vector<std::vector<std::string>> readTable(const std::filesystem::path& file)
{
    const Result<TextFile> text = readTextFile(file);
    if (!text) {
        throw std::runtime_error(text.failure().text.english);
    }
    std::vector<std::vector<std::string>> rows;
    bool isTitle = true;
    for (const std::string_view line : text->lines()) {
        if (line.empty() || line.starts_with("//")) {
            continue;
        }
        if (!isTitle) {
            rows.push_back(split(line, '\t'));
        }
        isTitle = false;
    }
    return rows;
}

std::vector<WorkingFile> makeWorkingFiles(const std::filesystem::path& tables)
{
    std::vector<StockSound> sounds;
    for (const std::vector<std::string>& row : readTable(tables / "sounds.tsv")) {
        sounds.push_back(soundFromRow(row));
    }
    return {{"Tavrel.tos", originalLines(sounds)},
            {"Tavrel.tow", referenceRegister(tables / "references.tsv")},
            {"Tavrel.too", objectTable(tables / "objects.tsv")},
            {"Tavrel.tod", doublesRegister(sounds)}};
}

} // namespace tavrel
