// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/WavFile.h"

#include <cmath>
#include <numbers>

namespace tavrel {

namespace {

void appendNumber(std::string& bytes, std::uint32_t value, int size)
{
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>((value >> (8 * i)) & 0xFFU);
    }
}

void appendChunk(std::string& bytes, const std::string& identifier, const std::string& content)
{
    bytes += identifier;
    appendNumber(bytes, static_cast<std::uint32_t>(content.size()), 4);
    bytes += content;
}

std::string soundData(const WavTone& tone)
{
    std::string data;
    const auto frames = static_cast<int>(tone.seconds * tone.sampleRate);
    for (int frame = 0; frame < frames; ++frame) {
        const double time = static_cast<double>(frame) / tone.sampleRate;
        const double level =
            std::sin(2 * std::numbers::pi * tone.frequency * time) * std::exp(-12 * time) * 0.6;
        for (int channel = 0; channel < tone.channels; ++channel) {
            if (tone.bitsPerSample == 8) {
                appendNumber(data, static_cast<std::uint32_t>(std::lround(level * 127) + 128), 1);
            } else {
                appendNumber(data, static_cast<std::uint32_t>(std::lround(level * 32767)), 2);
            }
        }
    }
    return data;
}

} // namespace

std::string wavBytes(const WavTone& tone)
{
    const std::uint32_t frameSize = std::uint32_t{tone.channels} * tone.bitsPerSample / 8U;
    std::string format;
    appendNumber(format, tone.formatTag, 2);
    appendNumber(format, tone.channels, 2);
    appendNumber(format, tone.sampleRate, 4);
    appendNumber(format, tone.sampleRate * frameSize, 4);
    appendNumber(format, frameSize, 2);
    appendNumber(format, tone.bitsPerSample, 2);

    std::string content = "WAVE";
    appendChunk(content, "fmt ", format);
    if (tone.listChunk) {
        appendChunk(content, "LIST", std::string("INFOISFT\x06\0\0\0demo\0\0", 18));
    }
    appendChunk(content, "data", soundData(tone));
    std::string bytes;
    appendChunk(bytes, "RIFF", content);
    return bytes;
}

} // namespace tavrel
