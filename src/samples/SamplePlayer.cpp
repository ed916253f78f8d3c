// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SamplePlayer.h"

#include "base/CodePage.h"
#include "base/Titles.h"
#include "samples/SamplesFolder.h"

namespace tavrel {

Problem SamplePlayer::play(const std::filesystem::path& file)
{
    Problem problem = start(file);
    for (PlaybackObserver* const observer : m_observers) {
        if (problem) {
            observer->playbackStopped(); // what played before has ended
        } else {
            observer->playbackStarted(file);
        }
    }
    return problem;
}

void SamplePlayer::stop()
{
    end();
    for (PlaybackObserver* const observer : m_observers) {
        observer->playbackStopped();
    }
}

Problem PlaySample(SamplePlayer& player, const std::filesystem::path& folder, std::string_view name,
                   Dialogs& dialogs)
{
    if (name.empty()) {
        return std::nullopt;
    }
    if (const std::optional<std::filesystem::path> file = findSample(folder, name)) {
        return player.play(*file);
    }
    dialogs.show({MessageIcon::Exclamation, titles::play, noSuchSample(folder, name)});
    return std::nullopt;
}

void StopSample(SamplePlayer& player)
{
    player.stop();
}

BilingualText noSuchSample(const std::filesystem::path& folder, std::string_view name)
{
    const std::string file = "[" + utf8FromCodePage(name) + ".wav]";
    return BilingualText("The sample " + file + " doesn't exist\nin ",
                         "Le sample " + file + " n'existe pas\ndans ") +
           displayPath(folder / "");
}

} // namespace tavrel
