// SPDX-License-Identifier: GPL-3.0-or-later
// What would sound is written to a file by SDL's disk driver.
#include "demo/WavFile.h"
#include "samples/SystemPlayer.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

using namespace tavrel;

namespace {

class SystemPlayer : public testing::Test
{
protected:
    void useDriver(const char* driver)
    {
        ::setenv("SDL_AUDIODRIVER", driver, 1);
        ::setenv("SDL_DISKAUDIOFILE", output.c_str(), 1);
        ::setenv("SDL_DISKAUDIODELAY", "1", 1);
    }

    std::string soundData(const WavTone& tone)
    {
        constexpr std::size_t headerSize = 44;
        return wavBytes(tone).substr(headerSize);
    }
    // The output once it holds the sound, or what there is after some seconds.
    std::string waitFor(const std::string& sound)
    {
        for (int i = 0; i < 500; ++i) {
            std::string written = readBytes(output);
            if (written.find(sound) != std::string::npos) {
                return written;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return readBytes(output);
    }

    TemporaryFolder folder;
    std::filesystem::path output = folder / "sound.raw";
};

} // namespace

TEST_F(SystemPlayer, PlaysEverySampleOfTheFileAndANewOneInItsPlace)
{
    useDriver("disk");
    const WavTone low{.frequency = 200};
    const WavTone high{.frequency = 900, .seconds = 0.1};
    writeBytes(folder / "low.wav", wavBytes(low));
    writeBytes(folder / "high\xC3\xA9.wav", wavBytes(high));
    const std::unique_ptr<SamplePlayer> player = makeSystemPlayer();
    ASSERT_FALSE(player->play(folder / "low.wav"));
    EXPECT_NE(waitFor(soundData(low)).find(soundData(low)), std::string::npos);
    ASSERT_FALSE(player->play(folder / "high\xC3\xA9.wav"));
    const std::string written = waitFor(soundData(high));
    EXPECT_NE(written.find(soundData(high)), std::string::npos);
    EXPECT_EQ(written.find(soundData(low)), std::string::npos) << "the driver starts its file anew";

    player->stop();
    const std::string atStop = readBytes(output);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(readBytes(output), atStop);
}

TEST_F(SystemPlayer, LeavesTheProgramItsSignals)
{
    useDriver("dummy");
    writeBytes(folder / "good.wav", wavBytes({}));
    const std::unique_ptr<SamplePlayer> player = makeSystemPlayer();
    ASSERT_FALSE(player->play(folder / "good.wav"));
    struct sigaction action = {};
    ASSERT_EQ(::sigaction(SIGTERM, nullptr, &action), 0);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
}

TEST_F(SystemPlayer, SaysWhyNothingSounds)
{
    useDriver("disk");
    writeBytes(folder / "broken.wav", "no sound");
    EXPECT_TRUE(makeSystemPlayer()->play(folder / "broken.wav"));

    useDriver("none-such");
    writeBytes(folder / "good.wav", wavBytes({}));
    const Problem problem = makeSystemPlayer()->play(folder / "good.wav");
    ASSERT_TRUE(problem);
    EXPECT_TRUE(problem->text.french.starts_with("Pas de son")) << problem->text.french;
}
