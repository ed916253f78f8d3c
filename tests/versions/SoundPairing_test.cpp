// SPDX-License-Identifier: GPL-3.0-or-later
#include "RandomCatalogues.h"
#include "versions/CatalogueComparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

using namespace tavrel;

namespace {

std::vector<std::string> named(std::string_view letters)
{
    std::vector<std::string> lines;
    for (const char letter : letters) {
        lines.push_back(std::string(1, letter) + ":\ta\t");
    }
    return lines;
}

// "AA B- -C": my letter and theirs.
std::string shown(const SoundPairing& pairing, const std::vector<std::string>& mine,
                  const std::vector<std::string>& theirs)
{
    std::string text;
    for (const SoundPair& pair : pairing.pairs) {
        text += text.empty() ? "" : " ";
        text += pair.mine ? mine[*pair.mine].front() : '-';
        text += pair.theirs ? theirs[*pair.theirs].front() : '-';
    }
    return text;
}

TEST(SoundPairing, GoesByNumberUntilALineHasShiftedTheOthers)
{
    const struct
    {
        const char* mine;
        const char* theirs;
        const char* pairs;
        const char* shift; // how the text begins
    } cases[] = {
        {"", "", "", ""},
        {"ABCD", "ABCD", "AA BB CC DD", ""},
        {"ABCD", "AXCD", "AA BX CC DD", ""},
        {"ABCD", "ABCDE", "AA BB CC DD -E", ""},
        {"ABCDEF", "BACDEF", "AB BA CC DD EE FF", ""},
        {"ABCD", "AXBCD", "AA -X BB CC DD", "Before sound 1 the other side has 1 more line."},
        {"ABCDE", "ACXE", "AA B- CC DX EE", "Before sound 2 the other side has 1 line fewer."},
        {"ABCDEFGH", "BCDEFGHX", "A- BB CC DD EE FF GG HH -X",
         "Before sound 1 the other side has 1 line fewer."},
        {"ABC", "", "A- B- C-", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.mine) + " " + c.theirs);
        const std::vector<std::string> mine = named(c.mine);
        const std::vector<std::string> theirs = named(c.theirs);
        const SoundPairing pairing = pairSounds(viewsOf(mine), viewsOf(theirs));
        EXPECT_EQ(shown(pairing, mine, theirs), c.pairs);
        EXPECT_EQ(pairing.byName, *c.shift != '\0');
        EXPECT_TRUE(shiftText(pairing).english.starts_with(c.shift)) << shiftText(pairing).english;
        EXPECT_EQ(shiftText(pairing).empty(), *c.shift == '\0');
    }
}

std::size_t mostNamesInCommon(const std::vector<std::string>& mine, const std::vector<std::string>& theirs)
{
    const auto name = [](const std::string& line) { return line.substr(0, line.find(':')); };
    std::vector<std::size_t> last(theirs.size() + 1);
    for (const std::string& line : mine) {
        std::vector<std::size_t> next = last;
        for (std::size_t j = 0; j < theirs.size(); ++j) {
            next[j + 1] = name(line) == name(theirs[j]) ? last[j] + 1 : std::max(last[j + 1], next[j]);
        }
        last = next;
    }
    return last.back();
}

void expectBestPairing(const std::vector<std::string>& mine, const std::vector<std::string>& theirs)
{
    const SoundPairing pairing = pairSounds(viewsOf(mine), viewsOf(theirs));
    std::vector<std::size_t> left;
    std::vector<std::size_t> right;
    std::size_t sameNames = 0;
    for (const SoundPair& pair : pairing.pairs) {
        if (pair.mine) {
            left.push_back(*pair.mine);
        }
        if (pair.theirs) {
            right.push_back(*pair.theirs);
        }
        sameNames += pair.mine && pair.theirs &&
                             mine[*pair.mine].substr(0, mine[*pair.mine].find(':')) ==
                                 theirs[*pair.theirs].substr(0, theirs[*pair.theirs].find(':'))
                         ? 1
                         : 0;
    }
    std::vector<std::size_t> all(std::max(mine.size(), theirs.size()));
    std::iota(all.begin(), all.end(), std::size_t{0});
    EXPECT_TRUE(std::ranges::equal(left, std::span(all).first(mine.size())));
    EXPECT_TRUE(std::ranges::equal(right, std::span(all).first(theirs.size())));
    const std::size_t most = mostNamesInCommon(mine, theirs);
    EXPECT_TRUE(pairing.byName ? sameNames == most : sameNames + 4 > most) << sameNames << " of " << most;
}

TEST(SoundPairing, FindsTheMostNamesThatTwoRandomCataloguesShare)
{
    RandomCatalogues random(1);
    for (int round = 0; round < 2000; ++round) {
        SCOPED_TRACE(round);
        std::vector<std::string> mine = random.lines(1 + random.below(12), round % 2 == 0 ? "S" : "");
        for (std::string& line : mine) { // names that come again
            line = random.below(4) == 0 ? random.line("EMPTY") : line;
        }
        expectBestPairing(mine, random.changed(mine, "T"));
    }
    std::vector<std::string> shuffled = random.lines(2500, "S"); // too far apart for the shortest way
    const std::vector<std::string> sorted = shuffled;
    for (std::size_t i = shuffled.size(); i > 1; --i) {
        std::swap(shuffled[i - 1], shuffled[random.below(i)]);
    }
    expectBestPairing(sorted, shuffled);
}

TEST(CatalogueComparison, ListsWhatDiffersAndWhatIsMissing)
{
    const std::vector<std::string> mine = {"A:\ta\tVOL08\t", "B:\tb\t", "C:\tc\t", "D:\td\t"};
    const std::vector<std::string> theirs = {"A:\ta\tVOL09\t", "X:\tx\t", "B:\tb\t", "C:\tc d\t", "D:\td\t"};
    const CatalogueComparison comparison = compareCatalogues(viewsOf(mine), viewsOf(theirs));
    ASSERT_EQ(comparison.differences.size(), 3U);
    EXPECT_EQ(comparison.differences[0].fields, LineFields{LineField::Vol});
    EXPECT_EQ(comparison.differences[1].sound, (SoundPair{std::nullopt, 1}));
    EXPECT_TRUE(comparison.differences[1].fields.none());
    EXPECT_EQ(comparison.differences[2].sound, (SoundPair{2, 3}));
    EXPECT_EQ(countDifferences(viewsOf(mine), viewsOf(theirs)), 3U);
    EXPECT_EQ(countDifferences(viewsOf(mine), viewsOf(mine)), 0U);
}

} // namespace
