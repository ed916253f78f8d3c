// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "base/Result.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace tavrel {

// Hears of every sound that begins and of the end that somebody puts to it; nobody tells when one has ended
// by itself.
class PlaybackObserver
{
public:
    PlaybackObserver() = default;
    PlaybackObserver(const PlaybackObserver&) = delete;
    PlaybackObserver& operator=(const PlaybackObserver&) = delete;
    virtual ~PlaybackObserver() = default;

    virtual void playbackStarted(const std::filesystem::path& file) = 0;
    virtual void playbackStopped() = 0;
};

// Plays one .wav file at a time, without waiting for its end.
class SamplePlayer
{
public:
    SamplePlayer() = default;
    SamplePlayer(const SamplePlayer&) = delete;
    SamplePlayer& operator=(const SamplePlayer&) = delete;
    virtual ~SamplePlayer() = default;

    // Takes the place of what is playing. Why nothing sounds, where the machine has no sound device or the
    // file cannot be played: worth a word in a status line, not a box.
    [[nodiscard]] Problem play(const std::filesystem::path& file);
    void stop();

    void observe(PlaybackObserver& observer) { m_observers.push_back(&observer); }
    void forget(PlaybackObserver& observer) { std::erase(m_observers, &observer); }

private:
    virtual Problem start(const std::filesystem::path& file) = 0;
    virtual void end() = 0;

    std::vector<PlaybackObserver*> m_observers;
};

// Plays the sample of that name; a message when there is no such file. Nothing happens for an empty name.
Problem PlaySample(SamplePlayer& player, const std::filesystem::path& folder, std::string_view name,
                   Dialogs& dialogs);
void StopSample(SamplePlayer& player);

// "The sample [name.wav] doesn't exist in folder"
BilingualText noSuchSample(const std::filesystem::path& folder, std::string_view name);

} // namespace tavrel
