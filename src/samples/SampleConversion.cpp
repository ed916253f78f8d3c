// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleConversion.h"

#include "base/FailureTexts.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <span>
#include <vector>

namespace tavrel {

namespace {

constexpr std::uint32_t sampleRate = 22050;
constexpr float fullScale = 32768; // what 1 is in steps of 16 bits
// No sample of a game is longer, and what is converted is held in memory.
constexpr std::size_t mostMinutes = 30;
constexpr std::size_t mostSamples = mostMinutes * 60 * sampleRate;

Failure tooLong(const std::filesystem::path& file)
{
    const std::string minutes = std::to_string(mostMinutes);
    return wrongContent(file, {"The sound is longer than " + minutes + " minutes.",
                               "Le son dure plus de " + minutes + " minutes."});
}

constexpr double highestLevel = 1e6; // 120 dB more than any sound has

void appendMono(std::span<const float> interleaved, std::size_t channels, std::vector<float>& mono)
{
    for (std::size_t at = 0; at + channels <= interleaved.size(); at += channels) {
        double sum = 0;
        for (std::size_t channel = 0; channel < channels; ++channel) {
            sum += interleaved[at + channel];
        }
        const double mean = sum / static_cast<double>(channels);
        // A file of floats may hold any number.
        mono.push_back(std::isfinite(mean) ? static_cast<float>(std::clamp(mean, -highestLevel, highestLevel))
                                           : 0);
    }
}

// The whole sound as one channel of the right rate.
Result<std::vector<float>> readMono(SoundFileReader& reader, const std::filesystem::path& file)
{
    constexpr std::size_t blockSize = 1U << 16U;
    const std::size_t channels = reader.format().channels;
    const bool changesRate = reader.format().rate != sampleRate;
    std::optional<RateConverter> converter;
    if (changesRate) {
        converter.emplace(reader.format().rate, sampleRate);
    }
    std::vector<float> block(blockSize);
    std::vector<float> mono;
    std::vector<float> result;
    while (const std::size_t frames = reader.read(block)) {
        const std::span<const float> read(block.data(), frames * channels);
        if (changesRate) {
            mono.clear();
            appendMono(read, channels, mono);
            converter->convert(mono, result);
        } else {
            appendMono(read, channels, result);
        }
        if (result.size() > mostSamples) {
            return tooLong(file);
        }
    }
    if (Problem problem = reader.problem()) {
        return *problem;
    }
    if (changesRate) {
        converter->finish(result);
    }
    return result;
}

// In steps of 16 bits. What is only a step too loud is cut, which nobody hears.
double lowerPeak(std::vector<float>& samples)
{
    constexpr float loudest = fullScale + 1;
    float peak = 0;
    for (float& sample : samples) {
        sample *= fullScale;
        peak = std::max(peak, std::abs(sample));
    }
    if (peak <= loudest) {
        return 0;
    }
    const float gain = (fullScale - 2) / peak; // room for the dither
    for (float& sample : samples) {
        sample *= gain;
    }
    return -20 * std::log10(gain);
}

bool isWhole(float sample)
{
    return sample == std::nearbyint(sample);
}

void appendNumber(std::string& bytes, std::uint32_t value, int size)
{
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
    }
}

std::string plainHeader(std::size_t dataSize)
{
    constexpr std::uint32_t pcm = 1;
    constexpr std::uint32_t bytesOfSample = 2;
    const auto size = static_cast<std::uint32_t>(dataSize);
    std::string header = "RIFF";
    appendNumber(header, size + 36, 4);
    header += "WAVEfmt ";
    appendNumber(header, 16, 4);
    appendNumber(header, pcm, 2);
    appendNumber(header, 1, 2);
    appendNumber(header, sampleRate, 4);
    appendNumber(header, sampleRate * bytesOfSample, 4);
    appendNumber(header, bytesOfSample, 2);
    appendNumber(header, 8 * bytesOfSample, 2);
    header += "data";
    appendNumber(header, size, 4);
    return header;
}

// Triangular noise of two steps' width, from a generator of known numbers.
class Dither
{
public:
    // The difference of two even noises: the halves of one number.
    float next()
    {
        constexpr float range = 4294967296.0F;
        const std::uint64_t number = m_numbers();
        const auto first = static_cast<float>(static_cast<std::uint32_t>(number));
        const auto second = static_cast<float>(static_cast<std::uint32_t>(number >> 32));
        return (first - second) / range;
    }

private:
    std::mt19937_64 m_numbers; // NOLINT(cert-msc32-c,cert-msc51-cpp): a file gives the same bytes each time
};

std::string wavFileOf(const std::vector<float>& samples)
{
    std::string bytes = plainHeader(2 * samples.size());
    std::size_t at = bytes.size();
    bytes.resize(at + 2 * samples.size());
    const bool dropsBits = !std::ranges::all_of(samples, isWhole);
    Dither dither;
    for (const float sample : samples) {
        const float exact = dropsBits ? sample + dither.next() : sample;
        const long rounded = std::lrint(std::clamp(exact, -fullScale, fullScale - 1));
        bytes[at++] = static_cast<char>(rounded & 0xFF);
        bytes[at++] = static_cast<char>(rounded >> 8 & 0xFF);
    }
    return bytes;
}

std::string decimals(double value, int count)
{
    std::string text(32, '\0');
    text.resize(static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.*f", count, value)));
    return text;
}

void appendNote(BilingualText& notes, const BilingualText& note)
{
    if (!notes.empty()) {
        notes += BilingualText("; ", " ; ");
    }
    notes += note;
}

} // namespace

Result<ConvertedSample> convertSample(const std::filesystem::path& file)
{
    Result<SoundFileReader> reader = SoundFileReader::open(file);
    if (!reader) {
        return reader.failure();
    }
    if (reader->format().seconds() > mostMinutes * 60.0) {
        return tooLong(file);
    }
    Result<std::vector<float>> samples = readMono(*reader, file);
    if (!samples) {
        return samples.failure();
    }
    if (samples->empty()) {
        return wrongContent(file, {"The file contains no sound.", "Le fichier ne contient pas de son."});
    }
    ConvertedSample converted;
    converted.from = reader->format();
    converted.cutOff = reader->cutOff();
    converted.loweredBy = lowerPeak(*samples);
    converted.bytes = wavFileOf(*samples);
    return converted;
}

BilingualText ConvertedSample::notes() const
{
    BilingualText notes;
    if (cutOff) {
        appendNote(notes, {"the file is cut off, what is there was kept",
                           "le fichier est tronqué, ce qu'il contient a été conservé"});
    }
    if (loweredBy > 0) {
        appendNote(notes, decimalText(std::max(loweredBy, 0.1), 1) +
                              BilingualText(" dB quieter, so that its peak is not cut",
                                            " dB moins fort, pour que sa crête ne soit pas coupée"));
    }
    return notes;
}

BilingualText decimalText(double value, int decimalCount)
{
    const std::string english = decimals(value, decimalCount);
    std::string french = english;
    std::ranges::replace(french, '.', ',');
    return {english, french};
}

BilingualText formatText(const SoundFormat& format)
{
    const std::string rate = std::to_string(format.rate);
    const std::string channels = std::to_string(format.channels);
    const std::string bits = std::to_string(format.bits);
    BilingualText text = BilingualText::same(format.kind + ", " + format.encoding + ", " + rate + " Hz, ");
    text += format.channels == 1   ? BilingualText::same("mono")
            : format.channels == 2 ? BilingualText("stereo", "stéréo")
                                   : BilingualText(channels + " channels", channels + " canaux");
    if (format.bits != 0) {
        text += BilingualText(", " + bits + " bits", ", " + bits + " bits");
    }
    return text + BilingualText::same(", ") + decimalText(format.seconds(), 2) + BilingualText::same(" s");
}

} // namespace tavrel
