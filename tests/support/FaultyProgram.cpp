// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FaultyProgram.h"

#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>
#include <sys/wait.h>

namespace tavrel {

namespace {

const char* const tracedCalls =
    "openat,read,write,close,fsync,rename,renameat2,fchmodat,chmod,mkdir,unlink,unlinkat,newfstatat,"
    "getdents64,access,readlink,lseek,writev,statx,ftruncate,rmdir,"
    "copy_file_range,sendfile,fchmod,fchown,getxattr,flock,link";

std::string quoted(const std::string& text)
{
    return "'" + text + "'";
}

// A call fails only where it is traced.
std::string traced(const std::string& calls, const Fault& fault)
{
    if (fault.alwaysFails == nullptr) {
        return " -e trace=" + calls;
    }
    const std::string call = fault.alwaysFails;
    return " -e trace=" + calls + "," + call + " -e inject=" + call + ":error=EPERM";
}

} // namespace

FaultyProgram::FaultyProgram(std::vector<std::string> command, std::filesystem::path scratch)
    : m_scratch(std::move(scratch))
{
    for (const std::string& word : command) {
        m_command += " " + quoted(word);
    }
}

int FaultyProgram::run(const std::string& straceOptions) const
{
    // Under strace the leak check of a sanitized build cannot run.
    const std::string command = "ASAN_OPTIONS=detect_leaks=0 " + quoted(TAVREL_STRACE) + " -f -qq " +
                                straceOptions + m_command + " >" + quoted((m_scratch / "said").string()) +
                                " 2>&1";
    return std::system(command.c_str());
}

std::map<std::string, int> FaultyProgram::countCalls(const Fault& fault) const
{
    const std::filesystem::path log = m_scratch / "calls";
    const std::string calls = fault.calls != nullptr ? fault.calls : tracedCalls;
    EXPECT_EQ(run("-o " + quoted(log.string()) + traced(calls, fault)), 0) << readBytes(m_scratch / "said");
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

std::map<std::string, int> FaultyProgram::strikeEach(const std::filesystem::path& start,
                                                     const std::filesystem::path& work, const Fault& fault,
                                                     const std::function<void(int status)>& check) const
{
    const auto prepare = [&] {
        std::filesystem::remove_all(work);
        std::filesystem::copy(start, work, std::filesystem::copy_options::recursive);
    };
    prepare();
    const auto counts = countCalls(fault);
    check(0);
    int runs = 0;
    int failures = 0;
    for (const auto& [call, count] : counts) {
        if (fault.alwaysFails != nullptr && call == fault.alwaysFails) {
            continue;
        }
        for (int n = 1; n <= count; ++n) {
            SCOPED_TRACE(call + " number " + std::to_string(n));
            prepare();
            const int status = run("-o /dev/null" + traced(call, fault) + " -e inject=" + call + ":" +
                                   fault.words + ":when=" + std::to_string(n));
            EXPECT_TRUE(mayBeEither(fault) || WIFEXITED(status)) << "the program crashed";
            check(status);
            ++runs;
            failures += status == 0 ? 0 : 1;
        }
    }
    EXPECT_GT(runs, fault.calls != nullptr ? 3 : 50);
    EXPECT_GT(failures, runs / 4) << "the faults did not reach the program";
    testing::Test::RecordProperty("runs", runs);
    return counts;
}

bool FaultyProgram::hitTheSanitizer() const
{
    const std::string said = readBytes(m_scratch / "said");
    return std::ranges::any_of(
        std::array{"CHECK failed: sanitizer_", "does not point to an object of type",
                   "LeakSanitizer has encountered"},
        [&said](const char* complaint) { return said.find(complaint) != std::string::npos; });
}

} // namespace tavrel
