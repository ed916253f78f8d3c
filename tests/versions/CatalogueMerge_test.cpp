// SPDX-License-Identifier: GPL-3.0-or-later
#include "RandomCatalogues.h"
#include "versions/CatalogueMerge.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <set>

using namespace tavrel;

namespace {

using Lines = std::vector<std::string>;

Lines merged(const CatalogueMerge& merge, const Lines& mine, const Lines& theirs)
{
    Lines lines;
    const auto myViews = viewsOf(mine);
    const auto theirViews = viewsOf(theirs);
    for (const MergedSound& sound : merge.sounds) {
        if (const auto line = lineAfterMerge(sound, myViews, theirViews)) {
            lines.emplace_back(*line);
        }
    }
    return lines;
}

TEST(CatalogueMerge, TakesWhatOneSideChangedAndKeepsMineInAConflict)
{
    const struct
    {
        Lines base;
        Lines mine;
        Lines theirs;
        Lines merged;
        std::size_t conflicts;
    } cases[] = {
        {{"A:1", "B:1"}, {"A:2", "B:1"}, {"A:1", "B:2"}, {"A:2", "B:2"}, 0},
        {{"A:1"}, {"A:2"}, {"A:2"}, {"A:2"}, 0},
        {{"A:1"}, {"A:2"}, {"A:3"}, {"A:2"}, 1},
        {{"A:1", "B:1", "C:1"}, {"A:1", "C:1"}, {"A:1", "B:1", "C:2"}, {"A:1", "C:2"}, 0}, // I took B out
        {{"A:1", "B:1", "C:1"}, {"A:1", "C:1"}, {"A:1", "B:2", "C:1"}, {"A:1", "C:1"}, 1}, // they changed it
        {{"A:1", "B:1", "C:1"}, {"A:1", "B:2", "C:1"}, {"A:1", "C:1"}, {"A:1", "B:2", "C:1"}, 1},
        {{"A:1", "B:1"}, {"A:1", "B:1"}, {"A:1", "X:1", "B:1"}, {"A:1", "X:1", "B:1"}, 0},
        {{"A:1"}, {"A:1", "X:1"}, {"A:1", "X:1"}, {"A:1", "X:1"}, 0}, // both put it in
        {{"A:1"}, {"A:1", "X:1"}, {"A:1", "X:2"}, {"A:1", "X:1"}, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.mine) + testing::PrintToString(c.theirs));
        const CatalogueMerge merge = mergeCatalogues(viewsOf(c.base), viewsOf(c.mine), viewsOf(c.theirs));
        EXPECT_EQ(merged(merge, c.mine, c.theirs), c.merged);
        EXPECT_EQ(merge.conflicts(), c.conflicts);
    }
}

using ByName = std::map<std::string, std::string>;

ByName byName(const Lines& lines)
{
    ByName result;
    for (const std::string& line : lines) {
        result[line.substr(0, line.find(':'))] = line;
    }
    return result;
}

std::optional<std::string> find(const ByName& lines, const std::string& name)
{
    const auto found = lines.find(name);
    return found == lines.end() ? std::nullopt : std::optional(found->second);
}

// Names are sounds here: nothing is renamed and none comes twice.
TEST(CatalogueMerge, AgreesWithAMergeOfNames)
{
    RandomCatalogues random(7);
    int conflicts = 0;
    for (int round = 0; round < 3000; ++round) {
        SCOPED_TRACE(round);
        const Lines base = random.lines(8 + random.below(8), "S");
        const Lines mine = random.changed(base, "M");
        const Lines theirs = random.changed(base, "T");
        const CatalogueMerge merge = mergeCatalogues(viewsOf(base), viewsOf(mine), viewsOf(theirs));
        const ByName of[] = {byName(base), byName(mine), byName(theirs)};
        std::set<std::string> names;
        for (const ByName& side : of) {
            for (const auto& [name, line] : side) {
                names.insert(name);
            }
        }
        // Where both put in something else, or a side's names were paired by their places, names alone do not
        // say what is one sound.
        bool sameNamesInPairs = true;
        for (const MergedSound& sound : merge.sounds) {
            std::set<std::string> found;
            const auto note = [&](const Lines& lines, std::optional<std::size_t> number) {
                if (number) {
                    found.insert(lines[*number].substr(0, lines[*number].find(':')));
                }
            };
            note(base, sound.base);
            note(mine, sound.mine);
            note(theirs, sound.theirs);
            sameNamesInPairs = sameNamesInPairs && found.size() == 1 &&
                               !(sound.outcome == MergeOutcome::Conflict && !sound.base);
        }
        if (!sameNamesInPairs) {
            continue;
        }
        ByName expected;
        std::size_t expectedConflicts = 0;
        for (const std::string& name : names) {
            const std::optional<std::string> b = find(of[0], name);
            const std::optional<std::string> m = find(of[1], name);
            const std::optional<std::string> t = find(of[2], name);
            expectedConflicts += m != b && t != b && m != t ? 1 : 0;
            if (const std::optional<std::string>& line = m == b ? t : m) {
                expected[name] = *line;
            }
        }
        const Lines lines = merged(merge, mine, theirs);
        EXPECT_EQ(byName(lines), expected);
        EXPECT_EQ(lines.size(), expected.size());
        EXPECT_EQ(merge.conflicts(), expectedConflicts);
        conflicts += static_cast<int>(expectedConflicts);
    }
    EXPECT_GT(conflicts, 100) << "the rounds say too little";
}

} // namespace
