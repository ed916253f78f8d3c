// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/TakeOver.h"

#include "backup/SampleTransfer.h"
#include "base/CodePage.h"
#include "base/Folder.h"
#include "catalogue/SoundLine.h"
#include "samples/SamplesFolder.h"

#include <algorithm>

namespace tavrel {

namespace {

std::string trimmed(std::string_view text)
{
    const std::size_t start = std::min(text.find_first_not_of(" #"), text.size());
    return std::string(RTrimBlanks(text.substr(start)));
}

const std::string* mapped(const LetterMap& map, std::string_view letter)
{
    const auto found = std::ranges::find(map, letter, &LetterMap::value_type::first);
    return found == map.end() ? nullptr : &found->second;
}

// The letters of the line replaced where they stand. One that would be there twice by that stands once.
std::string withMappedLetters(std::string_view line, const LetterMap& map)
{
    std::size_t hash = lettersStart(line);
    if (hash == std::string_view::npos || map.empty()) {
        return std::string(line);
    }
    struct Written
    {
        std::string letter;
        bool isMapped;
    };
    std::vector<Written> written;
    std::string result(line.substr(0, hash));
    while (hash != std::string_view::npos) {
        const std::size_t end = std::min(line.find_first_of("# \t", hash + 1), line.size());
        const std::string_view theirs = line.substr(hash + 1, end - hash - 1);
        const std::string* const other = mapped(map, theirs);
        const Written letter{other != nullptr ? *other : std::string(theirs), other != nullptr};
        const auto earlier = std::ranges::find(written, letter.letter, &Written::letter);
        if (earlier == written.end() || !(letter.isMapped || earlier->isMapped)) {
            result += "#" + letter.letter;
        } else if (result.ends_with(' ')) {
            result.pop_back();
        }
        written.push_back(letter);
        hash = line.find('#', end);
        result += line.substr(end, hash == std::string_view::npos ? std::string_view::npos : hash - end);
    }
    return result;
}

void takeValues(SoundLine& mine, const SoundLine& theirs)
{
    mine.Vol = theirs.Vol;
    mine.Pit = theirs.Pit;
    mine.Rad = theirs.Rad;
    mine.Ch = theirs.Ch;
    mine.FlagP = theirs.FlagP;
    mine.FlagV = theirs.FlagV;
    mine.FlagRN = theirs.FlagRN;
    mine.FlagL = theirs.FlagL;
}

Failure unreadable()
{
    return {{"The line would be read differently from what is meant.",
             "La ligne serait lue autrement que prévu."}};
}

Failure ofSound(std::size_t number, const BilingualText& why)
{
    const std::string shown = std::to_string(number);
    return {BilingualText("Sound " + shown + ": ", "Son " + shown + " : ") + why};
}

} // namespace

Result<LetterMap> parseLetterMap(std::string_view text)
{
    LetterMap map;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(",;"), text.size());
        const std::string_view part = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (trimmed(part).empty()) {
            continue;
        }
        const std::size_t equals = part.find('=');
        const std::string from = trimmed(part.substr(0, equals));
        const std::string to =
            equals == std::string_view::npos ? std::string() : trimmed(part.substr(equals + 1));
        const auto isLetter = [](const std::string& letter) {
            return !letter.empty() && letter.find_first_of("# \t=\"") == std::string_view::npos;
        };
        if (!isLetter(from) || !isLetter(to) || mapped(map, from) != nullptr) {
            const std::string shown = utf8FromCodePage(part);
            return Failure{{"[" + shown + "] does not say which letter becomes which. Write [ab=oa].",
                            "[" + shown + "] ne dit pas quelle lettre devient laquelle. Écrivez [ab=oa]."}};
        }
        map.emplace_back(from, to);
    }
    return map;
}

Result<std::string> takeOver(std::string_view mine, std::string_view theirs, const TakenParts& parts)
{
    const std::string source = withMappedLetters(theirs, parts.letterMap);
    if (const std::optional<BilingualText> refusal = SoundCatalogue::refusal(source)) {
        return Failure{*refusal};
    }
    if (parts.wholeLine) {
        return source;
    }
    const SoundLine taken = ParseSoundLine(source);
    SoundLine record = ParseSoundLine(mine);
    const SoundLine before = record;
    if (parts.values) {
        takeValues(record, taken);
    }
    if (parts.samples) {
        record.Samples = taken.Samples;
        record.SampleText = taken.SampleText;
    }
    if (parts.letters) {
        record.Letters = taken.Letters;
    }
    if (record == before) {
        return std::string(mine);
    }
    std::string line = ComposeSoundLine(record);
    const bool isRead = SoundCatalogue::accepts(line) && ParseSoundLine(line) == record;
    return isRead ? Result<std::string>(std::move(line)) : unreadable();
}

TakenLines takeLines(const SoundCatalogue& catalogue, std::span<const TakenLine> lines,
                     const TakenParts& parts)
{
    TakenLines result;
    for (const TakenLine& line : lines) {
        const std::string& mine = catalogue.currentLine(line.number);
        Result<std::string> taken = takeOver(mine, line.theirs, parts);
        if (!taken) {
            result.refused.push_back(ofSound(line.number, taken.failure().text));
        } else if (catalogue.isProtected(line.number)) {
            result.refused.push_back(ofSound(line.number, {"This line should not be modified.",
                                                           "Cette ligne ne doit pas être modifiée."}));
        } else if (*taken != mine) {
            result.changes.push_back({line.number, std::move(*taken)});
        }
    }
    return result;
}

std::vector<std::string> missingSamples(std::span<const SoundCatalogue::LineChange> changes,
                                        const std::filesystem::path& samplesFolder)
{
    const Result<FolderIndex> folder = FolderIndex::of(samplesFolder);
    std::vector<std::string> missing;
    for (const SoundCatalogue::LineChange& change : changes) {
        for (const std::string& name : sampleNamesOf(ParseSoundLine(change.text))) {
            const bool isThere = folder && folder->find(sampleFileName(name)) != nullptr;
            if (!isThere && std::ranges::find(missing, name) == missing.end()) {
                missing.push_back(name);
            }
        }
    }
    return missing;
}

} // namespace tavrel
