// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "samples/SoundFile.h"

#include <atomic>
#include <filesystem>
#include <vector>

namespace tavrel {

// What a sound looks like, and the facts that only reading all of it tells.
struct Waveform
{
    struct Column
    {
        float lowest = 0;
        float highest = 0;
    };

    SoundFormat format;
    std::vector<Column> columns; // each stands for as many frames as the others; the last may be short
    double seconds = 0;
    double silenceAtStart = 0; // seconds
    double silenceAtEnd = 0;
    float peak = 0; // full scale is 1

    // "WAV, PCM, 44100 Hz, stereo, 16 bits, 1.25 s; peak -0.3 dB; chunks: fmt LIST data"
    BilingualText facts() const;
};

// Reads the file to its end, or until `stop` is set: what was read by then comes back. Takes little memory.
Result<Waveform> readWaveform(const std::filesystem::path& file, const std::atomic<bool>& stop);
Result<Waveform> readWaveform(const std::filesystem::path& file);

} // namespace tavrel
