// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SoundFiles.h"

#include "support/Files.h"

#include <array>
#include <cstring>
#include <sndfile.h>
#include <stdexcept>

namespace tavrel {

namespace {

void appendNumber(std::string& bytes, std::size_t value, int size)
{
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
    }
}

void putNumber(std::string& bytes, std::size_t offset, std::size_t value)
{
    std::string number;
    appendNumber(number, value, 4);
    bytes.replace(offset, 4, number);
}

} // namespace

std::vector<float> soundOf(const std::function<double(double time)>& value, std::uint32_t rate,
                           double seconds)
{
    std::vector<float> samples;
    for (std::size_t i = 0; i < static_cast<std::size_t>(rate * seconds); ++i) {
        samples.push_back(static_cast<float>(value(static_cast<double>(i) / rate)));
    }
    return samples;
}

std::string floatWav(std::span<const float> interleaved, const FloatFormat& format)
{
    constexpr std::size_t floatTag = 3;
    std::string bytes = "RIFF    WAVEfmt ";
    appendNumber(bytes, 16, 4);
    appendNumber(bytes, floatTag, 2);
    appendNumber(bytes, format.channels, 2);
    appendNumber(bytes, format.rate, 4);
    appendNumber(bytes, std::size_t{4} * format.channels * format.rate, 4);
    appendNumber(bytes, std::size_t{4} * format.channels, 2);
    appendNumber(bytes, 32, 2);
    bytes += "data    ";
    bytes.append(reinterpret_cast<const char*>(interleaved.data()), interleaved.size_bytes());
    return withSizes(bytes);
}

std::vector<double> samplesOf(const std::string& wavBytes)
{
    std::vector<double> samples;
    for (std::size_t at = 44; at + 1 < wavBytes.size(); at += 2) {
        const int low = static_cast<unsigned char>(wavBytes[at]);
        samples.push_back((static_cast<signed char>(wavBytes[at + 1]) * 256 + low) / 32768.0);
    }
    return samples;
}

std::string withSizes(std::string wavBytes)
{
    putNumber(wavBytes, 4, wavBytes.size() - 8);
    putNumber(wavBytes, 40, wavBytes.size() - 44);
    return wavBytes;
}

std::span<const SoundKind> soundKinds()
{
    static constexpr std::array kinds = {
        SoundKind{"pcm8.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 22050, 1, 0.01,
                  "WAV, PCM, 22050 Hz, mono, 8 bits, 4.00 s"},
        SoundKind{"pcm24.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_24, 48000, 2, 1e-4,
                  "WAV, PCM, 48000 Hz, stereo, 24 bits, 4.00 s"},
        SoundKind{"pcm32.wav", SF_FORMAT_WAVEX | SF_FORMAT_PCM_32, 96000, 6, 1e-4,
                  "WAV, PCM, 96000 Hz, 6 channels, 32 bits, 4.00 s"},
        SoundKind{"double.wav", SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 11025, 1, 1e-4,
                  "WAV, float, 11025 Hz, mono, 64 bits, 4.00 s"},
        SoundKind{"big.wav", SF_FORMAT_RF64 | SF_FORMAT_PCM_16, 44100, 1, 1e-4,
                  "RF64, PCM, 44100 Hz, mono, 16 bits, 4.00 s"},
        SoundKind{"ima.wav", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM, 22050, 1, 0.05,
                  "WAV, IMA ADPCM, 22050 Hz, mono, 4 bits, 4.01 s"},
        SoundKind{"ms.wav", SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM, 44100, 2, 0.05,
                  "WAV, MS ADPCM, 44100 Hz, stereo, 4 bits, 4.02 s"},
        SoundKind{"ulaw.wav", SF_FORMAT_WAV | SF_FORMAT_ULAW, 22050, 1, 0.02,
                  "WAV, u-law, 22050 Hz, mono, 8 bits, 4.00 s"},
        SoundKind{"sound.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16, 32000, 2, 1e-4,
                  "AIFF, PCM, 32000 Hz, stereo, 16 bits, 4.00 s"},
        SoundKind{"sound.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 44100, 2, 1e-4,
                  "FLAC, PCM, 44100 Hz, stereo, 24 bits, 4.00 s"},
        SoundKind{"sound.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS, 44100, 2, 0.05,
                  "Ogg, Vorbis, 44100 Hz, stereo, 4.00 s"},
#ifdef _WIN32
    };
#else // where the tests' library can write it; reading is the program's own
        SoundKind{"sound.mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 44100, 2, 0.05,
                  "MP3, MPEG, 44100 Hz, stereo, 4.00 s"}};
#endif
    return kinds;
}

void writeSound(const std::filesystem::path& file, const SoundKind& kind, std::span<const float> mono)
{
    SF_INFO info = {};
    info.format = kind.format;
    info.samplerate = static_cast<int>(kind.rate);
    info.channels = kind.channels;
    // Through a name without accents: the library opens files by the system's own encoding of bytes.
    const std::filesystem::path plain =
        std::filesystem::path("written-by-a-test").concat(file.extension().native());
    SNDFILE* const written = sf_open(plain.string().c_str(), SFM_WRITE, &info);
    if (written == nullptr) {
        throw std::runtime_error(sf_strerror(nullptr));
    }
    std::vector<float> frame(static_cast<std::size_t>(kind.channels));
    for (const float sample : mono) {
        frame.assign(frame.size(), sample);
        sf_writef_float(written, frame.data(), 1);
    }
    sf_close(written);
    writeBytes(file, readBytes(plain));
    std::filesystem::remove(plain);
}

} // namespace tavrel
