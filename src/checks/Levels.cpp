// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/Levels.h"

#include "base/CodePage.h"
#include "base/Folder.h"
#include "checks/Csv.h"
#include "checks/LineReading.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <unordered_map>
#include <unordered_set>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

bool has(const LineReading& reading, std::string_view letter)
{
    return std::ranges::find(reading.letters, letter) != reading.letters.end();
}

// The sizes of the samples by their names in capitals; each file is looked at once, when it is asked for.
class SampleSizes
{
public:
    explicit SampleSizes(const std::vector<SampleFile>& files)
    {
        constexpr std::size_t endingLength = 4;
        for (const SampleFile& file : files) {
            m_paths.try_emplace(upperCase(file.name.substr(0, file.name.size() - endingLength)), file.path);
        }
    }

    std::optional<std::uintmax_t> of(const std::string& name)
    {
        const auto path = m_paths.find(name);
        if (path == m_paths.end()) {
            return std::nullopt;
        }
        const auto [size, isNew] = m_sizes.try_emplace(name, 0);
        if (isNew) {
            std::error_code error;
            const std::uintmax_t bytes = fs::file_size(path->second, error);
            size->second = error ? 0 : bytes;
        }
        return size->second;
    }

private:
    std::unordered_map<std::string, fs::path> m_paths;
    std::unordered_map<std::string, std::uintmax_t> m_sizes;
};

void addSamples(LevelSurvey& level, const std::vector<const LineReading*>& sounds, SampleSizes& sizes)
{
    std::unordered_set<std::string> known;
    for (const LineReading* const sound : sounds) {
        for (const std::string& sample : sound->samples) {
            const std::string key = upperCase(sample);
            if (!known.insert(key).second) {
                continue;
            }
            level.samples.push_back({sample, sizes.of(key)});
            level.bytes += level.samples.back().bytes.value_or(0);
            level.missingSamples += level.samples.back().bytes ? 0U : 1U;
        }
    }
    std::ranges::stable_sort(level.samples, std::greater(), &LevelSample::bytes);
}

void countFindings(LevelSurvey& level, std::span<const Finding> findings, const SoundCatalogue& catalogue)
{
    for (const Finding& finding : findings) {
        if (concernsWad(finding, catalogue, level.wad())) {
            ++(finding.severity == Severity::Error     ? level.errors
               : finding.severity == Severity::Warning ? level.warnings
                                                       : level.notes);
        }
    }
}

std::optional<fs::file_time_type> timeOfResults(const fs::path& folder, const std::string& wadName)
{
    for (const char* const ending : {".sfx", ".sam"}) {
        const std::optional<fs::path> file = findFile(folder, wadName + ending);
        std::error_code error;
        const fs::file_time_type time = file ? fs::last_write_time(*file, error) : fs::file_time_type();
        if (file && !error) {
            return time;
        }
    }
    return std::nullopt;
}

} // namespace

Result<std::vector<LevelSurvey>> surveyLevels(const CheckSubject& subject, std::span<const Finding> findings)
{
    const Result<std::vector<SampleFile>> files = listSamples(subject.folders.samples);
    if (!files) {
        return files.failure();
    }
    std::vector<LineReading> readings;
    for (std::size_t k = 0; k < subject.catalogue.size(); ++k) {
        readings.push_back(readLine(k, subject.catalogue.currentLine(k)));
    }
    SampleSizes sizes(*files);
    std::vector<LevelSurvey> levels;
    const std::span all(subject.references.all());
    for (const WadReference& reference : all.subspan(subject.references.userBegin())) {
        LevelSurvey level;
        level.reference = reference;
        std::vector<const LineReading*> sounds;
        for (const LineReading& reading : readings) {
            const bool isGlobal = has(reading, "g");
            const bool isOwn = !isGlobal && has(reading, reference.letter);
            level.globalSounds += isGlobal ? 1U : 0U;
            level.ownSounds += isOwn ? 1U : 0U;
            if (isGlobal || isOwn) {
                sounds.push_back(&reading);
            }
        }
        addSamples(level, sounds, sizes);
        countFindings(level, findings, subject.catalogue);
        level.made = timeOfResults(subject.folders.wads, reference.wadName);
        levels.push_back(std::move(level));
    }
    return levels;
}

std::string shownTime(fs::file_time_type time)
{
    using namespace std::chrono;
    const auto onTheClock = time_point_cast<system_clock::duration>(file_clock::to_sys(time));
    const std::time_t seconds = system_clock::to_time_t(onTheClock);
    const std::tm* const local = std::localtime(&seconds);
    std::array<char, 20> text{};
    if (local == nullptr || std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", local) == 0) {
        return {};
    }
    return text.data();
}

std::string csvOf(std::span<const LevelSurvey> levels, Language language)
{
    CsvTable table({{"WAD", "WAD"},
                    {"Letter", "Lettre"},
                    {"Title", "Titre"},
                    {"Own sounds", "Sons propres"},
                    {"Sounds with #g", "Sons avec #g"},
                    {"Samples", "Samples"},
                    {"Bytes", "Octets"},
                    {"Missing", "Manquants"},
                    {"Errors", "Erreurs"},
                    {"Warnings", "Avertissements"},
                    {"Notes", "Remarques"},
                    {"Made", "Générés"}},
                   language);
    for (const LevelSurvey& level : levels) {
        table.addRow({utf8FromCodePage(level.reference.wadName), utf8FromCodePage(level.reference.letter),
                      utf8FromCodePage(level.reference.title), std::to_string(level.ownSounds),
                      std::to_string(level.globalSounds), std::to_string(level.samples.size()),
                      std::to_string(level.bytes), std::to_string(level.missingSamples),
                      std::to_string(level.errors), std::to_string(level.warnings),
                      std::to_string(level.notes), level.made ? shownTime(*level.made) : ""});
    }
    return table.text();
}

} // namespace tavrel
