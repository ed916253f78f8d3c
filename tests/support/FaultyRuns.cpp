// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FaultyRuns.h"

#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

// Every call with which the programs touch files or folders.
const char* const tracedCalls =
    "openat,read,write,close,fsync,rename,renameat2,fchmodat,chmod,mkdir,unlink,unlinkat,newfstatat,"
    "getdents64,access,readlink,lseek,writev,statx,ftruncate";

std::string quoted(const std::string& text)
{
    return "'" + text + "'";
}

} // namespace

FaultyRuns::FaultyRuns(const std::vector<std::string>& command, fs::path scratch,
                       std::function<void()> prepare)
    : m_scratch(std::move(scratch)), m_prepare(std::move(prepare))
{
    for (const std::string& word : command) {
        m_command += " " + quoted(word);
    }
}

FaultyRuns::Run FaultyRuns::run(const std::string& straceOptions) const
{
    m_prepare();
    // Under strace the leak check of a sanitized build cannot run.
    const std::string command = "ASAN_OPTIONS=detect_leaks=0 " + quoted(TAVREL_STRACE) + " -f -qq " +
                                straceOptions + m_command + " >" + quoted(said().string()) + " 2>&1";
    const int status = std::system(command.c_str());
    const std::string output = readBytes(said());
    const bool hitTheSanitizer = std::ranges::any_of(
        std::array{"CHECK failed: sanitizer_", "does not point to an object of type",
                   "LeakSanitizer has encountered"},
        [&output](const char* complaint) { return output.find(complaint) != std::string::npos; });
    return {status, hitTheSanitizer};
}

std::map<std::string, int> FaultyRuns::countCalls() const
{
    const fs::path log = m_scratch / "calls";
    EXPECT_EQ(run("-o " + quoted(log.string()) + " -e trace=" + tracedCalls).status, 0) << readBytes(said());
    std::map<std::string, int> counts;
    std::istringstream lines(readBytes(log));
    for (std::string line; std::getline(lines, line);) {
        const std::size_t start = line.find_first_not_of("0123456789 ");
        const std::size_t end = line.find('(');
        if (start < end && end != std::string::npos) {
            ++counts[line.substr(start, end - start)];
        }
    }
    return counts;
}

void FaultyRuns::strikeEach(const std::map<std::string, int>& calls, const std::string& fault,
                            const std::function<void(const Run&)>& check) const
{
    int runs = 0;
    int failures = 0;
    for (const auto& [call, count] : calls) {
        for (int n = 1; n <= count; ++n) {
            SCOPED_TRACE(call + " number " + std::to_string(n));
            const Run result = run("-o /dev/null -e trace=" + call + " -e inject=" + call + ":" + fault +
                                   ":when=" + std::to_string(n));
            check(result);
            ++runs;
            failures += result.status == 0 ? 0 : 1;
        }
    }
    EXPECT_GT(runs, 50);
    EXPECT_GT(failures, runs / 4) << "the faults did not reach the program";
}

} // namespace tavrel
