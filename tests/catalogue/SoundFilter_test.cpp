// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundFilter.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

// 0 has every value, 1 none, 2 a letter of its own case, 3 no sample.
const char* const lines[] = {"FOOT_STEP:>foot01 gravel>>>VOL80>P V>CH19>PIT-05>RAD08>#oa #ab",
                             "DOOR:>creak>>>>>>>>#g", "Foot:>m\xE9tal>>>VOL81>  N L>>>>#OA",
                             "EMPTY:>>>>>>>>"};

TEST(SoundFilter, ListsWhatMatchesEveryWord)
{
    const struct
    {
        const char* words;
        std::vector<std::size_t> listed;
    } cases[] = {
        {"", {0, 1, 2, 3}},
        {"foot", {0, 2}},
        {"  FOOT\tgravel ", {0}},
        {"gravel foot", {0}},
        {"foot door", {}},
        {"M\xC9TAL", {2}},
        {"eak", {1}},
        {"oa", {0, 2}},
        {"#oa", {0}},
        {"#OA", {2}},
        {"#o", {0}},
        {"foot #oa", {0}},
        {"01", {1}},
        {"2", {2}},
        {"12", {}},
        {"vol", {}},
        {"vol>80", {1, 2, 3}},
        {"vol>=80", {0, 1, 2, 3}},
        {"vol=100", {1, 3}},
        {"VOL<=80", {0}},
        {"ch<20", {0}},
        {"ch>20", {1, 2, 3}},
        {"pit<0", {0}},
        {"pit=0", {1, 2, 3}},
        {"pit>-6", {0, 1, 2, 3}},
        {"rad<50", {0}},
        {"rad>=0", {0}},
        {"flag:l", {2}},
        {"flag:PV", {0}},
        {"flag:pl", {}},
        {"flag:n #OA vol>80 2", {2}},
        {"stepgravel", {}},
    };
    for (const auto& c : cases) {
        const SoundFilter filter(c.words);
        EXPECT_FALSE(filter.unfinished()) << c.words;
        std::vector<std::size_t> listed;
        for (std::size_t k = 0; k < std::size(lines); ++k) {
            if (filter.matches(FilteredSound(k, withTabs(lines[k])))) {
                listed.push_back(k);
            }
        }
        EXPECT_EQ(listed, c.listed) << c.words;
    }
}

TEST(SoundFilter, RestrictsNothingWhileAWordIsBeingTyped)
{
    for (const char* word : {"vol<", "pit>-", "ch>=", "vol<x", "flag:", "flag:x"}) {
        const SoundFilter filter(std::string("foot ") + word);
        EXPECT_EQ(filter.unfinished(), word);
        EXPECT_TRUE(filter.matches(FilteredSound(0, withTabs(lines[0]))));
        EXPECT_FALSE(filter.matches(FilteredSound(1, withTabs(lines[1]))));
    }
    EXPECT_FALSE(SoundFilter("size<3").unfinished()) << "no value: a word like any other";
}

TEST(SoundFilter, SaysWhichPartsMatch)
{
    using Parts = std::vector<SoundFilter::Part>;
    const struct
    {
        const char* words;
        SoundColumn column;
        const char* shown;
        Parts parts;
    } cases[] = {
        {"foot", SoundColumn::Sound, "  5: FOOT_FOOT", {{5, 4}, {10, 4}}},
        {"5", SoundColumn::Sound, "  5: FOOT55", {{2, 1}}},
        {"t_s oo", SoundColumn::Sound, "  5: FOOT_STEP", {{6, 2}, {8, 3}}},
        {"foot 5", SoundColumn::Samples, "foot5 foot", {{0, 4}, {6, 4}}},
        {"#oa", SoundColumn::Letters, "#OA #oa", {{4, 3}}},
        {"oa", SoundColumn::Letters, "#OA #oa", {{1, 2}, {5, 2}}},
        {"pit<0 vol", SoundColumn::Values, "VOL80 PIT-05", {{6, 6}}},
        {"vol>5", SoundColumn::Values, "PIT-05", {}},
        {"flag:pl", SoundColumn::Flags, "P L", {{0, 1}, {2, 1}}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SoundFilter(c.words).matchingParts(c.shown, c.column), c.parts) << c.words;
    }
}

} // namespace
