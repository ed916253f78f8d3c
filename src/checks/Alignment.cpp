// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/Alignment.h"

#include "checks/LineReading.h"

#include <algorithm>

namespace tavrel {

Alignment::Alignment(const SoundCatalogue& catalogue) : m_catalogue(catalogue)
{
    std::ptrdiff_t late = 0;
    for (std::size_t k = 0; k < catalogue.size(); ++k) {
        if (!standsAt(k, late)) {
            if (const std::optional<std::ptrdiff_t> other = lateFrom(k, late)) {
                if (*other != 0) {
                    m_runs.push_back({k, k, *other, late});
                }
                late = *other;
            }
        }
        if (late != 0) {
            m_runs.back().last = k;
        }
    }
}

bool Alignment::standsAt(std::size_t sound, std::ptrdiff_t late) const
{
    const std::ptrdiff_t installed = static_cast<std::ptrdiff_t>(sound) - late;
    return installed >= 0 && installed < static_cast<std::ptrdiff_t>(m_catalogue.size()) &&
           nameOf(m_catalogue.currentLine(sound)) ==
               nameOf(m_catalogue.originalLine(static_cast<std::size_t>(installed)));
}

bool Alignment::isProven(std::size_t sound, std::ptrdiff_t late) const
{
    constexpr std::size_t enough = 3;
    const std::size_t last = std::min(sound + enough, m_catalogue.size());
    for (std::size_t k = sound; k < last; ++k) {
        if (!standsAt(k, late)) {
            return false;
        }
    }
    return last - sound > 1; // fewer prove it at the end
}

std::optional<std::ptrdiff_t> Alignment::lateFrom(std::size_t sound, std::ptrdiff_t current) const
{
    constexpr std::ptrdiff_t farthest = 40;
    for (std::ptrdiff_t distance = 1; distance <= farthest; ++distance) {
        for (const std::ptrdiff_t late : {current + distance, current - distance}) {
            if (isProven(sound, late)) {
                return late;
            }
        }
    }
    return std::nullopt;
}

const ShiftedRun* Alignment::runOf(std::size_t sound) const
{
    const auto found = std::ranges::find_if(
        m_runs, [sound](const ShiftedRun& run) { return run.first <= sound && sound <= run.last; });
    return found == m_runs.end() ? nullptr : &*found;
}

bool Alignment::isShifted(std::size_t sound) const
{
    return runOf(sound) != nullptr;
}

std::optional<std::string_view> Alignment::installedLine(std::size_t sound) const
{
    const ShiftedRun* const run = runOf(sound);
    const std::ptrdiff_t number = static_cast<std::ptrdiff_t>(sound) - (run == nullptr ? 0 : run->late);
    return number < 0 || number >= static_cast<std::ptrdiff_t>(m_catalogue.size())
               ? std::nullopt
               : std::optional<std::string_view>(m_catalogue.originalLine(static_cast<std::size_t>(number)));
}

std::size_t installedCount(const SoundCatalogue& catalogue)
{
    return std::min(catalogue.size(), DoublesStatus::size);
}

} // namespace tavrel
