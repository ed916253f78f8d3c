// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "checks/CheckSubject.h"
#include "checks/Finding.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tavrel {

// A sample of a level.
struct LevelSample
{
    std::string name;                    // as the first line spells it
    std::optional<std::uintmax_t> bytes; // on the disk; none for a missing file
};

// What one of the user's levels holds.
struct LevelSurvey
{
    WadReference reference;
    std::size_t ownSounds = 0;        // with the level's letter
    std::size_t globalSounds = 0;     // with #g
    std::vector<LevelSample> samples; // each once, the largest first
    std::uintmax_t bytes = 0;         // of all its samples
    std::size_t missingSamples = 0;
    std::size_t errors = 0; // findings that concern it
    std::size_t warnings = 0;
    std::size_t notes = 0;
    std::optional<std::filesystem::file_time_type> made; // its .sfx file, else its .sam file

    CurrentWad wad() const { return currentWad(&reference); }
};

// One for each of the user's references, in their order. A failure when the samples cannot be listed.
Result<std::vector<LevelSurvey>> surveyLevels(const CheckSubject& subject, std::span<const Finding> findings);

// "2026-05-31 17:04", in the user's time zone.
std::string shownTime(std::filesystem::file_time_type time);

// A table for a spreadsheet, with its heading; UTF-8, CR LF, commas.
std::string csvOf(std::span<const LevelSurvey> levels, Language language);

} // namespace tavrel
