// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace tavrel {

// A short decaying tone as the bytes of a .wav file. The defaults are the layout that the level editor
// accepts.
struct WavTone
{
    std::uint16_t formatTag = 1; // PCM
    std::uint16_t channels = 1;
    std::uint32_t sampleRate = 22050;
    std::uint16_t bitsPerSample = 16; // 8 or 16
    bool listChunk = false;           // extra header information before the data
    double frequency = 440;           // Hz
    double seconds = 0.15;
};

std::string wavBytes(const WavTone& tone);

} // namespace tavrel
