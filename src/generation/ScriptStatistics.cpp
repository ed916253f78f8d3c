// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/ScriptStatistics.h"

#include "base/CodePage.h"
#include "base/Folder.h"
#include "base/TextFile.h"
#include "base/Titles.h"

#include <algorithm>
#include <limits>
#include <string>

namespace tavrel {

namespace {

constexpr std::size_t countedLevels = 2;
// From here on the script has a level for which there was never any room.
constexpr std::size_t tooManyLevels = 4;

std::int64_t occurrences(std::string_view line, std::string_view word)
{
    std::int64_t count = 0;
    for (std::size_t at = line.find(word); at != std::string_view::npos; at = line.find(word, at + 1)) {
        ++count;
    }
    return count;
}

// The line in lower case.
void countLine(std::string_view line, EntryCounts& counts)
{
    static constexpr std::array<std::string_view, 3> onceALine = {
        "triggergroup=", "globaltrigger=", "organizer="};
    for (std::size_t i = 0; i < onceALine.size(); ++i) {
        counts[i] += line.find(onceALine[i]) == std::string_view::npos ? 0 : 1;
    }
    for (const std::string_view trigger : {"$2000", "$5000", "$8000", "$9000"}) {
        counts.back() += occurrences(line, trigger);
    }
}

// What stands between line feeds, but for the last of them; a line feed at the end starts no further line.
std::vector<std::string_view> linesLookedAt(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        lines.push_back(line);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    if (!lines.empty()) {
        lines.pop_back();
    }
    return lines;
}

struct LevelCounts
{
    std::vector<EntryCounts> levels; // also those beyond the ones that are shown
    bool foundLevel = false;
};

LevelCounts countLevels(std::string_view text)
{
    LevelCounts result;
    result.levels.emplace_back();
    for (const std::string_view original : linesLookedAt(text)) {
        const std::string line = lowerCase(original);
        if (line.starts_with(';')) {
            continue;
        }
        countLine(line, result.levels.back());
        if (!line.starts_with("[level]")) {
            continue;
        }
        if (result.foundLevel) {
            result.levels.emplace_back();
        }
        result.foundLevel = true;
    }
    return result;
}

bool isTooLarge(const EntryCounts& counts)
{
    constexpr std::int64_t largest = std::numeric_limits<std::int16_t>::max();
    return std::ranges::any_of(counts, [](std::int64_t count) { return count > largest; });
}

std::vector<Failure> noticesAbout(const std::vector<EntryCounts>& levels)
{
    std::vector<Failure> notices;
    if (levels.size() >= tooManyLevels) {
        const std::string count = std::to_string(levels.size());
        notices.push_back({{"The script has " + count + " [Level] sections; only the first two are counted.",
                            "Le script contient " + count +
                                " sections [Level] ; seules les deux premières sont comptées."}});
    }
    if (std::ranges::any_of(levels, isTooLarge)) {
        notices.push_back({{"A level has more than 32767 entries of one kind, which no script can hold.",
                            "Un niveau a plus de 32767 entrées d'une même sorte, ce qu'aucun script ne peut "
                            "contenir."}});
    }
    return notices;
}

} // namespace

const Title& statisticsTitle()
{
    return titles::statistics;
}

Result<ScriptStatistics> countScript(std::string_view text)
{
    const LevelCounts counted = countLevels(text);
    if (!counted.foundLevel) {
        return Failure{{"There is no [Level] section in the script.",
                        "Il n'y a aucune section [Level] dans le script."}};
    }
    ScriptStatistics statistics;
    statistics.first = counted.levels[0];
    statistics.total = statistics.first;
    if (counted.levels.size() >= countedLevels) {
        statistics.second = counted.levels[1];
        std::ranges::transform(statistics.first, *statistics.second, statistics.total.begin(), std::plus());
    }
    statistics.notices = noticesAbout(counted.levels);
    return statistics;
}

std::filesystem::path scriptFile(const std::filesystem::path& levelEditorFolder)
{
    return fileIn(folderIn(levelEditorFolder, {"script"}), "script.txt");
}

Result<std::string> readScript(const std::filesystem::path& file)
{
    Result<FileContent> content = readFile(file, largestLines);
    if (!content) {
        return content.failure();
    }
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (content->bytes.starts_with(byteOrderMark)) {
        content->bytes.erase(0, byteOrderMark.size());
    }
    return std::move(content->bytes);
}

Result<ScriptStatistics> countScriptFile(const std::filesystem::path& file)
{
    const Result<std::string> script = readScript(file);
    return script ? countScript(*script) : Result<ScriptStatistics>(script.failure());
}

} // namespace tavrel
