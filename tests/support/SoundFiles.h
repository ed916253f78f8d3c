// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tavrel {

// One channel of a sound of so many seconds.
std::vector<float> soundOf(const std::function<double(double time)>& value, std::uint32_t rate,
                           double seconds);

struct FloatFormat
{
    std::uint32_t rate = 22050;
    std::uint16_t channels = 1;
};

// A .wav file of 32-bit floats.
std::string floatWav(std::span<const float> interleaved, const FloatFormat& format);
inline std::string floatWav(std::initializer_list<float> interleaved, const FloatFormat& format)
{
    return floatWav(std::span(interleaved.begin(), interleaved.size()), format);
}

// The samples of a 16-bit .wav file with a header of 44 bytes, full scale at 1.
std::vector<double> samplesOf(const std::string& wavBytes);
// The sizes in a header of 44 bytes put right.
std::string withSizes(std::string wavBytes);

// A kind of file that can be read, as the library of the tests writes it.
struct SoundKind
{
    const char* name;
    int format; // of libsndfile
    std::uint32_t rate;
    int channels;
    double mostDifference; // that its encoding may make
    const char* facts;
};
std::span<const SoundKind> soundKinds();
// The same in all channels.
void writeSound(const std::filesystem::path& file, const SoundKind& kind, std::span<const float> mono);

} // namespace tavrel
