// SPDX-License-Identifier: GPL-3.0-or-later
// A full disk, or the plug pulled, at every system call of a window's writing: all steps come back, or all
// but the last.
#include "demo/DemoFolder.h"
#include "session/RecoverCommands.h"
#include "support/FaultyProgram.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

constexpr const char* writingCalls =
    "write,writev,pwrite64,fsync,fdatasync,rename,renameat2,mkdir,unlink,unlinkat,ftruncate,rmdir,fchmod";
constexpr Fault fullWhileWriting{"FullDisk", "error=ENOSPC", false, writingCalls};
constexpr Fault killedWhileWriting{"Killed", "signal=KILL", true, writingCalls};

// Which sounds have the text of their step once each step is over; the fifth is an apply.
const std::vector<std::string> states = {"", "1", "12", "1", "13", "13", "134", "1345", "134", "1345"};

class RecoveryFaults : public testing::TestWithParam<Fault>
{
protected:
    RecoveryFaults()
    {
        makeLevelEditorFolder(start / "trle", dataFolder(), DemoSamples::None);
        makeProgramFolder(start / "program", dataFolder(), work / "trle");
        writeBytes(start / "trle" / "sound" / "LevelSFX Creator" / "Sounds.txt", textOf(stockLines()));
    }

    static std::string stateOf(const SoundCatalogue& catalogue)
    {
        std::string state;
        for (const char* number : {"1", "2", "3", "4", "5"}) {
            if (catalogue.currentLine(std::stoul(number)) == std::string("STEP") + number + ":") {
                state += number;
            }
        }
        return state;
    }
    // As the next window finds it.
    std::string recovered() const
    {
        Session session(work / "program", LoadSettings(work / "program").settings);
        EXPECT_TRUE(session.load());
        for (const FoundRecovery& found : abandonedRecoveries(work / "program")) {
            if (!isApplied(found.content, session)) {
                EXPECT_TRUE(recover(session, found.content).missed.empty());
            }
        }
        return stateOf(session.catalogue());
    }
    std::size_t stepsSaid() const
    {
        const std::string said = readBytes(root / "said");
        std::size_t steps = 0;
        for (std::size_t at = said.find("step\n"); at != std::string::npos;
             at = said.find("step\n", at + 1)) {
            ++steps;
        }
        return steps;
    }

    TemporaryFolder root;
    fs::path start = root / "start";
    fs::path work = root / "work";
};

TEST_P(RecoveryFaults, AllStepsComeBackOrAllButTheLast)
{
    const FaultyProgram program({TAVREL_SESSION_ONCE, (work / "program").string()}, root.path());
    const auto counts = program.strikeEach(start, work, GetParam(), [&](int status) {
        const std::string state = recovered();
        if (GetParam().isKill && status != 0) {
            const std::size_t steps = stepsSaid();
            EXPECT_TRUE(state == states.at(steps) ||
                        (steps + 1 < states.size() && state == states[steps + 1]))
                << steps << " steps, then " << state;
        } else if (status == 0) {
            EXPECT_EQ(state, states.back()) << "nobody was told of a problem";
        } else {
            EXPECT_NE(std::ranges::find(states, state), states.end()) << state;
        }
    });
    EXPECT_GE(counts.at("fdatasync"), 7) << "each step is on the disk before the next";
}

INSTANTIATE_TEST_SUITE_P(EachCall, RecoveryFaults, testing::Values(fullWhileWriting, killedWhileWriting),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
