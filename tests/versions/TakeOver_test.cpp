// SPDX-License-Identifier: GPL-3.0-or-later
#include "RandomCatalogues.h"
#include "catalogue/SoundLine.h"
#include "support/Files.h"
#include "versions/TakeOver.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

LetterMap mapOf(std::string_view text)
{
    const Result<LetterMap> map = parseLetterMap(text);
    EXPECT_TRUE(map) << text;
    return map ? *map : LetterMap();
}

TEST(TakeOver, TakesWholeLinesByteForByteAndMapsTheirLetters)
{
    const struct
    {
        const char* theirs;
        const char* map;
        const char* taken;
    } cases[] = {
        {"N: a  VOL8 ; odd  #ab", "", "N: a  VOL8 ; odd  #ab"},
        {"N:>a#ab>VOL08>#ab #g#abc", "ab=oa", "N:>a#ab>VOL08>#oa #g#abc"}, // a sample is no letter
        {"N:>a>VOL08>#ab #oa #cd", "#ab = #oa", "N:>a>VOL08>#oa #cd"},
        {"N:>a>VOL08>#ab #cd", "ab=cd,cd=ab", "N:>a>VOL08>#cd #ab"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.theirs);
        const TakenParts parts{.letterMap = mapOf(c.map)};
        const Result<std::string> taken = takeOver("M:\tm\t", withTabs(c.theirs), parts);
        ASSERT_TRUE(taken);
        EXPECT_EQ(*taken, withTabs(c.taken));
    }
    for (const char* wrong : {"ab", "ab=", "=oa", "a b=oa", "ab=oa,ab=kx", "ab=oa=kx"}) {
        EXPECT_FALSE(parseLetterMap(wrong)) << wrong;
    }
}

TEST(TakeOver, RefusesWhatWouldBeReadInAnotherWay)
{
    const TakenParts values{.wholeLine = false, .values = true};
    EXPECT_FALSE(takeOver("N:", withTabs("N:>a>VOL08>"), values)) << "without samples, VOL08 would be one";
    const TakenParts samples{.wholeLine = false, .samples = true};
    EXPECT_FALSE(takeOver("N:\ta\t", withTabs("N:>a12345678 b12345678 c12345678 d12345678>"), samples));
    EXPECT_FALSE(takeOver("N:\ta\t", "no name", {}));
}

void expectTaken(const SoundLine& result, const SoundLine& mine, const SoundLine& theirs,
                 const TakenParts& parts)
{
    const SoundLine& values = parts.values ? theirs : mine;
    EXPECT_EQ(result.Name, mine.Name);
    EXPECT_EQ(result.Samples, (parts.samples ? theirs : mine).Samples);
    EXPECT_EQ(result.Letters, (parts.letters ? theirs : mine).Letters);
    EXPECT_EQ(result.Vol, values.Vol);
    EXPECT_EQ(result.Pit, values.Pit);
    EXPECT_EQ(result.Rad, values.Rad);
    EXPECT_EQ(result.Ch, values.Ch);
    EXPECT_EQ(result.FlagP, values.FlagP);
    EXPECT_EQ(result.FlagV, values.FlagV);
    EXPECT_EQ(result.FlagRN, values.FlagRN);
    EXPECT_EQ(result.FlagL, values.FlagL);
}

TEST(TakeOver, TakesThePartsAndKeepsTheRestOfRandomLines)
{
    RandomCatalogues random(3);
    int taken = 0;
    for (int round = 0; round < 5000; ++round) {
        const std::string mine = random.line("M");
        const std::string theirs = random.line("T");
        const std::size_t bits = 1 + random.below(7);
        const TakenParts parts{.wholeLine = false,
                               .values = (bits & 1U) != 0,
                               .samples = (bits & 2U) != 0,
                               .letters = (bits & 4U) != 0};
        SCOPED_TRACE(mine + " / " + theirs + " / " + std::to_string(bits));
        if (const Result<std::string> line = takeOver(mine, theirs, parts)) {
            expectTaken(ParseSoundLine(*line), ParseSoundLine(mine), ParseSoundLine(theirs), parts);
            ++taken;
        }
    }
    EXPECT_GT(taken, 2500) << "the rounds say too little";
}

TEST(TakeOver, GivesChangesAndNamesWhatIsRefused)
{
    SoundCatalogue catalogue({}, false);
    for (int number = 0; number < 28; ++number) { // 27 is protected
        catalogue.append("N:\ta\tVOL08\t", "N:\ta\tVOL08\t", 1);
    }
    const TakenLine lines[] = {{0, "N:\ta\tVOL08\t"}, {1, "N:\tb c\tVOL09\t"}, {2, "N"}, {27, "N:\tb\t"}};
    const TakenLines taken = takeLines(catalogue, lines, {});
    ASSERT_EQ(taken.changes.size(), 1U);
    EXPECT_EQ(taken.changes[0].number, 1U);
    ASSERT_EQ(taken.refused.size(), 2U);
    EXPECT_TRUE(taken.refused[1].text.french.starts_with("Son 27 : "));

    const TemporaryFolder folder;
    writeBytes(folder / "B.WAV", "");
    EXPECT_EQ(missingSamples(taken.changes, folder.path()), std::vector<std::string>({"c"}));
}

} // namespace
