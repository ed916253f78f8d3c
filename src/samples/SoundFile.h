// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

// The only door to the sound libraries: reading sound files of any kind, and changing a sample rate.
namespace tavrel {

// What the header of a sound file says.
struct SoundFormat
{
    std::string kind;     // "WAV", "AIFF", "FLAC", "Ogg", "MP3"
    std::string encoding; // "PCM", "float", "Vorbis" and so on
    std::uint32_t rate = 0;
    std::uint32_t channels = 0;
    std::uint32_t bits = 0;          // of a sample; 0 where the encoding has no fixed number
    std::uint64_t frames = 0;        // as the file says, or as far as it goes where it does not say
    std::vector<std::string> chunks; // of a WAV or AIFF file, in their order
    bool cutOff = false;             // the file ends before its sound does

    double seconds() const { return rate == 0 ? 0 : static_cast<double>(frames) / rate; }
};

// The names of the files that can be read, for a file dialog: "*.wav" and so on.
std::vector<std::string> soundFilePatterns();

// Reads a sound file from its start to its end. Takes little memory, however long the sound is.
class SoundFileReader
{
public:
    // Any file may be given: what is no sound, or a damaged one, fails with the reason.
    static Result<SoundFileReader> open(const std::filesystem::path& file);
    SoundFileReader(SoundFileReader&&) noexcept;
    SoundFileReader(const SoundFileReader&) = delete;
    SoundFileReader& operator=(const SoundFileReader&) = delete;
    SoundFileReader& operator=(SoundFileReader&&) = delete;
    ~SoundFileReader();

    const SoundFormat& format() const;
    // Frame after frame, full scale at 1. Fills whole frames and tells how many; 0 at the end of the sound.
    // Where the sound is damaged, it ends.
    std::size_t read(std::span<float> interleaved);
    // After the end: the sound ended because the file could not be read any further.
    [[nodiscard]] Problem problem() const;
    // After the end: the file held less than it said.
    bool cutOff() const;

private:
    class Decoder;
    class SndfileDecoder;
    class Mpg123Decoder;
    struct Source;

    SoundFileReader();
    [[nodiscard]] Problem openDecoder();

    std::unique_ptr<Source> m_source;
    std::unique_ptr<Decoder> m_decoder;
};

// One channel at another sample rate, in the best quality there is.
class RateConverter
{
public:
    RateConverter(double fromRate, double toRate);
    RateConverter(const RateConverter&) = delete;
    RateConverter& operator=(const RateConverter&) = delete;
    ~RateConverter();

    // Appends what comes out of these samples.
    void convert(std::span<const float> samples, std::vector<float>& output);
    // Appends the rest.
    void finish(std::vector<float>& output);

private:
    void run(std::span<const float> samples, bool isEnd, std::vector<float>& output);

    void* m_converter = nullptr;
    double m_ratio;
};

} // namespace tavrel
