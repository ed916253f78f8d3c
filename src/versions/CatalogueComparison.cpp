// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/CatalogueComparison.h"

#include <algorithm>

namespace tavrel {

namespace {

bool differs(const SoundPair& pair, SoundLines mine, SoundLines theirs)
{
    return !pair.mine || !pair.theirs || mine[*pair.mine] != theirs[*pair.theirs];
}

CatalogueComparison compare(SoundPairing pairing, SoundLines mine, SoundLines theirs)
{
    CatalogueComparison comparison{std::move(pairing), {}};
    for (const SoundPair& pair : comparison.pairing.pairs) {
        if (differs(pair, mine, theirs)) {
            comparison.differences.push_back(
                {pair, pair.mine && pair.theirs ? differingFields(mine[*pair.mine], theirs[*pair.theirs])
                                                : LineFields()});
        }
    }
    return comparison;
}

} // namespace

std::vector<std::string_view> currentLinesOf(const SoundCatalogue& catalogue)
{
    std::vector<std::string_view> lines;
    for (std::size_t number = 0; number < catalogue.size(); ++number) {
        lines.emplace_back(catalogue.currentLine(number));
    }
    return lines;
}

std::vector<std::string_view> originalLinesOf(const SoundCatalogue& catalogue)
{
    std::vector<std::string_view> lines;
    for (std::size_t number = 0; number < catalogue.size(); ++number) {
        lines.emplace_back(catalogue.originalLine(number));
    }
    return lines;
}

CatalogueComparison compareCatalogues(SoundLines mine, SoundLines theirs)
{
    return compare(pairSounds(mine, theirs), mine, theirs);
}

CatalogueComparison compareCatalogues(SoundLines mine, const OtherCatalogue& other)
{
    return compare(pairSounds(mine, other), mine, other.views());
}

std::size_t countDifferences(SoundLines mine, SoundLines theirs)
{
    const SoundPairing pairing = pairSounds(mine, theirs);
    return static_cast<std::size_t>(std::ranges::count_if(
        pairing.pairs, [&](const SoundPair& pair) { return differs(pair, mine, theirs); }));
}

} // namespace tavrel
