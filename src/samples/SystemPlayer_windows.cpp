// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "samples/SystemPlayer.h"

#include <windows.h>

#include <mmsystem.h>

namespace tavrel {

namespace {

// In the code page that the player reads, which is UTF-8 on some systems.
std::string ansiPath(const std::filesystem::path& file)
{
    return GetACP() == CP_UTF8 ? displayPath(file) : codePagePath(file).bytes;
}

class WindowsPlayer : public SamplePlayer
{
public:
    WindowsPlayer() = default;
    WindowsPlayer(const WindowsPlayer&) = delete;
    WindowsPlayer& operator=(const WindowsPlayer&) = delete;
    ~WindowsPlayer() override { WindowsPlayer::end(); }

    Problem start(const std::filesystem::path& file) override
    {
        if (sndPlaySoundA(ansiPath(file).c_str(), SND_ASYNC) == FALSE) {
            return Failure{{"No sound", "Pas de son"}};
        }
        return std::nullopt;
    }

    void end() override { sndPlaySoundA(nullptr, SND_ASYNC); }
};

} // namespace

std::unique_ptr<SamplePlayer> makeSystemPlayer()
{
    return std::make_unique<WindowsPlayer>();
}

} // namespace tavrel
