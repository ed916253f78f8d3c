// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/RecoveryLog.h"
#include "session/Session.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// Bringing back what a window had not applied when it ended without a word.
namespace tavrel {

// What became of one sound, all steps together.
struct RecoveredLine
{
    std::optional<std::size_t> number;
    std::string before; // as it stands in the file of that time; empty for a line that was put in
    std::string after;  // as the last step left it; empty for one that was taken out
};
std::vector<RecoveredLine> netChanges(const HistoryTrack& track);

// The log is about the file that is loaded.
bool isOfThisFile(const RecoveryHeader& header, const Session& session);
// An apply came to its end, and only the log did not: nothing is left to be brought back.
bool isApplied(const RecoveryContent& content, const Session& session);

struct Recovered
{
    std::size_t lines = 0;             // that came back, or stood already as they were left
    std::vector<RecoveredLine> missed; // no line of the file is the one that they changed
};
// With the very file of that time all steps come back, and the place among them. In a file that has changed
// since, one step changes each line that is found: by its number and its text before, else where just one
// line has that text.
Recovered recover(Session& session, const RecoveryContent& content);

// Takes back what the steps did to the register, as giving up the changes does.
std::vector<Failure> discardRecovered(Session& session, const RecoveryContent& content);

} // namespace tavrel
