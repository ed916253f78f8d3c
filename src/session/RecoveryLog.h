// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "base/System.h"
#include "base/TextFile.h"
#include "history/HistoryTrack.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a running window has done and not yet applied, on the disk after every step, so that nothing is lost
// when the program does not come to its end.
//
// A log is a row of records, each "KIND LENGTH CHECKSUM", a line feed, LENGTH bytes and a line feed: a torn
// end is recognised and left out. Texts are bytes, each behind its length.
namespace tavrel {

// Which sounds.txt the steps belong to.
struct RecoveryHeader
{
    std::filesystem::path sounds;
    std::uintmax_t size = 0;
    std::uint64_t hash = 0;
    std::chrono::sys_seconds begun;

    friend bool operator==(const RecoveryHeader&, const RecoveryHeader&) = default;
};

// Values that were in the boxes and not accepted when the system was shut down.
struct UnacceptedValues
{
    std::size_t number = 0;
    std::string line; // as it would have been composed

    friend bool operator==(const UnacceptedValues&, const UnacceptedValues&) = default;
};

struct RecoveryContent
{
    RecoveryHeader header;
    HistoryTrack track;
    std::optional<UnacceptedValues> values;

    // There is something to bring back.
    bool pending() const { return track.pending() || values; }
};

// What the records say, up to the first that is not whole. Nothing when not even the header is.
std::optional<RecoveryContent> parseRecovery(std::string_view bytes);

// Writes the log of one window. A step that cannot be written ends it; the next one tries to begin anew.
class RecoveryLog
{
public:
    explicit RecoveryLog(std::filesystem::path programFolder);
    RecoveryLog(const RecoveryLog&) = delete;
    RecoveryLog& operator=(const RecoveryLog&) = delete;
    ~RecoveryLog();

    // A new log with all that the track holds; then the old one goes.
    Problem begin(const RecoveryHeader& header, const HistoryTrack& track);
    // Behind the last record. The track is what the log has to hold then, in case that it must begin anew.
    Problem stepDone(const HistoryStep& step, const HistoryTrack& track);
    Problem moved(const HistoryTrack& track);
    Problem valuesLeft(const UnacceptedValues& values);

    // Ends the log: there are no changes left to be recovered.
    void end();
    // The changes were given up on purpose; the log stays for a while, among those that were discarded. A
    // problem leaves it for the next start to find.
    Problem keepAsDiscarded();

    const std::filesystem::path& file() const { return m_file; }

private:
    Problem append(std::string_view record, const HistoryTrack* track);
    static void removeFile(const std::filesystem::path& file);

    std::filesystem::path m_programFolder;
    std::optional<RecoveryHeader> m_header;
    std::filesystem::path m_file;
    system::AppendFile m_log;
};

// A log that a window left behind, or that was discarded.
struct FoundRecovery
{
    std::filesystem::path file;
    RecoveryContent content;
};

// Logs of windows that ended without a word, oldest first. Those without anything to bring back are removed.
std::vector<FoundRecovery> abandonedRecoveries(const std::filesystem::path& programFolder);
// The last ones that were discarded, newest first.
std::vector<FoundRecovery> discardedRecoveries(const std::filesystem::path& programFolder);
// Another window has this sounds.txt open.
bool isOpenElsewhere(const std::filesystem::path& programFolder, const std::filesystem::path& sounds,
                     const std::filesystem::path& ownLog);

// Keeps an abandoned log among the discarded ones, of which the last five stay.
[[nodiscard]] Problem discardRecovery(const std::filesystem::path& file);
[[nodiscard]] Problem removeRecovery(const std::filesystem::path& file);

} // namespace tavrel
