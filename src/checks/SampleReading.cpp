// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/SampleReading.h"

#include "base/CodePage.h"
#include "base/System.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>

namespace tavrel {

namespace {

constexpr std::size_t lookedAt = 4096;
constexpr std::size_t plainHeaderSize = 44;
constexpr std::size_t chunkHeaderSize = 8;
constexpr std::size_t firstChunk = 12;

std::uint32_t numberAt(std::string_view bytes, std::size_t position, std::size_t size)
{
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;) {
        value = value << 8U | static_cast<unsigned char>(bytes[position + i]);
    }
    return value;
}

void readChunks(std::string_view start, SampleReading& sample)
{
    std::size_t position = firstChunk;
    while (position + chunkHeaderSize <= start.size()) {
        const std::string_view name = start.substr(position, 4);
        const std::uint32_t size = numberAt(start, position + 4, 4);
        const std::size_t content = position + chunkHeaderSize;
        sample.hasData = name == "data";
        if (sample.hasData || name.find('\0') != std::string_view::npos) {
            return;
        }
        constexpr std::size_t formatSize = 16;
        if (name != "fmt ") {
            sample.chunksBeforeData.emplace_back(name);
        } else if (content + formatSize <= start.size()) {
            sample.formatTag = numberAt(start, content, 2);
            sample.channels = numberAt(start, content + 2, 2);
            sample.rate = numberAt(start, content + 4, 4);
            sample.bits = numberAt(start, content + 14, 2);
        }
        position = content + size + size % 2;
    }
}

bool isZero(char byte)
{
    return byte == 0;
}

// Of a sample in the right format, whose data stand behind a plain header.
bool isSilent(const std::filesystem::path& file, std::string_view start, std::uint64_t dataSize)
{
    const auto inStart = start.substr(plainHeaderSize, dataSize);
    if (!std::ranges::all_of(inStart, isZero)) {
        return false;
    }
    std::ifstream stream(file, std::ios::binary);
    stream.seekg(plainHeaderSize);
    std::array<char, lookedAt> piece{};
    for (std::uint64_t left = dataSize; left > 0 && stream;) {
        stream.read(piece.data(), static_cast<std::streamsize>(std::min<std::uint64_t>(left, piece.size())));
        const auto count = static_cast<std::size_t>(stream.gcount());
        if (!std::ranges::all_of(std::string_view(piece.data(), count), isZero)) {
            return false;
        }
        left -= count;
    }
    return true;
}

} // namespace

SampleReading readSample(const std::filesystem::path& file)
{
    std::array<char, lookedAt> buffer{};
    SampleReading sample;
    if (!system::readStart(file, buffer)) {
        return sample;
    }
    const std::string_view start(buffer.data(), buffer.size());
    sample.verdict = verdictOf(buffer);
    sample.isWave = start.starts_with("RIFF") && start.substr(8, 4) == "WAVE";
    readChunks(start, sample);
    if (!sample.verdict.valid()) {
        return sample;
    }
    constexpr std::size_t bitsPlace = 34;
    sample.bits = numberAt(start, bitsPlace, 2);
    std::error_code error;
    const std::uintmax_t fileSize = std::filesystem::file_size(file, error);
    const std::uint64_t present = error || fileSize < plainHeaderSize ? 0 : fileSize - plainHeaderSize;
    const std::uint64_t told = numberAt(start, plainHeaderSize - 4, 4);
    sample.hasChunksBehindData = present >= told + told % 2 + chunkHeaderSize;
    sample.isSilent = isSilent(file, start, std::min(told, present));
    return sample;
}

BilingualText faultsOf(const SampleReading& sample)
{
    if (!sample.isWave || sample.rate == 0 || (!sample.hasData && sample.chunksBeforeData.empty())) {
        return {"no whole WAV header", "pas d'en-tête WAV complet"};
    }
    BilingualText text;
    const auto add = [&text](const BilingualText& fault) {
        text += text.empty() ? "" : ", ";
        text += fault;
    };
    if (!sample.verdict.rate22050) {
        add(BilingualText::same(std::to_string(sample.rate) + " Hz"));
    }
    if (!sample.verdict.mono) {
        const std::string count = std::to_string(sample.channels);
        add(sample.channels == 2 ? BilingualText("stereo", "stéréo")
                                 : BilingualText(count + " channels", count + " canaux"));
    }
    if (!sample.verdict.pcm) {
        const std::string tag = std::to_string(sample.formatTag);
        add({"encoding " + tag + " instead of PCM", "codage " + tag + " au lieu de PCM"});
    }
    for (const std::string& chunk : sample.chunksBeforeData) {
        const std::string name = utf8FromCodePage(chunk);
        add({name + " chunk", "bloc " + name});
    }
    if (text.empty()) {
        add({"a header of another length", "un en-tête d'une autre longueur"});
    }
    return text;
}

} // namespace tavrel
