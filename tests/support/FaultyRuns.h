// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tavrel {

// Runs a program again and again under strace, and lets each of its calls that touch files or folders fail,
// or be its last one, in turn.
class FaultyRuns
{
public:
    // `prepare` puts the program's folders in order before each run; `scratch` is a folder beside them.
    FaultyRuns(const std::vector<std::string>& command, std::filesystem::path scratch,
               std::function<void()> prepare);

    // How often an undisturbed run makes each call. Fails the test when the program does not end with 0.
    std::map<std::string, int> countCalls() const;

    struct Run
    {
        int status; // as from std::system()
        // A sanitized build reads and writes for itself. It ends, with any status, when the fault strikes
        // there, and says so.
        bool hitTheSanitizer;
    };
    // One run for each of the counted calls, with the fault as strace spells it ("error=ENOSPC").
    void strikeEach(const std::map<std::string, int>& calls, const std::string& fault,
                    const std::function<void(const Run&)>& check) const;

private:
    Run run(const std::string& straceOptions) const;
    std::filesystem::path said() const { return m_scratch / "said"; }

    std::string m_command;
    std::filesystem::path m_scratch;
    std::function<void()> m_prepare;
};

} // namespace tavrel
