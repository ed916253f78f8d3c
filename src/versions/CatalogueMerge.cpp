// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/CatalogueMerge.h"

#include <algorithm>

namespace tavrel {

namespace {

using Number = std::optional<std::size_t>;

std::optional<std::string_view> lineAt(SoundLines lines, Number number)
{
    return number ? std::optional(lines[*number]) : std::nullopt;
}

// One side against the base, read from front to back.
class Side
{
public:
    explicit Side(const SoundPairing& pairing) : m_pairs(pairing.pairs) {}

    // What was put in before the next sound of the base.
    std::vector<std::size_t> takeNew()
    {
        std::vector<std::size_t> added;
        for (; m_next < m_pairs.size() && !m_pairs[m_next].mine; ++m_next) {
            added.push_back(*m_pairs[m_next].theirs);
        }
        return added;
    }
    // The next sound of the base; none when the side has taken it out.
    Number take() { return m_pairs[m_next++].theirs; }

private:
    const std::vector<SoundPair>& m_pairs; // the base's sounds are "mine"
    std::size_t m_next = 0;
};

class Merge
{
public:
    Merge(SoundLines base, SoundLines mine, SoundLines theirs)
        : m_base(base), m_mine(mine), m_theirs(theirs), m_myPairing(pairSounds(base, mine)),
          m_theirPairing(pairSounds(base, theirs))
    {}

    CatalogueMerge run()
    {
        Side mine(m_myPairing);
        Side theirs(m_theirPairing);
        for (std::size_t k = 0; k < m_base.size(); ++k) {
            addNew(mine.takeNew(), theirs.takeNew());
            const Number ofMine = mine.take();
            add({k, ofMine, theirs.take()});
        }
        addNew(mine.takeNew(), theirs.takeNew());
        m_result.shift = shiftText(m_theirPairing.byName ? m_theirPairing : m_myPairing);
        return std::move(m_result);
    }

private:
    void add(MergedSound sound)
    {
        sound.outcome =
            outcomeOf(lineAt(m_base, sound.base), lineAt(m_mine, sound.mine), lineAt(m_theirs, sound.theirs));
        m_result.sounds.push_back(sound);
    }

    // In the same place: what both put in alike is there once; else theirs is in conflict with mine.
    void addNew(const std::vector<std::size_t>& mine, const std::vector<std::size_t>& theirs)
    {
        const bool alike = std::ranges::equal(mine, theirs, [this](std::size_t left, std::size_t right) {
            return m_mine[left] == m_theirs[right];
        });
        for (std::size_t i = 0; i < mine.size(); ++i) {
            add({{}, mine[i], alike ? Number(theirs[i]) : std::nullopt});
        }
        for (std::size_t i = 0; i < theirs.size() && !alike; ++i) {
            add({{}, {}, theirs[i]});
            m_result.sounds.back().outcome = mine.empty() ? MergeOutcome::Theirs : MergeOutcome::Conflict;
        }
    }

    SoundLines m_base;
    SoundLines m_mine;
    SoundLines m_theirs;
    SoundPairing m_myPairing;
    SoundPairing m_theirPairing;
    CatalogueMerge m_result;
};

} // namespace

MergeOutcome outcomeOf(std::optional<std::string_view> base, std::optional<std::string_view> mine,
                       std::optional<std::string_view> theirs)
{
    if (mine == theirs) {
        return mine == base ? MergeOutcome::Unchanged : MergeOutcome::Both;
    }
    if (mine == base) {
        return MergeOutcome::Theirs;
    }
    return theirs == base ? MergeOutcome::Mine : MergeOutcome::Conflict;
}

std::size_t CatalogueMerge::conflicts() const
{
    return static_cast<std::size_t>(
        std::ranges::count(sounds, MergeOutcome::Conflict, &MergedSound::outcome));
}

CatalogueMerge mergeCatalogues(SoundLines base, SoundLines mine, SoundLines theirs)
{
    return Merge(base, mine, theirs).run();
}

std::optional<std::string_view> lineAfterMerge(const MergedSound& sound, SoundLines mine, SoundLines theirs)
{
    return sound.outcome == MergeOutcome::Theirs ? lineAt(theirs, sound.theirs) : lineAt(mine, sound.mine);
}

} // namespace tavrel
