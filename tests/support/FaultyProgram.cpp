// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FaultyProgram.h"

#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>

namespace tavrel {

namespace {

const char* const tracedCalls =
    "openat,read,write,close,fsync,rename,renameat2,fchmodat,chmod,mkdir,unlink,unlinkat,newfstatat,"
    "getdents64,access,readlink,lseek,writev,statx,ftruncate,rmdir,"
    "copy_file_range,sendfile,fchmod,fchown,getxattr,flock";

std::string quoted(const std::string& text)
{
    return "'" + text + "'";
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

std::map<std::string, int> FaultyProgram::countCalls(const Run& runOnce) const
{
    const std::filesystem::path log = m_scratch / "calls";
    const int status = runOnce("-o " + quoted(log.string()) + " -e trace=" + tracedCalls);
    EXPECT_EQ(status, 0) << readBytes(m_scratch / "said");
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

FaultCounts FaultyProgram::withEachFault(const std::map<std::string, int>& counts, const Fault& fault,
                                         const Run& runOnce,
                                         const std::function<void(int status)>& check) const
{
    FaultCounts result;
    for (const auto& [call, count] : counts) {
        for (int n = 1; n <= count; ++n) {
            SCOPED_TRACE(call + " number " + std::to_string(n));
            const int status = runOnce("-o /dev/null -e trace=" + call + " -e inject=" + call + ":" +
                                       fault.words + ":when=" + std::to_string(n));
            check(status);
            ++result.runs;
            result.failures += status == 0 ? 0 : 1;
        }
    }
    return result;
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
