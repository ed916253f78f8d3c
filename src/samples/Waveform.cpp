// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Waveform.h"

#include "samples/SampleConversion.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace tavrel {

namespace {

using Column = Waveform::Column;

constexpr std::size_t mostColumns = 2048; // of a small picture
constexpr float silence = 0.001F;         // 60 dB below full scale

float loudnessOf(const Column& column)
{
    return std::max(-column.lowest, column.highest);
}

void include(Column& column, std::span<const float> samples)
{
    float lowest = column.lowest;
    float highest = column.highest;
    for (const float sample : samples) {
        lowest = sample < lowest ? sample : lowest;
        highest = sample > highest ? sample : highest;
    }
    column = {lowest, highest};
}

// Columns of a sound of unknown length: when there are too many, each two become one.
class Columns
{
public:
    explicit Columns(std::size_t channels) : m_channels(channels) {}

    void add(std::span<const float> interleaved)
    {
        while (!interleaved.empty()) {
            if (m_room == 0) {
                startColumn();
            }
            const std::size_t count = std::min(m_room * m_channels, interleaved.size());
            include(m_columns.back(), interleaved.first(count));
            m_room -= count / m_channels;
            interleaved = interleaved.subspan(count);
        }
    }
    std::size_t framesOfColumn() const { return m_frames; }
    std::vector<Column> take() { return std::move(m_columns); }

private:
    void startColumn()
    {
        if (m_columns.size() == mostColumns) {
            for (std::size_t i = 0; i < mostColumns / 2; ++i) {
                const Column& left = m_columns[2 * i];
                const Column& right = m_columns[2 * i + 1];
                m_columns[i] = {std::min(left.lowest, right.lowest), std::max(left.highest, right.highest)};
            }
            m_columns.resize(mostColumns / 2);
            m_frames *= 2;
        }
        m_columns.emplace_back();
        m_room = m_frames;
    }

    std::size_t m_channels;
    std::size_t m_frames = 32;
    std::size_t m_room = 0; // frames that the last column still takes
    std::vector<Column> m_columns;
};

void findSilence(Waveform& waveform, double secondsOfColumn)
{
    const auto isLoud = [](const Column& column) { return loudnessOf(column) > silence; };
    const auto first = std::ranges::find_if(waveform.columns, isLoud);
    const auto last = std::find_if(waveform.columns.rbegin(), waveform.columns.rend(), isLoud);
    const auto seconds = [&](auto columns) { return static_cast<double>(columns) * secondsOfColumn; };
    waveform.silenceAtStart = std::min(seconds(first - waveform.columns.begin()), waveform.seconds);
    const auto untilEnd = waveform.columns.rend() - last; // columns up to the last loud one
    waveform.silenceAtEnd = std::max(waveform.seconds - seconds(untilEnd), 0.0);
}

} // namespace

Result<Waveform> readWaveform(const std::filesystem::path& file, const std::atomic<bool>& stop)
{
    Result<SoundFileReader> reader = SoundFileReader::open(file);
    if (!reader) {
        return reader.failure();
    }
    constexpr std::size_t blockSize = 1U << 14U;
    const std::size_t channels = reader->format().channels;
    Columns columns(channels);
    std::vector<float> block(blockSize);
    std::uint64_t frames = 0;
    while (const std::size_t read = stop ? 0 : reader->read(block)) {
        columns.add(std::span<const float>(block.data(), read * channels));
        frames += read;
    }
    if (Problem problem = reader->problem()) {
        return *problem;
    }
    const double rate = reader->format().rate;
    Waveform waveform;
    waveform.format = reader->format();
    waveform.format.cutOff = !stop && reader->cutOff();
    waveform.seconds = static_cast<double>(frames) / rate;
    const double secondsOfColumn = static_cast<double>(columns.framesOfColumn()) / rate;
    waveform.columns = columns.take();
    for (const Column& column : waveform.columns) {
        waveform.peak = std::max(waveform.peak, loudnessOf(column));
    }
    findSilence(waveform, secondsOfColumn);
    return waveform;
}

Result<Waveform> readWaveform(const std::filesystem::path& file)
{
    return readWaveform(file, std::atomic<bool>(false));
}

BilingualText Waveform::facts() const
{
    BilingualText text = formatText(format);
    if (peak > 0) {
        text += BilingualText("; peak ", " ; crête ") + decimalText(20 * std::log10(peak), 1) +
                BilingualText::same(" dB");
    } else {
        text += BilingualText("; silent", " ; silencieux");
    }
    if (!format.chunks.empty()) {
        std::string list;
        for (const std::string& chunk : format.chunks) {
            list += " " + chunk.substr(0, chunk.find_last_not_of(' ') + 1);
        }
        text += BilingualText("; chunks:", " ; blocs :") + list;
    }
    if (format.cutOff) {
        text += BilingualText("; cut off", " ; tronqué");
    }
    return text;
}

} // namespace tavrel
