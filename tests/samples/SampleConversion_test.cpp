// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/WavFile.h"
#include "samples/SampleConversion.h"
#include "samples/SampleFormat.h"
#include "samples/Waveform.h"
#include "support/Files.h"
#include "support/SoundFiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <numeric>

using namespace tavrel;

namespace {

class SampleConversion : public testing::Test
{
protected:
    std::filesystem::path write(const std::string& bytes, const char* name = "sound.wav") const
    {
        writeBytes(folder / name, bytes);
        return folder / name;
    }
    std::string converted(const std::string& bytes) const
    {
        const Result<ConvertedSample> result = convertSample(write(bytes));
        EXPECT_TRUE(result) << (result ? "" : result.failure().text.english);
        return result ? result->bytes : std::string();
    }
    // A sine wave of 44100 Hz, without the ends, which ring.
    std::vector<double> convertedSine(double frequency) const
    {
        const auto sine = [frequency](double time) {
            return 0.5 * std::sin(2 * std::numbers::pi * frequency * time);
        };
        const std::vector<double> samples =
            samplesOf(converted(floatWav(soundOf(sine, 44100, 1), {.rate = 44100})));
        return {samples.begin() + 3000, samples.end() - 3000};
    }
    // dB of one frequency in a sound, against the sine wave.
    static double levelAt(double frequency, const std::vector<double>& samples)
    {
        std::complex<double> sum;
        double weights = 0;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const auto time = static_cast<double>(i);
            const double weight =
                1 - std::cos(2 * std::numbers::pi * time / static_cast<double>(samples.size()));
            sum += samples[i] * weight * std::polar(1.0, -2 * std::numbers::pi * frequency * time / 22050);
            weights += weight;
        }
        return 20 * std::log10(2 * std::abs(sum) / weights / 0.5);
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(SampleConversion, ARightFileComesBackBitForBit)
{
    const std::string right = wavBytes({});
    EXPECT_EQ(converted(right), right);
    EXPECT_EQ(converted(wavBytes({.listChunk = true})), right) << "only the extra chunks go";

    std::string every = right.substr(0, 44); // each value that 16 bits have, in both channels
    std::string stereo = wavBytes({.channels = 2, .seconds = 0});
    for (int value = -32768; value < 32768; ++value) {
        const std::string sample = {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
        every += sample;
        stereo += sample + sample;
    }
    every = withSizes(every);
    EXPECT_EQ(converted(every), every);
    EXPECT_EQ(converted(withSizes(stereo)), every) << "the mean of two equal channels drops no bits";
}

TEST_F(SampleConversion, AnyKindBecomesTheRightFormat)
{
    const auto tone = [](double time) { return 0.4 * std::sin(3000 * time); };
    for (const SoundKind& kind : soundKinds()) {
        SCOPED_TRACE(kind.name);
        const std::filesystem::path file = folder / kind.name;
        writeSound(file, kind, soundOf(tone, kind.rate, 4));
        const Result<ConvertedSample> result = convertSample(file);
        ASSERT_TRUE(result) << result.failure().text.english;
        EXPECT_FALSE(result->cutOff);
        EXPECT_EQ(result->loweredBy, 0);
        EXPECT_EQ(formatText(result->from).english, kind.facts);
        const std::filesystem::path sample = write(result->bytes, "converted.wav");
        EXPECT_TRUE(CheckSampleFormatDetailed(sample).valid());
        EXPECT_EQ(formatText(SoundFileReader::open(sample)->format()).english.substr(0, 33),
                  "WAV, PCM, 22050 Hz, mono, 16 bits");
        const std::vector<double> samples = samplesOf(result->bytes);
        ASSERT_NEAR(static_cast<double>(samples.size()), result->from.seconds() * 22050, 2);
        double difference = 0;
        for (std::size_t i = 5000; i < 15000; ++i) {
            difference = std::max(difference, std::abs(samples[i] - tone(static_cast<double>(i) / 22050)));
        }
        EXPECT_LT(difference, kind.mostDifference);

        std::filesystem::resize_file(file, std::filesystem::file_size(file) / 4 * 3);
        const Result<ConvertedSample> half = convertSample(file);
        ASSERT_TRUE(half) << half.failure().text.english;
        EXPECT_TRUE(half->cutOff);
        EXPECT_GT(half->bytes.size(), result->bytes.size() / 3);
    }
}

TEST_F(SampleConversion, KeepsWhatCanBeHeardAndNothingElse)
{
    for (const double frequency : {40.0, 1000.0, 5000.0, 9000.0, 10000.0}) {
        EXPECT_NEAR(levelAt(frequency, convertedSine(frequency)), 0, 0.1) << frequency << " Hz";
    }
    for (const double frequency : {11100.0, 12000.0, 15000.0, 20000.0}) {
        const std::vector<double> left = convertedSine(frequency);
        EXPECT_LT(levelAt(22050 - frequency, left), -90) << frequency << " Hz folds back";
        // Nothing is left but the dither, a sixth of a step's square, and the rounding's twelfth.
        const double energy = std::inner_product(left.begin(), left.end(), left.begin(), 0.0);
        const double squareOfStep = 1 / std::pow(32768, 2);
        EXPECT_NEAR(energy / static_cast<double>(left.size()) / squareOfStep, 0.25, 0.02) << frequency;
    }
}

TEST_F(SampleConversion, ChannelsAreAveragedAndAPeakIsLoweredAndTold)
{
    const std::vector<float> twoFrames = {0.5F, 0.25F, -1.0F, 0.0F};
    const std::vector<double> mean = samplesOf(converted(floatWav(twoFrames, {.channels = 2})));
    ASSERT_EQ(mean.size(), 2U);
    EXPECT_NEAR(mean[0], 0.375, 1e-9);
    EXPECT_NEAR(mean[1], -0.5, 1e-9);

    const Result<ConvertedSample> loud =
        convertSample(write(floatWav({0.0F, 2.0F, -1.5F, NAN, INFINITY}, {})));
    ASSERT_TRUE(loud);
    EXPECT_NEAR(loud->loweredBy, 6.02, 0.01);
    EXPECT_EQ(loud->notes(), BilingualText("6.0 dB quieter, so that its peak is not cut",
                                           "6,0 dB moins fort, pour que sa crête ne soit pas coupée"));
    const std::vector<double> lowered = samplesOf(loud->bytes);
    EXPECT_NEAR(lowered[1], 1, 2e-4);
    EXPECT_NEAR(lowered[2], -0.75, 2e-4);
    EXPECT_NEAR(lowered[3], 0, 2e-4);
    EXPECT_NEAR(samplesOf(converted(floatWav({3e38F, 0.5F}, {})))[0], 1, 2e-4);
}

// Every cut leaves a sound or a message: never a crash, and never silence instead of sound.
TEST_F(SampleConversion, ACutOffFileKeepsWhatIsThere)
{
    for (const WavTone& tone : {WavTone{.listChunk = true}, WavTone{.channels = 2, .sampleRate = 44100}}) {
        const std::string whole = wavBytes(tone);
        const std::size_t header = tone.listChunk ? 44 + 26 : 44;
        for (std::size_t size = 0; size < header + 6; ++size) {
            const Result<ConvertedSample> result = convertSample(write(whole.substr(0, size)));
            EXPECT_EQ(static_cast<bool>(result), size >= header + 2U * tone.channels) << size;
            EXPECT_TRUE(!result || result->cutOff);
            EXPECT_TRUE(result || result.failure().text.english.find("sound.wav") != std::string::npos);
        }
    }
    const std::string whole = wavBytes({.listChunk = true});
    const Result<ConvertedSample> half = convertSample(write(whole.substr(0, whole.size() / 2)));
    ASSERT_TRUE(half);
    EXPECT_EQ(half->bytes.substr(44), whole.substr(70, half->bytes.size() - 44));
    EXPECT_GT(half->bytes.size(), whole.size() / 2 - 40);
    EXPECT_EQ(half->notes().english, "the file is cut off, what is there was kept");
    EXPECT_EQ(readWaveform(folder / "sound.wav")->facts().english,
              "WAV, PCM, 22050 Hz, mono, 16 bits, 0.07 s; peak -4.5 dB; chunks: fmt LIST data; cut off");
}

TEST_F(SampleConversion, DamagedHeadersGiveAMessage)
{
    const std::string right = wavBytes({});
    const auto with = [&right](std::size_t offset, const std::string& bytes) {
        std::string changed = right;
        return changed.replace(offset, bytes.size(), bytes);
    };
    const std::string four(4, '\xFF');
    const std::string zeros(4, '\0');
    struct Case
    {
        const char* what;
        std::string bytes;
        bool isRead;
    };
    const Case cases[] = {{"RIFF of 4 GB", with(4, four), true},
                          {"fmt of 4 GB", with(16, four), false},
                          {"data of 4 GB", with(40, four), true},
                          {"no channels", with(22, zeros.substr(2)), false},
                          {"65535 channels", with(22, four.substr(2)), false},
                          {"rate 0", with(24, zeros), false},
                          {"rate of 4 GHz", with(24, four), false},
                          {"rate 1", with(24, std::string("\1\0\0\0", 4)), false},
                          {"1 bit", with(34, std::string("\1\0", 2)), false},
                          {"unknown encoding", with(20, std::string("\x99\x99", 2)), false},
                          {"RF64 without its sizes", with(0, "RF64"), true},
                          {"a text", "Sounds of the level", false},
                          {"only blanks", std::string(5000, ' '), false},
                          {"nothing", "", false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Result<ConvertedSample> result = convertSample(write(c.bytes));
        EXPECT_EQ(static_cast<bool>(result), c.isRead);
        if (!result) {
            EXPECT_NE(result.failure().text.french.find("sound.wav]\nL"), std::string::npos)
                << result.failure().text.french;
        }
    }
    std::filesystem::create_directory(folder / "folder.wav");
    EXPECT_FALSE(convertSample(folder / "folder.wav"));
    EXPECT_FALSE(convertSample(folder / "missing.wav"));
}

TEST_F(SampleConversion, ASoundOfHoursIsRefusedBeforeItFillsTheMemory)
{
    const std::filesystem::path file = write(wavBytes({.channels = 2, .seconds = 0}));
    std::string bytes = readBytes(file);
    bytes.replace(40, 4, std::string("\xF0\xFF\xFF\x7F", 4));
    writeBytes(file, bytes);
    std::filesystem::resize_file(file, 0x80000000U); // takes no room on the disk
    const Result<ConvertedSample> result = convertSample(file);
    ASSERT_FALSE(result);
    EXPECT_NE(result.failure().text.english.find("longer than 30 minutes"), std::string::npos);
}

TEST_F(SampleConversion, TheWaveformShowsPeaksAndSilence)
{
    const auto burst = [](double time) { return time > 0.5 && time < 1.5 ? 0.25 : 0; };
    const Result<Waveform> waveform =
        readWaveform(write(floatWav(soundOf(burst, 44100, 2), {.rate = 44100})));
    ASSERT_TRUE(waveform);
    EXPECT_NEAR(waveform->seconds, 2, 1e-6);
    EXPECT_NEAR(waveform->silenceAtStart, 0.5, 2e-3);
    EXPECT_NEAR(waveform->silenceAtEnd, 0.5, 2e-3);
    EXPECT_EQ(waveform->peak, 0.25F);
    const auto& columns = waveform->columns;
    ASSERT_GT(columns.size(), 1000U);
    EXPECT_EQ(columns[columns.size() / 8].highest, 0);
    EXPECT_EQ(columns[columns.size() / 2].highest, 0.25F);
    EXPECT_EQ(readWaveform(write(wavBytes({.seconds = 0})))->columns.size(), 0U);
    const Result<Waveform> silent = readWaveform(write(floatWav(std::vector<float>(22050), {})));
    EXPECT_EQ(silent->silenceAtStart, 1);
    EXPECT_NE(silent->facts().english.find("; silent;"), std::string::npos);
}
