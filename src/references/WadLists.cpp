// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/WadLists.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Folder.h"
#include "base/PassedOver.h"
#include "base/QuotedRecords.h"
#include "base/TextFile.h"

#include <algorithm>
#include <numeric>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t sampleEndingLength = 4;
constexpr std::uintmax_t largestList = 8U << 20U;
constexpr std::string_view separators = " \t";

Failure noSuchList(const fs::path& wadFolder, std::string_view wadName, std::string_view ending)
{
    const std::string file = "[" + shownText(wadName) + std::string(ending) + "]";
    return {BilingualText("No " + file + " File\nin ", "Aucun Fichier " + file + "\ndans ") +
            displayPath(wadFolder / "")};
}

// Without the four characters of its ending; empty for a value that is no longer than that.
std::string_view sampleOfValue(std::string_view value)
{
    return value.size() > sampleEndingLength ? value.substr(0, value.size() - sampleEndingLength)
                                             : std::string_view();
}

// What stands before the first ":"; nothing without one.
std::optional<std::string_view> objectOfValue(std::string_view value)
{
    const std::size_t colon = value.find(':');
    return colon == std::string_view::npos ? std::nullopt : std::optional(value.substr(0, colon));
}

// Takes the names out of the values of a list.
class ListReader
{
public:
    explicit ListReader(WadListKind kind) : m_kind(kind) {}

    // False when a quote never closes.
    bool read(std::string_view line)
    {
        ++m_line;
        const auto values = splitList(line);
        if (!values) {
            return false;
        }
        for (const ListedValue& value : *values) {
            if (value.wrong) {
                m_passedOver.add(m_line, value.text);
            } else if (m_kind == WadListKind::Samples) {
                take(sampleOfValue(value.text), value.text);
            } else if (const auto object = objectOfValue(value.text)) { // others are no objects
                take(*object, value.text);
            }
        }
        return true;
    }

    std::size_t line() const { return m_line; }

    WadList finish(const fs::path& path)
    {
        WadList list{path, std::move(m_names), {}};
        m_passedOver.tell(path,
                          {"These are not entries of the list and were ignored:",
                           "Ces textes ne sont pas des entrées de la liste et ont été ignorés :"},
                          list.notices);
        return list;
    }

private:
    void take(std::string_view name, std::string_view value)
    {
        if (name.empty()) {
            m_passedOver.add(m_line, value);
        } else {
            m_names.emplace_back(name);
        }
    }

    WadListKind m_kind;
    std::size_t m_line = 0;
    std::vector<std::string> m_names;
    PassedOver m_passedOver;
};

bool isSeparator(char c)
{
    return separators.find(c) != std::string_view::npos;
}

// Calls with each piece between separators.
template <typename Take>
void forEachWord(std::string_view text, Take take)
{
    std::size_t start = text.find_first_not_of(separators);
    while (start != std::string_view::npos) {
        const std::size_t end = std::min(text.find_first_of(separators, start), text.size());
        take(text.substr(start, end - start));
        start = text.find_first_not_of(separators, end);
    }
}

} // namespace

std::string_view endingOf(WadListKind kind)
{
    return kind == WadListKind::Samples ? ".SAM" : ".WAS";
}

Result<WadList> readWadList(const fs::path& wadFolder, std::string_view wadName, WadListKind kind)
{
    const std::optional<fs::path> path = findFile(wadFolder, std::string(wadName).append(endingOf(kind)));
    if (!path) {
        return noSuchList(wadFolder, wadName, endingOf(kind));
    }
    std::error_code error;
    if (fs::file_size(*path, error) > largestList && !error) {
        return wrongContent(*path, {"The file is far too large for such a list.",
                                    "Le fichier est beaucoup trop gros pour une telle liste."});
    }
    const Result<TextFile> file = readTextFile(*path);
    return file ? parseWadList(*file, kind) : file.failure();
}

Result<WadList> parseWadList(const TextFile& file, WadListKind kind)
{
    ListReader reader(kind);
    for (const std::string_view line : file.lines()) {
        if (!reader.read(line)) {
            return wrongLine(file.path, reader.line(),
                             {"A double quote is not closed.", "Un guillemet n'est pas fermé."});
        }
    }
    return reader.finish(file.path);
}

bool objectsMatch(std::string_view listed, std::string_view known)
{
    constexpr auto npos = std::string_view::npos;
    return !listed.empty() && !known.empty() && (listed.find(known) != npos || known.find(listed) != npos);
}

std::vector<std::size_t> soundsOfListedObject(const SoundCatalogue& catalogue, std::string_view listed)
{
    std::vector<std::size_t> sounds;
    for (const SoundObject& object : catalogue.objects()) {
        if (!objectsMatch(listed, object.name)) {
            continue;
        }
        // Several objects of the table may match.
        std::ranges::copy_if(object.sounds, std::back_inserter(sounds), [&](std::size_t number) {
            return number < catalogue.size() && std::ranges::find(sounds, number) == sounds.end();
        });
    }
    return sounds;
}

bool standsAsFirstWord(std::string_view line, std::string_view word)
{
    const std::size_t start = line.find(word);
    const std::size_t end = start + word.size();
    return start != std::string_view::npos && start > 0 && isSeparator(line[start - 1]) &&
           end < line.size() && isSeparator(line[end]);
}

SampleUses::SampleUses(std::vector<std::string> lines)
    : m_lines(std::move(lines)), m_allNumbers(m_lines.size())
{
    std::iota(m_allNumbers.begin(), m_allNumbers.end(), std::size_t{0});
    std::ranges::for_each(m_allNumbers, [this](std::size_t number) { addWords(number); });
}

// Words that were there before stay: a candidate more does no harm.
void SampleUses::setLine(std::size_t number, const std::string& line)
{
    if (m_lines[number] != line) {
        m_lines[number] = line;
        addWords(number);
    }
}

void SampleUses::addWords(std::size_t number)
{
    forEachWord(m_lines[number], [&](std::string_view word) {
        std::vector<std::size_t>& numbers = m_linesWithWord[std::string(word)];
        const auto place = std::ranges::lower_bound(numbers, number);
        if (place == numbers.end() || *place != number) {
            numbers.insert(place, number);
        }
    });
}

std::vector<std::size_t> SampleUses::of(std::string_view sample) const
{
    // A sample with a blank inside is several words of its line, the first of them whole.
    const std::size_t start = std::min(sample.find_first_not_of(separators), sample.size());
    const std::string_view word =
        sample.substr(start).substr(0, sample.substr(start).find_first_of(separators));
    static const std::vector<std::size_t> none;
    const std::vector<std::size_t>* candidates = &m_allNumbers;
    if (!word.empty()) {
        const auto found = m_linesWithWord.find(std::string(word));
        candidates = found == m_linesWithWord.end() ? &none : &found->second;
    }
    std::vector<std::size_t> numbers;
    std::ranges::copy_if(*candidates, std::back_inserter(numbers),
                         [&](std::size_t number) { return standsAsFirstWord(m_lines[number], sample); });
    return numbers;
}

} // namespace tavrel
