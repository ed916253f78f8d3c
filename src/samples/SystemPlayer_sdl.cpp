// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "samples/SystemPlayer.h"

#include <SDL.h>

namespace tavrel {

namespace {

Failure soundFailure()
{
    return {BilingualText("No sound: ", "Pas de son : ") + SDL_GetError()};
}

class SdlPlayer : public SamplePlayer
{
public:
    SdlPlayer() = default;
    SdlPlayer(const SdlPlayer&) = delete;
    SdlPlayer& operator=(const SdlPlayer&) = delete;
    ~SdlPlayer() override
    {
        SdlPlayer::end();
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }

    Problem start(const std::filesystem::path& file) override
    {
        end();
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1"); // or nobody could end the program by a signal
        // Each time: a sound device may have been plugged in since.
        if (SDL_WasInit(SDL_INIT_AUDIO) == 0 && SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
            return soundFailure();
        }
        SDL_AudioSpec format = {};
        Uint8* sound = nullptr;
        Uint32 size = 0;
        if (SDL_LoadWAV(displayPath(file).c_str(), &format, &sound, &size) == nullptr) {
            return soundFailure();
        }
        Problem problem = start(format, sound, size);
        SDL_FreeWAV(sound);
        return problem;
    }

    void end() override
    {
        if (m_device != 0) {
            SDL_CloseAudioDevice(m_device);
            m_device = 0;
        }
    }

private:
    Problem start(const SDL_AudioSpec& format, const Uint8* sound, Uint32 size)
    {
        constexpr int noChangesAllowed = 0; // SDL converts where the device wants another format
        m_device = SDL_OpenAudioDevice(nullptr, 0, &format, nullptr, noChangesAllowed);
        if (m_device == 0 || SDL_QueueAudio(m_device, sound, size) != 0) {
            return soundFailure();
        }
        SDL_PauseAudioDevice(m_device, 0);
        return std::nullopt;
    }

    SDL_AudioDeviceID m_device = 0;
};

} // namespace

std::unique_ptr<SamplePlayer> makeSystemPlayer()
{
    return std::make_unique<SdlPlayer>();
}

} // namespace tavrel
