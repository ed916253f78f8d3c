// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundCatalogue.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tavrel {

// Sounds that do not stand at the numbers that the installed catalogue gives their names.
struct ShiftedRun
{
    std::size_t first;
    std::size_t last;
    std::ptrdiff_t late;   // how many numbers too high
    std::ptrdiff_t before; // the same of the sounds in front of the run
};

// Which installed line belongs to which sound. A single other name is one that the user gave; several names
// in a row that the installed catalogue has elsewhere are a run.
class Alignment
{
public:
    explicit Alignment(const SoundCatalogue& catalogue);

    const std::vector<ShiftedRun>& runs() const { return m_runs; }
    bool isShifted(std::size_t sound) const;
    // Empty where the catalogue is too short to hold it.
    std::optional<std::string_view> installedLine(std::size_t sound) const;

private:
    bool standsAt(std::size_t sound, std::ptrdiff_t late) const;
    bool isProven(std::size_t sound, std::ptrdiff_t late) const;
    std::optional<std::ptrdiff_t> lateFrom(std::size_t sound, std::ptrdiff_t current) const;
    const ShiftedRun* runOf(std::size_t sound) const;

    const SoundCatalogue& m_catalogue;
    std::vector<ShiftedRun> m_runs;
};

// How many of the catalogue's lines have an installed one of their own.
std::size_t installedCount(const SoundCatalogue& catalogue);

} // namespace tavrel
