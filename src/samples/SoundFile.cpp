// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SoundFile.h"

#include "base/FailureTexts.h"
#include "base/TextFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <limits>
#include <mpg123.h>
#include <sndfile.h>
#include <soxr.h>
#include <stdexcept>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

// What lies beyond these is no sound of a game but a damaged header.
constexpr std::uint32_t leastRate = 1000;
constexpr std::uint32_t highestRate = 768000;
constexpr std::uint32_t mostChannels = 64;

// Where the frames are of a sound that lies in a part of its file.
struct Range
{
    std::int64_t start = 0;
    std::int64_t size = 0;
};

// A file as the libraries read it: by offset, on every system under its own name.
class Input
{
public:
    explicit Input(const fs::path& file) : m_stream(file, std::ios::binary)
    {
        m_stream.seekg(0, std::ios::end);
        m_range.size = isOpen() ? static_cast<std::int64_t>(m_stream.tellg()) : 0;
    }

    bool isOpen() const { return m_stream.good(); }
    // The disk gave an error, which to the libraries looks like the end of the file.
    bool failed() const { return m_failed; }
    std::int64_t size() const { return m_range.size; }
    // From here on the file is this part of it.
    void narrowTo(const Range& range)
    {
        m_range = {m_range.start + range.start, range.size};
        m_position = 0;
    }
    std::int64_t tell() const { return m_position; }
    std::int64_t seek(std::int64_t offset, int whence)
    {
        const std::int64_t from = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? m_position : m_range.size;
        m_position = std::clamp(from + offset, std::int64_t{0}, m_range.size);
        return m_position;
    }
    std::int64_t read(char* bytes, std::int64_t count)
    {
        count = std::clamp(count, std::int64_t{0}, m_range.size - m_position);
        m_stream.clear();
        if (m_streamAt != m_range.start + m_position) { // a seek empties the buffer of the stream
            m_stream.seekg(m_range.start + m_position);
            m_failed = m_failed || m_stream.fail();
        }
        m_stream.read(bytes, count);
        m_failed = m_failed || m_stream.bad();
        const std::int64_t done = std::max<std::int64_t>(m_stream.gcount(), 0);
        m_streamAt = m_range.start + m_position + done;
        m_position += done;
        return done;
    }
    // What lies beyond the end of the file is left out.
    std::string bytesAt(std::int64_t position, std::size_t count)
    {
        std::string bytes(count, '\0');
        const std::int64_t before = m_position;
        seek(position, SEEK_SET);
        bytes.resize(static_cast<std::size_t>(read(bytes.data(), static_cast<std::int64_t>(count))));
        m_position = before;
        return bytes;
    }

private:
    std::ifstream m_stream;
    Range m_range;
    std::int64_t m_position = 0;
    std::int64_t m_streamAt = -1; // in the whole file; not known at first
    bool m_failed = false;
};

std::uint32_t numberIn(std::string_view bytes, bool bigEndian)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const std::size_t at = bigEndian ? i : bytes.size() - 1 - i;
        number = number << 8U | static_cast<unsigned char>(bytes[at]);
    }
    return number;
}

// What the chunks of a WAV or AIFF file say besides their sound.
struct ChunkList
{
    std::vector<std::string> names;
    std::uint32_t formatTag = 0;
    std::uint32_t bits = 0;
    Range data;
    bool cutOff = false;
};

std::string printable(std::string name)
{
    std::ranges::replace_if(
        name, [](char c) { return c < ' ' || c > '~'; }, '?');
    return name;
}

ChunkList chunksOf(Input& input, bool bigEndian)
{
    constexpr std::size_t mostChunks = 1000; // of a file that somebody made up
    constexpr std::int64_t headerSize = 8;
    // Programs that write to a pipe cannot know the size.
    constexpr std::int64_t unknownSize = std::numeric_limits<std::uint32_t>::max();
    constexpr std::int64_t mostBytes = std::int64_t{1} << 60;
    std::int64_t sizeOfData = unknownSize;
    ChunkList list;
    for (std::int64_t position = 12; list.names.size() < mostChunks;) {
        const std::string header = input.bytesAt(position, headerSize);
        if (header.size() < headerSize) {
            break;
        }
        const std::string name = header.substr(0, 4);
        std::int64_t size = numberIn(std::string_view(header).substr(4), bigEndian);
        position += headerSize;
        if (name == "ds64") { // the sizes that do not fit in 32 bits
            const std::string sizes = input.bytesAt(position + 8, 8);
            sizeOfData = sizes.size() < 8
                             ? unknownSize
                             : numberIn(std::string_view(sizes).substr(0, 4), false) +
                                   (std::int64_t{numberIn(std::string_view(sizes).substr(4), false)} << 32);
        }
        if (name == "data" && size == unknownSize) {
            size = std::clamp<std::int64_t>(sizeOfData, 0, mostBytes);
        }
        list.names.push_back(printable(name));
        if (name == "fmt ") {
            list.formatTag = numberIn(input.bytesAt(position, 2), bigEndian);
            list.bits = numberIn(input.bytesAt(position + 14, 2), bigEndian);
        }
        if (name == "data" || name == "SSND") {
            const std::int64_t there = std::max<std::int64_t>(input.size() - position, 0);
            list.cutOff = size > there && size != unknownSize;
            list.data = {position, std::min(size, there)};
        }
        position += size + size % 2;
    }
    return list;
}

// The last page of a whole Ogg file says that it is the last.
bool endsWithLastPage(Input& input)
{
    constexpr std::int64_t mostOfAPage = 1 << 16;
    const std::int64_t start = std::max<std::int64_t>(input.size() - mostOfAPage, 0);
    const std::string end = input.bytesAt(start, mostOfAPage);
    constexpr std::size_t flagsAt = 5;
    const std::size_t page = end.rfind("OggS");
    return page == std::string::npos || page + flagsAt >= end.size() || (end[page + flagsAt] & 4) != 0;
}

// Whether an MP3 file says how long it is; the length of others is guessed from their size.
bool saysItsLength(Input& input)
{
    std::int64_t firstFrame = 0;
    const std::string start = input.bytesAt(0, 10);
    if (start.starts_with("ID3") && start.size() == 10) {
        for (const char c : start.substr(6)) { // seven bits in each byte
            firstFrame = firstFrame << 7 | (c & 0x7F);
        }
        firstFrame += 10;
    }
    constexpr std::size_t farEnough = 512;
    const std::string frame = input.bytesAt(firstFrame, farEnough);
    return frame.find("Xing") != std::string::npos || frame.find("Info") != std::string::npos;
}

BilingualText noSound()
{
    return {"The file is not a sound that can be read. WAV, AIFF, FLAC, Ogg and MP3 files can be read.",
            "Le fichier n'est pas un son qui puisse être lu. Les fichiers WAV, AIFF, FLAC, Ogg et MP3 "
            "peuvent l'être."};
}

BilingualText damagedSound()
{
    return {"The header of the sound file is damaged.", "L'en-tête du fichier son est endommagé."};
}

BilingualText unknownEncoding()
{
    return {"The sound is stored in an encoding that cannot be read.",
            "Le son est enregistré dans un codage qui ne peut être lu."};
}

const char* kindOf(int format)
{
    switch (format & SF_FORMAT_TYPEMASK) {
    case SF_FORMAT_WAV:
    case SF_FORMAT_WAVEX:
        return "WAV";
    case SF_FORMAT_RF64:
        return "RF64";
    case SF_FORMAT_AIFF:
        return "AIFF";
    case SF_FORMAT_FLAC:
        return "FLAC";
    case SF_FORMAT_OGG:
        return "Ogg";
    default:
        return nullptr;
    }
}

struct Encoding
{
    int format;
    const char* name;
    std::uint32_t bits;
};

constexpr std::array encodings = {
    Encoding{SF_FORMAT_PCM_S8, "PCM", 8},        Encoding{SF_FORMAT_PCM_U8, "PCM", 8},
    Encoding{SF_FORMAT_PCM_16, "PCM", 16},       Encoding{SF_FORMAT_PCM_24, "PCM", 24},
    Encoding{SF_FORMAT_PCM_32, "PCM", 32},       Encoding{SF_FORMAT_FLOAT, "float", 32},
    Encoding{SF_FORMAT_DOUBLE, "float", 64},     Encoding{SF_FORMAT_ULAW, "u-law", 8},
    Encoding{SF_FORMAT_ALAW, "A-law", 8},        Encoding{SF_FORMAT_IMA_ADPCM, "IMA ADPCM", 4},
    Encoding{SF_FORMAT_MS_ADPCM, "MS ADPCM", 4}, Encoding{SF_FORMAT_GSM610, "GSM 6.10", 0},
    Encoding{SF_FORMAT_VORBIS, "Vorbis", 0},     Encoding{SF_FORMAT_OPUS, "Opus", 0}};

constexpr Encoding mpegAudio{0, "MPEG", 0};
constexpr std::uint32_t pcmInWav = 1;
constexpr std::uint32_t mp3InWav = 0x55;

} // namespace

struct SoundFileReader::Source
{
    explicit Source(fs::path file) : path(std::move(file)), input(path) {}

    fs::path path;
    Input input;
    SoundFormat format;
    std::uint64_t framesRead = 0;
};

class SoundFileReader::Decoder
{
public:
    Decoder() = default;
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    virtual ~Decoder() = default;

    virtual std::size_t read(float* samples, std::size_t frames) = 0;
};

class SoundFileReader::SndfileDecoder : public Decoder
{
public:
    // What is wrong, or nothing: then the format is known.
    static std::optional<BilingualText> open(Source& source, std::unique_ptr<Decoder>& decoder)
    {
        static SF_VIRTUAL_IO calls = {
            [](void* input) -> sf_count_t { return static_cast<Input*>(input)->size(); },
            [](sf_count_t offset, int whence, void* input) -> sf_count_t {
                return static_cast<Input*>(input)->seek(offset, whence);
            },
            [](void* bytes, sf_count_t count, void* input) -> sf_count_t {
                return static_cast<Input*>(input)->read(static_cast<char*>(bytes), count);
            },
            [](const void* /*bytes*/, sf_count_t /*count*/, void* /*input*/) -> sf_count_t { return 0; },
            [](void* input) -> sf_count_t { return static_cast<Input*>(input)->tell(); }};
        SF_INFO info = {};
        source.input.seek(0, SEEK_SET);
        SNDFILE* const file = sf_open_virtual(&calls, SFM_READ, &info, &source.input);
        if (file == nullptr) {
            switch (sf_error(nullptr)) {
            case SF_ERR_UNRECOGNISED_FORMAT:
                return noSound();
            case SF_ERR_UNSUPPORTED_ENCODING:
                return unknownEncoding();
            default:
                return damagedSound();
            }
        }
        decoder = std::make_unique<SndfileDecoder>(file);
        return describe(info, source.format);
    }

    explicit SndfileDecoder(SNDFILE* file) : m_file(file) {}
    SndfileDecoder(const SndfileDecoder&) = delete;
    SndfileDecoder& operator=(const SndfileDecoder&) = delete;
    ~SndfileDecoder() override { sf_close(m_file); }

    std::size_t read(float* samples, std::size_t frames) override
    {
        const sf_count_t done = sf_readf_float(m_file, samples, static_cast<sf_count_t>(frames));
        return static_cast<std::size_t>(std::max<sf_count_t>(done, 0));
    }

private:
    static std::optional<BilingualText> describe(const SF_INFO& info, SoundFormat& format)
    {
        const char* const kind = kindOf(info.format);
        const auto* const encoding =
            std::ranges::find(encodings, info.format & SF_FORMAT_SUBMASK, &Encoding::format);
        if (kind == nullptr || encoding == encodings.end()) {
            return unknownEncoding();
        }
        format.kind = kind;
        format.encoding = encoding->name;
        format.bits = encoding->bits;
        format.rate = static_cast<std::uint32_t>(std::max(info.samplerate, 0));
        format.channels = static_cast<std::uint32_t>(std::max(info.channels, 0));
        const bool isKnown = info.frames > 0 && info.frames < SF_COUNT_MAX;
        format.frames = isKnown ? static_cast<std::uint64_t>(info.frames) : 0;
        return std::nullopt;
    }

    SNDFILE* m_file;
};

class SoundFileReader::Mpg123Decoder : public Decoder
{
public:
    static std::optional<BilingualText> open(Source& source, const char* kind,
                                             std::unique_ptr<Decoder>& decoder)
    {
        auto opened = std::make_unique<Mpg123Decoder>();
        mpg123_handle* const handle = opened->m_handle;
        source.input.seek(0, SEEK_SET);
        long rate = 0;
        int channels = 0;
        int encoding = 0;
        const auto read = [](void* input, void* bytes, std::size_t count) -> ssize_t {
            return static_cast<Input*>(input)->read(static_cast<char*>(bytes),
                                                    static_cast<std::int64_t>(count));
        };
        const auto seek = [](void* input, off_t offset, int whence) -> off_t {
            return static_cast<off_t>(static_cast<Input*>(input)->seek(offset, whence));
        };
        if (handle == nullptr ||
            mpg123_param(handle, MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_FORCE_FLOAT, 0) != MPG123_OK ||
            mpg123_replace_reader_handle(handle, read, seek, nullptr) != MPG123_OK ||
            mpg123_open_handle(handle, &source.input) != MPG123_OK ||
            mpg123_getformat(handle, &rate, &channels, &encoding) != MPG123_OK ||
            encoding != MPG123_ENC_FLOAT_32) {
            return noSound();
        }
        mpg123_format_none(handle); // what was found stays, whatever later frames say
        mpg123_format(handle, rate, channels, encoding);
        constexpr off_t mostOfPadding = 4000;
        const off_t said = saysItsLength(source.input) ? mpg123_length(handle) : 0;
        mpg123_scan(handle);
        const off_t length = mpg123_length(handle);
        source.format.cutOff = said > length + mostOfPadding;
        source.format.kind = kind;
        source.format.encoding = mpegAudio.name;
        source.format.rate = static_cast<std::uint32_t>(rate);
        source.format.channels = static_cast<std::uint32_t>(channels);
        source.format.frames = static_cast<std::uint64_t>(std::max<off_t>(length, 0));
        opened->m_channels = static_cast<std::size_t>(channels);
        decoder = std::move(opened);
        return std::nullopt;
    }

    Mpg123Decoder() : m_handle(mpg123_new(nullptr, nullptr)) {}
    Mpg123Decoder(const Mpg123Decoder&) = delete;
    Mpg123Decoder& operator=(const Mpg123Decoder&) = delete;
    ~Mpg123Decoder() override { mpg123_delete(m_handle); }

    std::size_t read(float* samples, std::size_t frames) override
    {
        std::size_t done = 0;
        const std::size_t frameSize = m_channels * sizeof(float);
        const int status = mpg123_read(m_handle, samples, frames * frameSize, &done);
        return status == MPG123_OK || status == MPG123_DONE ? done / frameSize : 0;
    }

private:
    mpg123_handle* m_handle;
    std::size_t m_channels = 1;
};

SoundFileReader::SoundFileReader() = default;
SoundFileReader::SoundFileReader(SoundFileReader&&) noexcept = default;
SoundFileReader::~SoundFileReader() = default; // the decoder before the file that it reads

Problem SoundFileReader::openDecoder()
{
    Source& source = *m_source;
    const std::string start = source.input.bytesAt(0, 12);
    const bool isAiff = start.starts_with("FORM");
    const bool isWav = start.starts_with("RIFF") && start.ends_with("WAVE");
    const bool isBigWav = start.starts_with("RF64");
    const ChunkList chunks = isAiff || isWav || isBigWav ? chunksOf(source.input, isAiff) : ChunkList();
    std::optional<BilingualText> wrong;
    if (isWav && chunks.formatTag == mp3InWav) {
        source.input.narrowTo(chunks.data);
        wrong = Mpg123Decoder::open(source, "WAV", m_decoder);
    } else if (isAiff || isWav || isBigWav || start.starts_with("fLaC") || start.starts_with("OggS")) {
        wrong = SndfileDecoder::open(source, m_decoder);
    } else { // it begins with any of several things
        wrong = Mpg123Decoder::open(source, "MP3", m_decoder);
    }
    SoundFormat& format = source.format;
    constexpr std::uint32_t leastPcmBits = 8;
    if (isWav && chunks.formatTag == pcmInWav && chunks.bits < leastPcmBits) {
        wrong = damagedSound();
    }
    if (!wrong && (format.rate < leastRate || format.rate > highestRate || format.channels == 0 ||
                   format.channels > mostChannels)) {
        wrong = damagedSound();
    }
    if (wrong) {
        return wrongContent(source.path, *wrong);
    }
    format.chunks = chunks.names;
    format.cutOff =
        format.cutOff || chunks.cutOff || (format.kind == "Ogg" && !endsWithLastPage(source.input));
    return std::nullopt;
}

Result<SoundFileReader> SoundFileReader::open(const fs::path& file)
{
    std::error_code error;
    if (const std::error_code refusal = refusalOfKind(fs::status(file, error))) {
        return cannotRead(file, refusal);
    }
    if (error) {
        return cannotRead(file, error);
    }
    SoundFileReader reader;
    errno = 0;
    reader.m_source = std::make_unique<Source>(file);
    if (!reader.m_source->input.isOpen()) {
        return cannotRead(file, {errno != 0 ? errno : EIO, std::generic_category()});
    }
    Problem problem = reader.openDecoder();
    if (reader.problem()) {
        problem = reader.problem();
    }
    return problem ? Result<SoundFileReader>(*problem) : Result<SoundFileReader>(std::move(reader));
}

const SoundFormat& SoundFileReader::format() const
{
    return m_source->format;
}

std::size_t SoundFileReader::read(std::span<float> interleaved)
{
    const std::size_t room = interleaved.size() / m_source->format.channels;
    const std::size_t done = room == 0 ? 0 : m_decoder->read(interleaved.data(), room);
    m_source->framesRead += done;
    if (done == 0 && m_source->format.frames == 0) {
        m_source->format.frames = m_source->framesRead; // the file did not say
    }
    return done;
}

Problem SoundFileReader::problem() const
{
    return m_source->input.failed()
               ? Problem(cannotRead(m_source->path, std::make_error_code(std::errc::io_error)))
               : std::nullopt;
}

bool SoundFileReader::cutOff() const
{
    return m_source->format.cutOff || m_source->framesRead < m_source->format.frames;
}

std::vector<std::string> soundFilePatterns()
{
    return {"*.wav", "*.aif", "*.aiff", "*.flac", "*.ogg", "*.oga", "*.opus", "*.mp3"};
}

RateConverter::RateConverter(double fromRate, double toRate) : m_ratio(toRate / fromRate)
{
    const soxr_io_spec_t types = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
    const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_VHQ, 0);
    const soxr_runtime_spec_t oneThread = soxr_runtime_spec(1);
    m_converter = soxr_create(fromRate, toRate, 1, nullptr, &types, &quality, &oneThread);
    if (m_converter == nullptr) {
        throw std::bad_alloc();
    }
}

RateConverter::~RateConverter()
{
    soxr_delete(static_cast<soxr_t>(m_converter));
}

void RateConverter::run(std::span<const float> samples, bool isEnd, std::vector<float>& output)
{
    constexpr std::size_t spare = 4096;
    const std::size_t room = static_cast<std::size_t>(static_cast<double>(samples.size()) * m_ratio) + spare;
    while (isEnd || !samples.empty()) {
        const std::size_t before = output.size();
        std::size_t used = 0;
        std::size_t done = 0;
        output.resize(before + room);
        const bool failed =
            soxr_process(static_cast<soxr_t>(m_converter), isEnd ? nullptr : samples.data(), samples.size(),
                         &used, output.data() + before, room, &done) != nullptr;
        output.resize(before + done);
        if (failed) {
            throw std::bad_alloc(); // the only thing that it can lack
        }
        samples = samples.subspan(used);
        if (isEnd && done == 0) {
            break;
        }
    }
}

void RateConverter::convert(std::span<const float> samples, std::vector<float>& output)
{
    run(samples, false, output);
}

void RateConverter::finish(std::vector<float>& output)
{
    run({}, true, output);
}

} // namespace tavrel
