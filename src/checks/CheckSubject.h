// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TextFile.h"
#include "catalogue/SoundCatalogue.h"
#include "checks/SampleReading.h"
#include "references/CurrentWad.h"
#include "references/ReferenceRegister.h"

#include <filesystem>
#include <functional>

namespace tavrel {

struct CheckFolders
{
    std::filesystem::path creator; // sounds.txt and the generation tool
    std::filesystem::path samples;
    std::filesystem::path wads;
};

// What the checks look at.
struct CheckSubject
{
    const SoundCatalogue& catalogue;
    const ReferenceRegister& references;
    const CurrentWad& wad; // the current one, or none
    CheckFolders folders;
    const TextFile* soundsFile = nullptr; // sounds.txt as it is on the disk; none when it cannot be read
    std::function<SampleReading(const std::filesystem::path&)> readSample = tavrel::readSample;
    // Writes the sample anew in the right format; without it, no finding offers that.
    std::function<Problem(const std::filesystem::path&)> repairSample = {};
};

} // namespace tavrel
