// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Files.h"
#include "versions/LineDifference.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

struct DifferenceCase
{
    const char* before;
    const char* after;
    LineFields fields;
    const char* english;
    const char* french;
};

TEST(LineDifference, TellsFieldsAndWords)
{
    using enum LineField;
    const DifferenceCase cases[] = {
        {"N:>a>VOL44>>>>>#g", "N:>a>VOL44>>>>>#g", {}, "", ""},
        {"N:>a>VOL44>>>>>",
         "N:>a>VOL60>>>>>#oa",
         {Vol, Letters},
         "VOL 44 → 60, #oa added",
         "VOL 44 → 60, #oa ajoutée"},
        {"OLD:>a>VOL44>", "NEW:>a>VOL44>", {Name}, "name OLD → NEW", "nom OLD → NEW"},
        {"N:>a>PIT-05>",
         "N:>a>PIT05>CH50>",
         {Pit, Ch},
         "PIT -05 → 05, CH 50 added",
         "PIT -05 → 05, CH 50 ajouté"},
        {"N:>a>RAD10>P R>",
         "N:>a>N L>",
         {Rad, Flags},
         "RAD 10 removed, flag P removed, flag R → N, flag L added",
         "RAD 10 enlevé, flag P enlevé, flag R → N, flag L ajouté"},
        {"N:>a>P V R L>", "N:>a>P R L>", {Flags}, "flag V removed", "flag V enlevé"},
        {"N:>a b c>", "N:>a x c>", {Samples}, "sample b → x", "sample b → x"},
        {"N:>a b>", "N:>a b c d>", {Samples}, "samples c d added", "samples c d ajoutés"}, // the tab ends d
        {"N:>a>VOL08>#ab #oa #ab",
         "N:>a>VOL08>#oa #kx",
         {Letters},
         "#kx added, #ab #ab removed",
         "#kx ajoutée, #ab #ab enlevées"},
        {"N:>a>VOL08>#ab #oa",
         "N:>a>VOL08>#oa #ab",
         {Letters},
         "letters in another order",
         "lettres dans un autre ordre"},
        {"N:>a>VOL8>#ab", "N:> a >VOL08>>#ab ", {Text}, "written differently", "écrit autrement"},
        {"N:>a>VOL08>#ab ; mine",
         "N:>a>VOL09>#ab ; yours",
         {Vol, Text},
         "VOL 08 → 09, other text mine → yours",
         "VOL 08 → 09, autre texte mine → yours"},
        {"N:>a b",
         "N:>a c",
         {Text},
         "other text b → c",
         "autre texte b → c"}, // the grammar drops the last name
        {"ABCDEFGHIJKLMNOPQRSTUVWXYZ1:>a>",
         "ABCDEFGHIJKLMNOPQRSTUVWXYZ2:>a>",
         {Name},
         "name ABCDEFGHIJKLMNOPQRSTUVWXYZ1 → ABCDEFGHIJKLMNOPQRSTUVWXYZ2",
         "nom ABCDEFGHIJKLMNOPQRSTUVWXYZ1 → ABCDEFGHIJKLMNOPQRSTUVWXYZ2"},
        {"N:>caf\xE9>", "N:>th\xE9>", {Samples}, "sample café → thé", "sample café → thé"},
    };
    for (const DifferenceCase& c : cases) {
        SCOPED_TRACE(std::string(c.before) + " / " + c.after);
        const std::string before = withTabs(c.before);
        const std::string after = withTabs(c.after);
        EXPECT_EQ(differingFields(before, after), c.fields);
        EXPECT_EQ(describeDifference(before, after).english, c.english);
        EXPECT_EQ(describeDifference(before, after).french, c.french);
    }
}

TEST(LineDifference, ReadsNoMoreThanTheNameOfALineWithTooManySamples)
{
    const std::string line = withSamples("N:", 51);
    EXPECT_EQ(differingFields(line, line + "\t"), LineFields{LineField::Text});
    EXPECT_EQ(differingFields(line, withSamples("M:", 51)), LineFields{LineField::Name});
    EXPECT_FALSE(describeDifference(line, "N:\ta\t").empty());
}

// The marked words of a line, between bars.
std::string marked(std::string line, const std::vector<ByteRange>& ranges)
{
    for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
        line.insert(range->start + range->length, "|");
        line.insert(range->start, "|");
    }
    return line;
}

TEST(LineDifference, MarksTheWordsThatDiffer)
{
    const struct
    {
        const char* before;
        const char* after;
        const char* markedBefore;
        const char* markedAfter;
    } cases[] = {
        {"N: a b VOL44 #g#ab", "N: a x b VOL60 #g", "N: a b |VOL44| #g|#ab|", "N: a |x| b |VOL60| #g"},
        {"N: a", "M: a", "|N:| a", "|M:| a"},
        {"N: a  b", "N: a b", "N: a|  |b", "N: a| |b"},
        {"", "N: a", "", "|N:| |a|"},
        {"N: a", "N: a", "N: a", "N: a"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.before);
        const DifferingWords words = differingWords(c.before, c.after);
        EXPECT_EQ(marked(c.before, words.before), c.markedBefore);
        EXPECT_EQ(marked(c.after, words.after), c.markedAfter);
    }
}

} // namespace
