// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/OtherCatalogue.h"

#include "backup/ExchangeFile.h"
#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/TextFile.h"
#include "catalogue/SoundLine.h"

#include <algorithm>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

bool holdsRecords(const fs::path& file)
{
    const std::string ending = codePagePath(file.extension()).bytes;
    return sameName(ending, ".tox") || sameName(ending, ".tob");
}

std::optional<fs::path> ifFolder(const fs::path& folder)
{
    return isFolder(folder) ? std::optional(folder) : std::nullopt;
}

Result<OtherCatalogue> readRecords(const fs::path& file)
{
    Result<std::vector<ExchangeRecord>> records = readExchangeFile(file);
    if (!records) {
        return records.failure();
    }
    OtherCatalogue other;
    for (ExchangeRecord& record : *records) {
        if (record.id < 0) {
            return wrongContent(file, {"The ID [" + record.idText + "] is not the number of a sound.",
                                       "L'ID [" + record.idText + "] n'est pas un numéro de son."});
        }
        other.numbers.push_back(static_cast<std::size_t>(record.id));
        other.isComplete = other.isComplete && other.numbers.back() == other.lines.size();
        other.lines.push_back(std::move(record.line));
    }
    other.samplesFolder = ifFolder(samplesFolderOf(file));
    return other;
}

Result<OtherCatalogue> readLines(const fs::path& file)
{
    const Result<TextFile> text = readTextFile(file);
    if (!text) {
        return text.failure();
    }
    OtherCatalogue other;
    for (const std::string_view line : text->lines()) {
        if (line.find(':') == std::string_view::npos) {
            other.plainLines.push_back({other.lines.size(), std::string(line)});
            continue;
        }
        other.numbers.push_back(other.lines.size());
        // As every load reads it: blanks behind the letters do not count.
        other.lines.emplace_back(line.find('#') == std::string_view::npos ? line : RTrimBlanks(line));
    }
    // Of another level editor: sound\LevelSFX Creator\Sounds.txt beside sound\Samples.
    other.samplesFolder = ifFolder(folderIn(file.parent_path().parent_path(), {"Samples"}));
    return other;
}

} // namespace

Result<OtherCatalogue> readOtherCatalogue(const fs::path& file)
{
    std::error_code ignored;
    const fs::path found = fs::absolute(file, ignored);
    Result<OtherCatalogue> other = holdsRecords(file) ? readRecords(found) : readLines(found);
    if (other && other->lines.empty()) {
        return wrongContent(file, {"There is no sound in the file.", "Il n'y a aucun son dans le fichier."});
    }
    if (other) {
        other->file = found;
    }
    return other;
}

SoundPairing pairSounds(SoundLines mine, const OtherCatalogue& other)
{
    const std::vector<std::string_view> lines = other.views();
    if (other.isComplete) {
        return pairSounds(mine, lines);
    }
    const auto name = [](std::string_view line) { return line.substr(0, line.find(':')); };
    SoundPairing byNumber;
    bool allInPlace = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::size_t number = other.numbers[i];
        const bool isThere = number < mine.size();
        allInPlace = allInPlace && isThere && name(mine[number]) == name(lines[i]);
        byNumber.pairs.push_back({isThere ? std::optional(number) : std::nullopt, i});
    }
    if (allInPlace) {
        return byNumber;
    }
    // As many sounds as the names can place, the others by their numbers.
    const auto inPlace = [&](const std::vector<SoundPair>& pairs) {
        return std::ranges::count_if(pairs, [&](const SoundPair& pair) {
            return pair.mine && pair.theirs && name(mine[*pair.mine]) == name(lines[*pair.theirs]);
        });
    };
    SoundPairing byName = pairSounds(mine, lines);
    std::erase_if(byName.pairs, [](const SoundPair& pair) { return !pair.theirs; });
    return byName.byName && inPlace(byName.pairs) > inPlace(byNumber.pairs) ? byName : byNumber;
}

} // namespace tavrel
