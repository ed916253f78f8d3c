// SPDX-License-Identifier: GPL-3.0-or-later
// The real thing: our batch file, run by the command interpreter of Wine, with a stand-in for the tool.
#include "demo/WavFile.h"
#include "generation/SfxGeneration.h"
#include "support/Files.h"
#include "support/Generation.h"
#include "support/ScriptedDialogs.h"
#include "support/ScriptedProgress.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>

using namespace tavrel;
using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace {

using Clock = SfxGeneration::Clock;
using Phase = SfxGeneration::Phase;

class SfxGenerationRun : public testing::Test
{
protected:
    SfxGenerationRun()
    {
        useWineOfTheTests();
        writeBytes(creator / "Sounds.txt", textOf({"; a comment", "ALL:\t\tone two\t\tVOL50\t#g",
                                                   "OURS:\t\tthree\t\t#oa", "THEIRS:\t\tfour\t\t#oab"}));
        for (const char* name : {"one", "two", "three", "four"}) {
            writeBytes(editor / "sound" / "Samples" / (std::string(name) + ".wav"), wav(name));
        }
        fs::create_directories(wads);
        installTool(creator);
        catalogue.append("ALL:\t\tone two\t\tVOL50\t#g", "", 2);
    }

    static std::string wav(const std::string& name)
    {
        return wavBytes({.frequency = 100.0 * static_cast<double>(name.size()), .seconds = 0.01});
    }

    GenerationRequest request()
    {
        return {catalogue,
                {"oasis", "oa", ""},
                false,
                {program.path(), editor, creator, editor / "sound" / "Samples", wads}};
    }

    void begin()
    {
        ScriptedProgress progress;
        dialogs.prepareAnswer(Answer::Ok);
        ASSERT_EQ(generation.begin(request(), progress, Clock::now()), SfxGeneration::Begun::Started);
    }

    // Looks as the window does, in shorter steps, until the phase is reached.
    void lookUntil(Phase phase)
    {
        const Clock::time_point limit = Clock::now() + 60s;
        while (generation.poll(Clock::now()) != phase && Clock::now() < limit) {
            std::this_thread::sleep_for(20ms);
        }
        ASSERT_EQ(generation.phase(), phase);
    }

    void expectResults() const
    {
        EXPECT_EQ(readBytes(wads / "oasis.sam"), "one.wav\r\ntwo.wav\r\nthree.wav\r\n");
        EXPECT_TRUE(readBytes(wads / "oasis.sfx") == wav("one") + wav("two") + wav("three"));
        EXPECT_EQ(namesIn(wads), (std::vector<std::string>{"oasis.sam", "oasis.sfx"}));
        EXPECT_EQ(namesIn(creator), (std::vector<std::string>{"Sounds.txt", "pcwadsfx.exe"}));
        EXPECT_EQ(generation.summary().english, "The .SAM and .SFX files of [oasis] are generated");
    }

    TemporaryFolder root;
    TemporaryFolder program;
    fs::path editor = root / "level editor \u00E9\u00E8 & (x86)";
    fs::path creator = editor / "sound" / "LevelSFX Creator";
    fs::path wads = editor / "graphics" / "wads";
    SoundCatalogue catalogue;
    ScriptedDialogs dialogs;
    std::unique_ptr<BatchRunner> runner = makeSystemBatchRunner();
    SfxGeneration generation{*runner, dialogs};
};

TEST_F(SfxGenerationRun, MovesTheResultsToTheWads)
{
    writeBytes(wads / "oasis.sam", "an old list");
    begin();
    lookUntil(Phase::Idle);
    expectResults();
    EXPECT_EQ(dialogs.said().size(), 1U);
    const std::string said = readBytes(program / "CreateSFX.log");
    EXPECT_NE(said.find("oasis: 3 samples"), std::string::npos) << said;
}

// The first look comes while the .sfx file is there and the tool is not done with it.
TEST_F(SfxGenerationRun, WaitsForASlowTool)
{
    const ToolSetting slow("TAVREL_TOOL_TAKES", "4500");
    begin();
    std::this_thread::sleep_for(SfxGeneration::firstLook);
    EXPECT_EQ(generation.poll(Clock::now()), Phase::Waiting);
    EXPECT_TRUE(fs::exists(creator / "CreateSFX.bat"));
    lookUntil(Phase::Idle);
    expectResults();
}

// The first look comes too early; the batch file must outlive it, or its second half would never be run.
TEST_F(SfxGenerationRun, LeavesTheBatchFileToATardyTool)
{
    const ToolSetting tardy("TAVREL_TOOL_STARTS_AFTER", "4500");
    begin();
    std::this_thread::sleep_for(SfxGeneration::firstLook);
    EXPECT_EQ(generation.poll(Clock::now()), Phase::ConsoleOpen);
    EXPECT_TRUE(fs::exists(creator / "CreateSFX.bat"));
    lookUntil(Phase::Idle);
    expectResults();
}

TEST_F(SfxGenerationRun, TellsWhatAToolThatWritesNothingSaid)
{
    const ToolSetting broken("TAVREL_TOOL_IS_BROKEN", "1");
    begin();
    lookUntil(Phase::Idle);
    EXPECT_EQ(namesIn(creator), (std::vector<std::string>{"Sounds.txt", "pcwadsfx.exe"}));
    EXPECT_TRUE(namesIn(wads).empty());
    const std::string said = dialogs.said().back().text.english;
    EXPECT_TRUE(said.starts_with("No new .SAM and .SFX files of [oasis]\nThe last words of the tool:\n"))
        << said;
    EXPECT_NE(said.find("\npcwadsfx: no sounds for oasis"), std::string::npos) << said;
}

TEST_F(SfxGenerationRun, NeedsWine)
{
    const std::string path = std::getenv("PATH");
    EXPECT_FALSE(runner->whatIsMissing());
    ::setenv("PATH", (program.path().string() + ":/nonexistent").c_str(), 1);
    const Problem missing = runner->whatIsMissing();
    EXPECT_TRUE(missing && missing->text.french.find("Wine") != std::string::npos);
    EXPECT_FALSE(runner->start(creator / "any.bat", program / "log"));
    ::setenv("PATH", path.c_str(), 1);
}

TEST_F(SfxGenerationRun, GoesOnWhenThisProgramEnds)
{
    const ToolSetting slow("TAVREL_TOOL_TAKES", "500");
    {
        ScriptedDialogs yes{Answer::Ok};
        SfxGeneration abandoned(*runner, yes);
        ScriptedProgress progress;
        abandoned.begin(request(), progress, Clock::now());
    }
    const Clock::time_point limit = Clock::now() + 60s;
    while (!fs::exists(wads / "oasis.sfx") && Clock::now() < limit) {
        std::this_thread::sleep_for(20ms);
    }
    EXPECT_TRUE(fs::exists(wads / "oasis.sam") && fs::exists(wads / "oasis.sfx"));
}

} // namespace
