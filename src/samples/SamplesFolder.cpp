// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SamplesFolder.h"

#include "base/CodePage.h"
#include "base/System.h"

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view ending = ".wav";

bool hasSampleEnding(std::string_view name)
{
    return name.size() >= ending.size() && sameName(name.substr(name.size() - ending.size()), ending);
}

} // namespace

bool isSample(const FolderEntry& entry)
{
    return hasSampleEnding(entry.name) && entry.isFile && !system::isHidden(entry.path);
}

Result<std::vector<SampleFile>> listSamples(const fs::path& folder)
{
    Result<std::vector<FolderEntry>> entries = listFolder(folder);
    if (!entries) {
        return entries.failure();
    }
    std::vector<SampleFile> samples;
    for (FolderEntry& entry : *entries) {
        if (isSample(entry)) {
            samples.push_back({std::move(entry.name), std::move(entry.path), entry.exactName});
        }
    }
    return samples;
}

std::optional<fs::path> findSample(const fs::path& folder, std::string_view name)
{
    const std::optional<fs::path> file = findFile(folder, std::string(name).append(ending));
    return file && !system::isHidden(*file) ? file : std::nullopt;
}

std::string sampleFileName(std::string_view name)
{
    return std::string(name) + ".wav";
}

std::string sampleNameOf(std::string_view fileName)
{
    return std::string(fileName.substr(0, fileName.find(ending)));
}

std::optional<std::string> chosenSampleName(std::string_view fileName)
{
    std::size_t position = fileName.find(ending);
    if (position == std::string_view::npos) {
        // The other way round: only a name that is itself a piece of ".WAV" is found.
        position = std::string_view(".WAV").find(fileName);
    }
    if (position == std::string_view::npos) {
        return std::nullopt;
    }
    return std::string(fileName.substr(0, position));
}

BilingualText listedFiles(std::span<const std::filesystem::path> files)
{
    std::string rows;
    for (const std::filesystem::path& file : files) {
        rows += (rows.empty() ? "" : "\n") + displayPath(file.filename());
    }
    return BilingualText::same(rows);
}

} // namespace tavrel
