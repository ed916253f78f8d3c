// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/ListedSounds.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

TEST(ListedSounds, FollowTheReadyFiltersAndTheWords)
{
    SoundCatalogue catalogue;
    const char* const lines[][2] = {
        {"A:>a>#g", "A:>a>#g"}, {"B:>b>#ab", "B:>z>#ab"}, {"C:>c>#abc", "C:>c>#abc"}, {"D:>d>", "D:>d>"}};
    for (const auto& [current, original] : lines) {
        catalogue.append(withTabs(current), withTabs(original), catalogue.size() + 1);
    }
    ASSERT_FALSE(catalogue.setCurrentLine(3, withTabs("D:>new>")));
    ListedSounds listed(catalogue);
    listed.read();
    const std::set<std::size_t> known = {0, 2};
    const auto with = [&](ReadyFilter ready, const char* words = "", bool globals = true,
                          std::set<std::size_t> kept = {}) {
        listed.list({SoundFilter(words), ready, "ab", globals, &known, std::move(kept)});
        return std::vector<std::size_t>(listed.numbers().begin(), listed.numbers().end());
    };
    using Numbers = std::vector<std::size_t>;
    EXPECT_EQ(with(ReadyFilter::All), (Numbers{0, 1, 2, 3}));
    EXPECT_EQ(with(ReadyFilter::Modified), (Numbers{1, 3}));
    EXPECT_EQ(with(ReadyFilter::Pending), (Numbers{3}));
    EXPECT_EQ(with(ReadyFilter::OfWad), (Numbers{1})) << "a longer letter is another one";
    EXPECT_EQ(with(ReadyFilter::EveryLevel), (Numbers{0}));
    EXPECT_EQ(with(ReadyFilter::NoLevel), (Numbers{3}));
    EXPECT_EQ(with(ReadyFilter::WithFindings), (Numbers{0, 2}));
    EXPECT_EQ(with(ReadyFilter::MissingSamples, "c"), (Numbers{2}));
    EXPECT_EQ(with(ReadyFilter::All, "", false), (Numbers{1, 2, 3}));
    EXPECT_EQ(with(ReadyFilter::All, "c", false, {3}), (Numbers{2, 3}));

    ASSERT_FALSE(catalogue.setCurrentLine(1, withTabs("B:>b>")));
    const std::size_t changed = 1;
    listed.read({&changed, 1});
    EXPECT_EQ(with(ReadyFilter::NoLevel), (Numbers{1, 3}));
    EXPECT_EQ(listed.total(), 4U);
}

} // namespace
