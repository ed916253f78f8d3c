// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/SoundPairing.h"

#include "base/Counted.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace tavrel {

namespace {

// Names as numbers: equal names, equal numbers.
using Names = std::vector<std::uint32_t>;
using NameSpan = std::span<const std::uint32_t>;
using Matches = std::vector<std::pair<std::size_t, std::size_t>>; // ascending on both sides

using NameTexts = std::vector<std::string_view>;

NameTexts namesOf(SoundLines lines)
{
    NameTexts names;
    names.reserve(lines.size());
    for (const std::string_view line : lines) {
        names.push_back(line.substr(0, line.find(':')));
    }
    return names;
}

class NameNumbers
{
public:
    Names of(std::span<const std::string_view> texts)
    {
        Names names;
        names.reserve(texts.size());
        for (const std::string_view text : texts) {
            names.push_back(
                m_numbers.try_emplace(text, static_cast<std::uint32_t>(m_numbers.size())).first->second);
        }
        return names;
    }

private:
    std::unordered_map<std::string_view, std::uint32_t> m_numbers;
};

// The most names in the same order on both sides, by the shortest way of putting in and taking out. The time
// grows with the square of that way's length, so there is a limit to it; beyond it, nothing.
class ShortestWay
{
public:
    ShortestWay(NameSpan mine, NameSpan theirs) : m_mine(mine), m_theirs(theirs) {}

    std::optional<Matches> find(std::size_t longest)
    {
        const auto limit = static_cast<std::ptrdiff_t>(std::min(longest, m_mine.size() + m_theirs.size()));
        std::vector<std::ptrdiff_t> reached(static_cast<std::size_t>(2 * limit + 3));
        for (std::ptrdiff_t length = 0; length <= limit; ++length) {
            for (std::ptrdiff_t k = -length; k <= length; k += 2) {
                const auto at = [&](std::ptrdiff_t diagonal) -> std::ptrdiff_t& {
                    return reached[static_cast<std::size_t>(diagonal + limit + 1)];
                };
                at(k) = follow(comesDown(k, length, at(k - 1), at(k + 1)) ? at(k + 1) : at(k - 1) + 1, k);
                if (at(k) >= std::ssize(m_mine) && at(k) - k >= std::ssize(m_theirs)) {
                    return wayBack(length, k);
                }
            }
            const auto first = reached.begin() + (limit + 1 - length);
            m_trace.emplace_back(first, first + (2 * length + 1));
        }
        return std::nullopt;
    }

private:
    // To the end of the equal names from there.
    std::ptrdiff_t follow(std::ptrdiff_t i, std::ptrdiff_t k) const
    {
        while (i < std::ssize(m_mine) && i - k < std::ssize(m_theirs) && i - k >= 0 &&
               m_mine[static_cast<std::size_t>(i)] == m_theirs[static_cast<std::size_t>(i - k)]) {
            ++i;
        }
        return i;
    }

    static bool comesDown(std::ptrdiff_t k, std::ptrdiff_t length, std::ptrdiff_t left, std::ptrdiff_t right)
    {
        return k == -length || (k != length && left < right);
    }

    Matches wayBack(std::ptrdiff_t length, std::ptrdiff_t k) const
    {
        Matches matches;
        std::ptrdiff_t i = std::ssize(m_mine);
        for (; length > 0; --length) {
            const std::vector<std::ptrdiff_t>& before = m_trace[static_cast<std::size_t>(length - 1)];
            const auto at = [&](std::ptrdiff_t diagonal) {
                const std::ptrdiff_t place = diagonal + length - 1;
                return place >= 0 && place < std::ssize(before) ? before[static_cast<std::size_t>(place)] : 0;
            };
            const bool down = comesDown(k, length, at(k - 1), at(k + 1));
            const std::ptrdiff_t start = down ? at(k + 1) : at(k - 1) + 1;
            addRun(matches, start, i, k);
            k += down ? 1 : -1;
            i = down ? start : start - 1;
        }
        addRun(matches, 0, i, k);
        std::ranges::reverse(matches);
        return matches;
    }

    static void addRun(Matches& matches, std::ptrdiff_t from, std::ptrdiff_t to, std::ptrdiff_t k)
    {
        while (to-- > from) {
            matches.emplace_back(to, to - k);
        }
    }

    NameSpan m_mine;
    NameSpan m_theirs;
    std::vector<std::vector<std::ptrdiff_t>> m_trace; // how far each diagonal was reached, by length
};

// For sides with little in common: the longest row of names that ascends on both sides. Names that are there
// very often are left out, for they would take their number squared.
Matches longestRow(NameSpan mine, NameSpan theirs)
{
    constexpr std::size_t mostPlaces = 32;
    std::unordered_map<std::uint32_t, std::vector<std::size_t>> places;
    for (std::size_t j = theirs.size(); j-- > 0;) {
        places[theirs[j]].push_back(j); // descending, so that one of mine takes one of theirs
    }
    struct Link
    {
        std::size_t i;
        std::size_t j;
        std::size_t before;
    };
    constexpr std::size_t none = SIZE_MAX;
    std::vector<Link> links;
    std::vector<std::size_t> ends; // the link that ends the best row of each length
    for (std::size_t i = 0; i < mine.size(); ++i) {
        const auto found = places.find(mine[i]);
        if (found == places.end() || found->second.size() > mostPlaces) {
            continue;
        }
        for (const std::size_t j : found->second) {
            const auto end =
                std::ranges::lower_bound(ends, j, {}, [&](std::size_t link) { return links[link].j; });
            links.push_back({i, j, end == ends.begin() ? none : *(end - 1)});
            if (end == ends.end()) {
                ends.push_back(links.size() - 1);
            } else {
                *end = links.size() - 1;
            }
        }
    }
    Matches matches;
    for (std::size_t link = ends.empty() ? none : ends.back(); link != none; link = links[link].before) {
        matches.emplace_back(links[link].i, links[link].j);
    }
    std::ranges::reverse(matches);
    return matches;
}

Matches matchNames(std::span<const std::string_view> mine, std::span<const std::string_view> theirs)
{
    constexpr std::size_t longestWay = 1000;
    const auto front = static_cast<std::size_t>(std::ranges::mismatch(mine, theirs).in1 - mine.begin());
    const auto restOfMine = mine.subspan(front);
    const auto restOfTheirs = theirs.subspan(front);
    const auto ends =
        std::mismatch(restOfMine.rbegin(), restOfMine.rend(), restOfTheirs.rbegin(), restOfTheirs.rend());
    const auto back = static_cast<std::size_t>(ends.first - restOfMine.rbegin());
    NameNumbers numbers;
    const Names left = numbers.of(restOfMine.first(restOfMine.size() - back));
    const Names right = numbers.of(restOfTheirs.first(restOfTheirs.size() - back));

    Matches matches;
    for (std::size_t i = 0; i < front; ++i) {
        matches.emplace_back(i, i);
    }
    const std::optional<Matches> way = ShortestWay(left, right).find(longestWay);
    for (const auto& [i, j] : way ? *way : longestRow(left, right)) {
        matches.emplace_back(front + i, front + j);
    }
    for (std::size_t i = back; i > 0; --i) {
        matches.emplace_back(mine.size() - i, theirs.size() - i);
    }
    return matches;
}

void addPairs(std::vector<SoundPair>& pairs, SoundPair from, SoundPair to)
{
    const std::size_t ofMine = *to.mine - *from.mine;
    const std::size_t ofTheirs = *to.theirs - *from.theirs;
    if (ofMine == ofTheirs) { // other names in the same places
        for (std::size_t i = 0; i < ofMine; ++i) {
            pairs.push_back({*from.mine + i, *from.theirs + i});
        }
        return;
    }
    for (std::size_t i = 0; i < ofMine; ++i) {
        pairs.push_back({*from.mine + i, std::nullopt});
    }
    for (std::size_t i = 0; i < ofTheirs; ++i) {
        pairs.push_back({std::nullopt, *from.theirs + i});
    }
}

std::vector<SoundPair> pairByName(const Matches& matches, std::size_t mine, std::size_t theirs)
{
    std::vector<SoundPair> pairs;
    pairs.reserve(std::max(mine, theirs));
    SoundPair next{0, 0};
    for (const auto& [i, j] : matches) {
        addPairs(pairs, next, {i, j});
        pairs.push_back({i, j});
        next = {i + 1, j + 1};
    }
    addPairs(pairs, next, {mine, theirs});
    return pairs;
}

std::vector<SoundPair> pairByNumber(std::size_t mine, std::size_t theirs)
{
    std::vector<SoundPair> pairs;
    for (std::size_t i = 0; i < std::max(mine, theirs); ++i) {
        pairs.push_back(
            {i < mine ? std::optional(i) : std::nullopt, i < theirs ? std::optional(i) : std::nullopt});
    }
    return pairs;
}

// Two sounds that changed places are no shift.
bool isShift(const Matches& matches, const NameTexts& mine, const NameTexts& theirs)
{
    constexpr std::size_t leastShifted = 4;
    std::size_t inPlace = 0;
    for (std::size_t i = 0; i < std::min(mine.size(), theirs.size()); ++i) {
        inPlace += mine[i] == theirs[i] ? 1U : 0U;
    }
    return matches.size() >= inPlace + (mine.size() == theirs.size() ? leastShifted : 1);
}

} // namespace

SoundPairing pairSounds(SoundLines mine, SoundLines theirs)
{
    const NameTexts myNames = namesOf(mine);
    const NameTexts theirNames = namesOf(theirs);
    const Matches matches = matchNames(myNames, theirNames);
    if (isShift(matches, myNames, theirNames)) {
        return {pairByName(matches, mine.size(), theirs.size()), true};
    }
    return {pairByNumber(mine.size(), theirs.size()), false};
}

BilingualText shiftText(const SoundPairing& pairing)
{
    if (!pairing.byName) {
        return {};
    }
    constexpr int mostShifts = 3;
    BilingualText text;
    std::ptrdiff_t shift = 0;
    int shifts = 0;
    for (const SoundPair& pair : pairing.pairs) {
        if (!pair.mine || !pair.theirs) {
            continue;
        }
        const std::ptrdiff_t found =
            static_cast<std::ptrdiff_t>(*pair.theirs) - static_cast<std::ptrdiff_t>(*pair.mine);
        if (found == shift) {
            continue;
        }
        const std::ptrdiff_t more = found - shift;
        shift = found;
        if (++shifts > mostShifts) {
            continue;
        }
        const std::string sound = std::to_string(*pair.mine);
        const auto count = static_cast<std::size_t>(std::abs(more));
        text += BilingualText("Before sound " + sound + " the other side has ",
                              "Avant le son " + sound + ", l'autre côté a ");
        text += more > 0
                    ? counted(count, {"more line. ", "ligne de plus. "}, {"more lines. ", "lignes de plus. "})
                    : counted(count, {"line fewer. ", "ligne de moins. "},
                              {"lines fewer. ", "lignes de moins. "});
    }
    if (shifts > mostShifts) {
        const auto more = static_cast<std::size_t>(shifts - mostShifts);
        text += agreeing(more, {"There is ", "Il y a "}, {"There are ", "Il y a "}) +
                counted(more, {"more such place. ", "autre endroit semblable. "},
                        {"more such places. ", "autres endroits semblables. "});
    }
    return text +
           BilingualText("Sounds are compared by their names.", "Les sons sont comparés par leurs noms.");
}

} // namespace tavrel
