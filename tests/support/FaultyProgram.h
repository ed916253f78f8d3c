// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace tavrel {

struct FaultCounts
{
    int runs = 0;
    int failures = 0; // of the program, not of the test
};

struct Fault
{
    const char* name;
    const char* words; // for strace
    bool isKill;
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

    using Run = std::function<int(const std::string& straceOptions)>;

    // Once, under strace: the exit status.
    int run(const std::string& straceOptions) const;
    // How often an undisturbed run makes each call that touches files or folders. The runs are the test's,
    // which prepares the folders first.
    std::map<std::string, int> countCalls(const Run& runOnce) const;
    // A run with the fault at each of these calls, each with its check.
    FaultCounts withEachFault(const std::map<std::string, int>& counts, const Fault& fault,
                              const Run& runOnce, const std::function<void(int status)>& check) const;
    // A sanitized build reads and writes for itself. It ends, with any status, when the fault strikes there,
    // and says so.
    bool hitTheSanitizer() const;

private:
    std::string m_command;
    std::filesystem::path m_scratch;
};

} // namespace tavrel
