// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/ListedSounds.h"

namespace tavrel {

namespace {

bool carries(std::string_view letters, const std::string& letter)
{
    if (letter.empty()) {
        return false;
    }
    const std::string marked = "#" + letter;
    for (std::size_t found = letters.find(marked); found != std::string_view::npos;
         found = letters.find(marked, found + 1)) {
        const std::size_t end = found + marked.size();
        if (end == letters.size() || letters[end] == ' ') {
            return true;
        }
    }
    return false;
}

} // namespace

void ListedSounds::read()
{
    m_sounds.clear();
    m_sounds.reserve(m_catalogue.size());
    for (std::size_t k = 0; k < m_catalogue.size(); ++k) {
        m_sounds.emplace_back(k, m_catalogue.currentLine(k));
    }
}

void ListedSounds::read(std::span<const std::size_t> numbers)
{
    for (const std::size_t number : numbers) {
        m_sounds.at(number) = FilteredSound(number, m_catalogue.currentLine(number));
    }
}

void ListedSounds::list(const ListCriteria& criteria)
{
    m_numbers.clear();
    for (const FilteredSound& sound : m_sounds) {
        if (matches(sound, criteria)) {
            m_numbers.push_back(sound.number);
        }
    }
}

bool ListedSounds::matches(const FilteredSound& sound, const ListCriteria& criteria) const
{
    return ((criteria.globals || !sound.isGlobal) && isReady(sound, criteria) &&
            criteria.words.matches(sound)) ||
           (!criteria.kept.empty() && criteria.kept.contains(sound.number));
}

bool ListedSounds::isReady(const FilteredSound& sound, const ListCriteria& criteria) const
{
    switch (criteria.ready) {
    case ReadyFilter::All:
        return true;
    case ReadyFilter::Modified:
        return m_catalogue.isModified(sound.number);
    case ReadyFilter::Pending:
        return m_catalogue.lineInFile(sound.number) == 0 ||
               m_catalogue.currentLine(sound.number) != m_catalogue.fileLine(sound.number);
    case ReadyFilter::OfWad:
        return carries(sound.letters, criteria.letter);
    case ReadyFilter::EveryLevel:
        return sound.isGlobal;
    case ReadyFilter::NoLevel:
        return sound.letters.empty();
    case ReadyFilter::WithFindings:
    case ReadyFilter::MissingSamples:
        break;
    }
    return criteria.known != nullptr && criteria.known->contains(sound.number);
}

} // namespace tavrel
