// SPDX-License-Identifier: GPL-3.0-or-later
// A full disk, or the plug pulled, at every system call of a repair and of putting an original back.
#include "demo/WavFile.h"
#include "support/FaultyProgram.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/wait.h>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

const std::string oldSample = wavBytes({.listChunk = true, .seconds = 0.01});
const std::string newSample = wavBytes({.seconds = 0.01});

class RepairFaults : public testing::TestWithParam<Fault>
{
protected:
    bool isKept(const std::string& bytes) const
    {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(work)) {
            if (entry.path().extension() == ".wav" && readBytes(entry.path()) == bytes) {
                return true;
            }
        }
        return false;
    }

    // The bytes that are somewhere under the name of a sample, whatever happens.
    void strikeEach(const char* command, const std::string& before, const std::string& after,
                    const std::vector<std::string>& neverLost) const
    {
        const FaultyProgram program({TAVREL_REPAIR_ONCE, command, (work / "Samples" / "foot.wav").string()},
                                    root.path());
        const auto check = [&](int status) {
            EXPECT_TRUE(GetParam().isKill || program.hitTheSanitizer() || WIFEXITED(status))
                << "the program crashed";
            const std::string sample = readBytes(work / "Samples" / "foot.wav");
            EXPECT_TRUE(sample == before || sample == after) << sample.size();
            for (const std::string& bytes : neverLost) {
                EXPECT_TRUE(isKept(bytes));
            }
            if (!GetParam().isKill && !program.hitTheSanitizer() && status == 0) {
                EXPECT_TRUE(sample == after);
            }
        };
        const std::map<std::string, int> counts = program.strikeEach(start, work, GetParam(), check);
        const bool copies = GetParam().alwaysFails != nullptr;
        EXPECT_GE(counts.at("fsync"), command != std::string("repair") ? 2 : copies ? 4 : 3);
    }

    TemporaryFolder root;
    fs::path start = root / "start";
    fs::path work = root / "work";
};

} // namespace

TEST_P(RepairFaults, ASampleIsTheOldOneOrTheNewOneAndItsOriginalIsNeverLost)
{
    writeBytes(start / "Samples" / "foot.wav", oldSample);
    writeBytes(start / "Samples_originals" / "foot.wav", "an earlier original");
    strikeEach("repair", oldSample, newSample, {oldSample, "an earlier original"});
}

TEST_P(RepairFaults, AnOriginalComesBackWholeOrStaysWhereItIs)
{
    writeBytes(start / "Samples" / "foot.wav", "of the user");
    writeBytes(start / "Samples_originals" / "foot.wav", oldSample);
    strikeEach("back", "of the user", oldSample, {oldSample, "of the user"});
}

// On a file system that gives no second names, the original is copied.
constexpr Fault fullDiskWithoutLinks{"FullDiskWithoutLinks", "error=ENOSPC", false, nullptr, "link"};
constexpr Fault killedWithoutLinks{"KilledWithoutLinks", "signal=KILL", true, nullptr, "link"};

INSTANTIATE_TEST_SUITE_P(EachCall, RepairFaults,
                         testing::Values(fullDisk, killed, fullDiskWithoutLinks, killedWithoutLinks),
                         [](const auto& test) { return std::string(test.param.name); });
