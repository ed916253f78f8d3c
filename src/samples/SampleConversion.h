// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"
#include "samples/SoundFile.h"

#include <atomic>
#include <filesystem>
#include <string>

namespace tavrel {

// A sound as the level editor accepts it: the bytes of a whole .wav file, and what there is to say.
struct ConvertedSample
{
    std::string bytes;
    SoundFormat from;
    double loweredBy = 0; // dB, where a peak would have been cut
    bool cutOff = false;  // the file held less than it said; what was there is kept

    // "was stereo; 1.2 dB quieter", for a report; empty when there is nothing to say.
    BilingualText notes() const;
};

// Any sound file as mono 16-bit PCM of 22050 Hz with a plain header of 44 bytes. Sample values that fit are
// kept as they are; dither goes only where bits are dropped. The same file gives the same bytes each time.
Result<ConvertedSample> convertSample(const std::filesystem::path& file);

// "-0.5", in French "-0,5".
BilingualText decimalText(double value, int decimalCount);
// "WAV, PCM, 44100 Hz, 2 channels, 16 bits, 1.25 s"
BilingualText formatText(const SoundFormat& format);

} // namespace tavrel
