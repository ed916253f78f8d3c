// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace tavrel {

struct Fault
{
    const char* name;
    const char* words; // for strace
    bool isKill;
    const char* calls = nullptr;       // those that it strikes; all that touch files or folders
    const char* alwaysFails = nullptr; // another call, as on a file system that does not have it
};
constexpr Fault fullDisk{"FullDisk", "error=ENOSPC", false};
constexpr Fault killed{"Killed", "signal=KILL", true};

inline void PrintTo(const Fault& fault, std::ostream* stream)
{
    *stream << fault.name;
}

// A program whose system calls fail, or are the last one, each in turn.
class FaultyProgram
{
public:
    // What it says is kept in the scratch folder.
    FaultyProgram(std::vector<std::string> command, std::filesystem::path scratch);

    // Once, under strace: the exit status.
    int run(const std::string& straceOptions) const;
    int runUndisturbed() const { return run("-o /dev/null -e trace=none"); }
    // Each run works on a copy of `start` that takes the place of `work`. The first is undisturbed; in each
    // other one the fault strikes at another call that touches files or folders. After each the test checks
    // what the exit status and the folders are. Returns how often the first one made each call.
    std::map<std::string, int> strikeEach(const std::filesystem::path& start,
                                          const std::filesystem::path& work, const Fault& fault,
                                          const std::function<void(int status)>& check) const;
    // Whether such a fault may leave the old or the new, whatever the status says.
    bool mayBeEither(const Fault& fault) const { return fault.isKill || hitTheSanitizer(); }
    // A sanitized build reads and writes for itself. It ends, with any status, when the fault strikes there,
    // and says so.
    bool hitTheSanitizer() const;

private:
    std::map<std::string, int> countCalls(const Fault& fault) const;

    std::string m_command;
    std::filesystem::path m_scratch;
};

} // namespace tavrel
