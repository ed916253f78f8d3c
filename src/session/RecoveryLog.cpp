// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/RecoveryLog.h"

#include "base/FailureTexts.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/SafeFile.h"

#include <algorithm>
#include <charconv>
#include <random>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view logEnding = ".rec";
constexpr std::string_view runningPrefix = "running-";
constexpr std::string_view discardedPrefix = "discarded-";
constexpr std::size_t keptDiscarded = 5;
constexpr std::string_view formatVersion = "Tavrel recovery 1";

// Records

enum class Kind : char { Header = 'H', Step = 'S', Position = 'P', Saved = 'W', Values = 'V' };

class Writer
{
public:
    Writer& number(std::uint64_t value)
    {
        m_bytes += std::to_string(value) + ' ';
        return *this;
    }
    Writer& text(std::string_view bytes)
    {
        number(bytes.size());
        m_bytes += bytes;
        return *this;
    }
    Writer& text(const BilingualText& both) { return text(both.english).text(both.french); }
    Writer& reference(const std::optional<WadReference>& reference)
    {
        number(reference ? 1 : 0);
        return reference ? text(reference->wadName).text(reference->letter).text(reference->title) : *this;
    }
    Writer& wad(const CurrentWad& wad) { return text(wad.wadName).text(wad.letter).text(wad.title); }
    Writer& time(std::chrono::sys_seconds time)
    {
        return number(static_cast<std::uint64_t>(time.time_since_epoch().count()));
    }

    std::string record(Kind kind) const
    {
        return static_cast<char>(kind) + (" " + std::to_string(m_bytes.size())) + " " +
               std::to_string(hashOf(m_bytes)) + "\n" + m_bytes + "\n";
    }

private:
    std::string m_bytes;
};

// Stops at the first thing that is not what is asked for; what comes after is then empty.
class Reader
{
public:
    explicit Reader(std::string_view bytes) : m_rest(bytes) {}

    bool good() const { return m_good; }
    std::uint64_t number(char end = ' ')
    {
        std::uint64_t value = 0;
        const auto [last, error] = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), value);
        const auto length = static_cast<std::size_t>(last - m_rest.data());
        m_good = m_good && error == std::errc() && length < m_rest.size() && m_rest[length] == end;
        if (!m_good) {
            return 0;
        }
        m_rest.remove_prefix(length + 1);
        return value;
    }
    std::string_view bytes(std::uint64_t length)
    {
        m_good = m_good && length <= m_rest.size();
        const std::string_view taken = m_rest.substr(0, m_good ? static_cast<std::size_t>(length) : 0);
        m_rest.remove_prefix(taken.size());
        return taken;
    }
    std::string text() { return std::string(bytes(number())); }
    BilingualText both()
    {
        std::string english = text();
        return {std::move(english), text()};
    }
    std::optional<WadReference> reference()
    {
        if (number() == 0) {
            return std::nullopt;
        }
        WadReference reference;
        reference.wadName = text();
        reference.letter = text();
        reference.title = text();
        return reference;
    }
    CurrentWad wad()
    {
        CurrentWad wad;
        wad.wadName = text();
        wad.letter = text();
        wad.title = text();
        return wad;
    }
    std::chrono::sys_seconds time()
    {
        return std::chrono::sys_seconds(std::chrono::seconds(static_cast<std::int64_t>(number())));
    }
    char kind()
    {
        const std::string_view taken = bytes(2);
        m_good = m_good && taken[1] == ' ';
        return m_good ? taken[0] : '\0';
    }
    bool takes(char expected) { return bytes(1) == std::string_view(&expected, 1); }
    bool atEnd() const { return m_rest.empty(); }

private:
    std::string_view m_rest;
    bool m_good = true;
};

std::string headerRecord(const RecoveryHeader& header)
{
    const std::u8string path = header.sounds.u8string();
    return Writer()
        .text(formatVersion)
        .text(std::string(path.begin(), path.end()))
        .number(header.size)
        .number(header.hash)
        .time(header.begun)
        .record(Kind::Header);
}

std::string stepRecord(const HistoryStep& step)
{
    Writer writer;
    writer.number(step.id).text(step.label).time(step.time).number(step.lines.size());
    for (const LineDelta& delta : step.lines) {
        writer.number(static_cast<std::uint64_t>(delta.kind)).number(delta.number);
        writer.text(delta.before).text(delta.after);
    }
    writer.number(step.references.size());
    for (const ReferenceDelta& delta : step.references) {
        writer.number(delta.index).reference(delta.before).reference(delta.after);
    }
    writer.number(step.wad ? 1 : 0);
    if (step.wad) {
        writer.wad(step.wad->first).wad(step.wad->second);
    }
    return writer.record(Kind::Step);
}

std::string positionRecord(std::size_t position)
{
    return Writer().number(position).record(Kind::Position);
}

std::string savedRecord()
{
    return Writer().record(Kind::Saved);
}

// As if all of it happened once more, with the file where it stands.
std::string trackRecords(const HistoryTrack& track)
{
    std::string bytes;
    const auto appendSteps = [&bytes](auto begin, auto end) {
        std::for_each(begin, end, [&bytes](const HistoryStep& step) { bytes += stepRecord(step); });
    };
    const auto saved = track.steps.begin() + static_cast<std::ptrdiff_t>(track.savedPosition);
    appendSteps(track.steps.begin(), saved);
    appendSteps(track.cutOff.begin(), track.cutOff.end());
    bytes += savedRecord();
    if (!track.cutOff.empty()) {
        bytes += positionRecord(track.savedPosition);
    }
    appendSteps(saved, track.steps.end());
    return bytes + positionRecord(track.position);
}

RecoveryHeader readHeader(Reader& reader)
{
    RecoveryHeader header;
    const std::string path = reader.text();
    header.sounds = fs::path(std::u8string(path.begin(), path.end()));
    header.size = reader.number();
    header.hash = reader.number();
    header.begun = reader.time();
    return header;
}

HistoryStep readStep(Reader& reader)
{
    HistoryStep step;
    step.id = reader.number();
    step.label = reader.both();
    step.time = reader.time();
    for (std::uint64_t left = reader.number(); left > 0 && reader.good(); --left) {
        LineDelta delta;
        delta.kind = static_cast<LineDelta::Kind>(std::min<std::uint64_t>(reader.number(), 2));
        delta.number = static_cast<std::size_t>(reader.number());
        delta.before = reader.text();
        delta.after = reader.text();
        step.lines.push_back(std::move(delta));
    }
    for (std::uint64_t left = reader.number(); left > 0 && reader.good(); --left) {
        ReferenceDelta delta;
        delta.index = static_cast<std::size_t>(reader.number());
        delta.before = reader.reference();
        delta.after = reader.reference();
        step.references.push_back(std::move(delta));
    }
    if (reader.number() == 1) {
        CurrentWad before = reader.wad();
        step.wad = {std::move(before), reader.wad()};
    }
    return step;
}

// False when the record makes no sense behind the others.
bool take(Kind kind, Reader& reader, RecoveryContent& content)
{
    switch (kind) {
    case Kind::Step: {
        HistoryStep step = readStep(reader);
        if (reader.good() && reader.atEnd()) {
            content.values.reset(); // the user went on
            content.track.append(std::move(step));
            return true;
        }
        return false;
    }
    case Kind::Position: {
        const std::uint64_t position = reader.number();
        if (!reader.good() || position > content.track.steps.size()) {
            return false;
        }
        content.values.reset();
        content.track.position = static_cast<std::size_t>(position);
        return true;
    }
    case Kind::Saved:
        content.track.markSaved();
        return true;
    case Kind::Values: {
        UnacceptedValues values;
        values.number = static_cast<std::size_t>(reader.number());
        values.line = reader.text();
        content.values = std::move(values);
        return reader.good();
    }
    case Kind::Header:
        break;
    }
    return false;
}

struct Record
{
    Kind kind;
    std::string_view payload;
};

std::optional<Record> nextRecord(Reader& reader)
{
    const char kind = reader.kind();
    const std::uint64_t length = reader.number();
    const std::uint64_t checksum = reader.number('\n');
    const std::string_view payload = reader.bytes(length);
    if (!reader.takes('\n') || !reader.good() || hashOf(payload) != checksum) {
        return std::nullopt;
    }
    return Record{static_cast<Kind>(kind), payload};
}

// Files

fs::path recoveryFolder(const fs::path& programFolder)
{
    return fileIn(programFolder, recoveryFolderName);
}

fs::path newLogIn(const fs::path& folder)
{
    std::random_device random;
    return folder / (std::string(runningPrefix) + std::to_string(random()) + std::string(logEnding));
}

std::vector<fs::path> logsIn(const fs::path& folder, std::string_view prefix)
{
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator it(folder, error); !error && it != fs::directory_iterator();
         it.increment(error)) {
        const std::string name = it->path().filename().string();
        if (name.starts_with(prefix) && name.ends_with(logEnding)) {
            files.push_back(it->path());
        }
    }
    return files;
}

std::optional<RecoveryContent> readLog(const fs::path& file)
{
    const Result<FileContent> content = readFile(file);
    return content ? parseRecovery(content->bytes) : std::nullopt;
}

// "discarded-12.rec" is 12.
std::uint64_t numberOf(const fs::path& discarded)
{
    const std::string name = discarded.filename().string();
    std::uint64_t number = 0;
    std::from_chars(name.data() + discardedPrefix.size(), name.data() + name.size(), number);
    return number;
}

std::vector<fs::path> discardedLogs(const fs::path& folder)
{
    std::vector<fs::path> files = logsIn(folder, discardedPrefix);
    std::ranges::sort(files, std::greater(), numberOf);
    return files;
}

} // namespace

std::optional<RecoveryContent> parseRecovery(std::string_view bytes)
{
    Reader records(bytes);
    const std::optional<Record> first = nextRecord(records);
    if (!first || first->kind != Kind::Header) {
        return std::nullopt;
    }
    Reader header(first->payload);
    if (header.text() != formatVersion) {
        return std::nullopt;
    }
    RecoveryContent content;
    content.header = readHeader(header);
    if (!header.good()) {
        return std::nullopt;
    }
    while (const std::optional<Record> record = nextRecord(records)) {
        Reader payload(record->payload);
        if (!take(record->kind, payload, content)) {
            break;
        }
    }
    return content;
}

RecoveryLog::RecoveryLog(fs::path programFolder) : m_programFolder(std::move(programFolder)) {}

// What is still there when nobody ended it is to be recovered.
RecoveryLog::~RecoveryLog() = default;

Problem RecoveryLog::begin(const RecoveryHeader& header, const HistoryTrack& track)
{
    m_header = header;
    m_log.close();
    const fs::path folder = recoveryFolder(m_programFolder);
    std::error_code error;
    fs::create_directory(folder, error);
    const fs::path file = newLogIn(folder);
    error = m_log.create(file);
    if (!error) {
        error = m_log.append(headerRecord(header) + trackRecords(track));
        if (error) {
            m_log.close();
            removeFile(file);
        }
    }
    if (error) {
        return cannotWrite(folder, error);
    }
    removeFile(std::exchange(m_file, file));
    return std::nullopt;
}

Problem RecoveryLog::append(std::string_view record, const HistoryTrack* track)
{
    if (!m_header) {
        return std::nullopt;
    }
    if (!m_log.isOpen()) {
        return track != nullptr ? begin(*m_header, *track) : Problem();
    }
    if (const std::error_code error = m_log.append(record)) {
        m_log.close(); // what it holds so far can be read
        return cannotWrite(m_file, error);
    }
    return std::nullopt;
}

Problem RecoveryLog::stepDone(const HistoryStep& step, const HistoryTrack& track)
{
    return append(stepRecord(step), &track);
}

Problem RecoveryLog::moved(const HistoryTrack& track)
{
    return append(positionRecord(track.position), &track);
}

Problem RecoveryLog::valuesLeft(const UnacceptedValues& values)
{
    return append(Writer().number(values.number).text(values.line).record(Kind::Values), nullptr);
}

void RecoveryLog::end()
{
    m_log.close();
    m_header.reset();
    removeFile(std::exchange(m_file, {}));
}

Problem RecoveryLog::keepAsDiscarded()
{
    m_log.close();
    m_header.reset();
    const fs::path file = std::exchange(m_file, {});
    return file.empty() ? Problem() : discardRecovery(file);
}

void RecoveryLog::removeFile(const fs::path& file)
{
    std::error_code ignored;
    if (!file.empty()) {
        fs::remove(file, ignored);
    }
}

std::vector<FoundRecovery> abandonedRecoveries(const fs::path& programFolder)
{
    std::vector<FoundRecovery> found;
    for (const fs::path& file : logsIn(recoveryFolder(programFolder), runningPrefix)) {
        if (system::isOpenForAppending(file)) {
            continue;
        }
        std::optional<RecoveryContent> content = readLog(file);
        if (content && content->pending()) {
            found.push_back({file, std::move(*content)});
        } else if (content) {
            std::error_code ignored;
            fs::remove(file, ignored);
        }
    }
    std::ranges::sort(found, {}, [](const FoundRecovery& recovery) { return recovery.content.header.begun; });
    return found;
}

std::vector<FoundRecovery> discardedRecoveries(const fs::path& programFolder)
{
    std::vector<FoundRecovery> found;
    for (const fs::path& file : discardedLogs(recoveryFolder(programFolder))) {
        if (std::optional<RecoveryContent> content = readLog(file)) {
            found.push_back({file, std::move(*content)});
        }
    }
    return found;
}

bool isOpenElsewhere(const fs::path& programFolder, const fs::path& sounds, const fs::path& ownLog)
{
    const std::vector<fs::path> logs = logsIn(recoveryFolder(programFolder), runningPrefix);
    return std::ranges::any_of(logs, [&](const fs::path& file) {
        if (file == ownLog || !system::isOpenForAppending(file)) {
            return false;
        }
        const std::optional<RecoveryContent> content = readLog(file);
        return content && content->header.sounds == sounds;
    });
}

Problem discardRecovery(const fs::path& file)
{
    const fs::path folder = file.parent_path();
    std::vector<fs::path> discarded = discardedLogs(folder);
    const std::uint64_t next = discarded.empty() ? 1 : numberOf(discarded.front()) + 1;
    const fs::path name =
        folder / (std::string(discardedPrefix) + std::to_string(next) + std::string(logEnding));
    if (Problem problem = moveSafely(file, name)) {
        return problem;
    }
    for (std::size_t i = keptDiscarded - 1; i < discarded.size(); ++i) {
        std::error_code ignored;
        fs::remove(discarded[i], ignored);
    }
    return std::nullopt;
}

Problem removeRecovery(const fs::path& file)
{
    std::error_code error;
    fs::remove(file, error);
    return error ? Problem(cannotWrite(file, error)) : Problem();
}

} // namespace tavrel
