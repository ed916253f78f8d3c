// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

// The one layout of a .wav file that the level editor's tools accept. They look at fixed places of the
// header, and so does this: nothing else of the file counts, not even the bits per sample.
namespace tavrel {

struct SampleFormatVerdict
{
    bool mono = false;
    bool pcm = false;
    bool rate22050 = false;
    bool plainHeader = false; // the sound data follow a header of 44 bytes without further information

    bool valid() const { return mono && pcm && rate22050 && plainHeader; }
    friend bool operator==(const SampleFormatVerdict&, const SampleFormatVerdict&) = default;
};

// Reads the first 40 bytes. What lies beyond the end of the file counts as 0; a file that cannot be opened
// fails everything.
SampleFormatVerdict CheckSampleFormatDetailed(const std::filesystem::path& file);

// The verdict on a file that begins with these bytes.
SampleFormatVerdict verdictOf(std::span<const char> start);

// The sample of that name (without ".wav", letter case aside) in the folder. False when there is none.
bool CheckSampleFormat(const std::filesystem::path& folder, std::string_view name);

// "Windows PCM 22050Hz 16bits Mono w/o header informations"
const BilingualText& requiredSampleFormat();
// The refusal of a sample (its name without ".wav", code page bytes) in another one.
BilingualText wrongSampleFormat(std::string_view name);

// The report of wrong samples, for a fixed-pitch list: two title lines, and a row for each file. Code page
// bytes.
BilingualText anomalyTitle();
BilingualText anomalyColumns();
std::string anomalyRow(std::string_view fileName, const SampleFormatVerdict& verdict, Language language);
// The row of a file that was looked at; for one that cannot be opened, why.
std::string checkedRow(const std::filesystem::path& file, std::string_view fileName,
                       const SampleFormatVerdict& verdict, Language language);
// Under the rows, how many there are.
BilingualText anomalyCount(std::size_t rows);

} // namespace tavrel
