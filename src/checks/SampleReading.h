// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "samples/SampleFormat.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {

// What the checks ask a sample: its header, and whether there is anything to hear.
struct SampleReading
{
    SampleFormatVerdict verdict;
    bool isWave = false; // the file starts like a .wav file
    std::uint32_t formatTag = 0;
    std::uint32_t channels = 0;
    std::uint32_t rate = 0;
    std::uint32_t bits = 0;
    std::vector<std::string> chunksBeforeData; // other than the format's
    bool hasData = false;                      // found near the start
    bool hasChunksBehindData = false;
    bool isSilent = false; // no data, or zeros alone
};

// Opens the file once; again only when it begins with silence. The last two facts are told for a sample in
// the right format alone.
SampleReading readSample(const std::filesystem::path& file);

// What is wrong with the header: "44100 Hz, stereo, LIST chunk".
BilingualText faultsOf(const SampleReading& sample);

} // namespace tavrel
