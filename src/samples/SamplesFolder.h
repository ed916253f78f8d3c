// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Folder.h"
#include "base/Result.h"
#include "samples/SampleFormat.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

// A .wav file as its folder lists it.
struct SampleFile
{
    std::string name; // with its ending, code page bytes
    std::filesystem::path path;
    bool exactName = true; // false when the name has characters that no line of sounds.txt can hold
};

// A regular file with the ending ".wav" in any letter case, and not hidden.
bool isSample(const FolderEntry& entry);

// Every sample, in the system's order.
Result<std::vector<SampleFile>> listSamples(const std::filesystem::path& folder);

// The file of a sample (its name without ".wav"), whatever its letter case. A name can never leave the
// folder: it is compared with what the folder lists.
std::optional<std::filesystem::path> findSample(const std::filesystem::path& folder, std::string_view name);

// "step.wav" for "step".
std::string sampleFileName(std::string_view name);
// What stands before the first ".wav" of a file name; the whole name when there is none.
std::string sampleNameOf(std::string_view fileName);

// The name that choosing a listed file gives to a line; nothing for a file that cannot be chosen. An ending
// in capitals is refused: the level editor's tools look for ".wav".
std::optional<std::string> chosenSampleName(std::string_view fileName);

// The check of a whole folder, a file at a time, so that a window can show how far it is.
class SamplesCheck
{
public:
    explicit SamplesCheck(std::vector<SampleFile> files) : m_files(std::move(files)) {}

    std::size_t count() const { return m_files.size(); }
    std::size_t checked() const { return m_next; }
    bool finished() const { return m_next == m_files.size(); }
    // The file that checkNext() looks at.
    const SampleFile& next() const { return m_files.at(m_next); }
    SampleFormatVerdict checkNext() { return CheckSampleFormatDetailed(m_files.at(m_next++).path); }

private:
    std::vector<SampleFile> m_files;
    std::size_t m_next = 0;
};

// What the details of a question list: a row for the name of each.
BilingualText listedFiles(std::span<const std::filesystem::path> files);

} // namespace tavrel
