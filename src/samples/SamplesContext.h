// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "base/Dialogs.h"
#include "samples/SamplePlayer.h"
#include "samples/WaveformCache.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>

namespace tavrel {

class ReferenceRegister;
class SoundCatalogue;

// What a window of this subsystem gets when it opens.
struct SamplesContext
{
    Language language;
    ColourScheme colours;
    std::filesystem::path samplesFolder;
    Dialogs& dialogs;
    SamplePlayer& player;

    // These may be missing. Waveforms that are kept for longer than one window lives:
    std::shared_ptr<WaveformCache> waveforms = {};
    // Whose lines use a sample:
    const SoundCatalogue* catalogue = nullptr;
    const ReferenceRegister* references = nullptr;
    // Selects a sound in the main window; the window that calls it closes.
    std::function<void(std::size_t sound)> showSound = {};
};

// The context's, or the window's own.
inline std::shared_ptr<WaveformCache> waveformsOf(const SamplesContext& context)
{
    return context.waveforms ? context.waveforms : std::make_shared<WaveformCache>();
}

} // namespace tavrel
