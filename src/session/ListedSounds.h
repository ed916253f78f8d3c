// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/SoundCatalogue.h"
#include "catalogue/SoundFilter.h"

#include <cstddef>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace tavrel {

// Filters that are ready to be chosen. The last two are about sets that somebody else knows.
enum class ReadyFilter { All, Modified, Pending, OfWad, EveryLevel, NoLevel, WithFindings, MissingSamples };

struct ListCriteria
{
    SoundFilter words;
    ReadyFilter ready = ReadyFilter::All;
    std::string letter; // of the current WAD
    bool globals = true;
    const std::set<std::size_t>* known = nullptr; // of WithFindings and MissingSamples
    // Listed whatever the filters say: what the user works on does not go away under his hands.
    std::set<std::size_t> kept = {};
};

// Which sounds the main list shows. The lines are read once, so that each key of a filter is fast.
class ListedSounds
{
public:
    explicit ListedSounds(const SoundCatalogue& catalogue) : m_catalogue(catalogue) {}

    // After a load, and when lines came or went.
    void read();
    // After a change of these lines.
    void read(std::span<const std::size_t> numbers);
    void list(const ListCriteria& criteria);
    // Whether it would be listed.
    bool matches(std::size_t number, const ListCriteria& criteria) const
    {
        return matches(m_sounds.at(number), criteria);
    }

    std::span<const std::size_t> numbers() const { return m_numbers; } // ascending
    std::size_t total() const { return m_sounds.size(); }

private:
    bool matches(const FilteredSound& sound, const ListCriteria& criteria) const;
    bool isReady(const FilteredSound& sound, const ListCriteria& criteria) const;

    const SoundCatalogue& m_catalogue;
    std::vector<FilteredSound> m_sounds;
    std::vector<std::size_t> m_numbers;
};

} // namespace tavrel
