// SPDX-License-Identifier: GPL-3.0-or-later
// Checks of single lines: what has the fault, what only looks like it, and what the fix makes of it.
#include "support/CheckedProject.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

const std::string none = "none";   // no finding
const std::string noFix = "noFix"; // a finding without a fix

struct LineCase
{
    const char* check;
    std::string line;
    std::string expected;      // the mended line, or one of the above
    std::string original = {}; // the line itself
    Severity severity = Severity::Error;
};

constexpr Severity warning = Severity::Warning;
constexpr Severity note = Severity::Note;

const LineCase cases[] = {
    {"sample-missing", "A:>a b0>>VOL50>>>>>#g", "A:>a b1>>VOL50>>>>>#g"},
    {"sample-missing", "A:>a bb>>VOL50>>>>>#g", "A:>a b1>>VOL50>>>>>#g"},
    {"sample-missing", "A:>a b1x>>VOL50", "A:>a b1>>VOL50", {}, warning},
    {"sample-missing", "A:>b2x b2>>VOL50>>>>>#g", noFix},
    {"sample-missing", "A:>c>>VOL50>>>>>#g", noFix}, // "a" and "b1" have more than a character in between
    {"sample-missing", "A:>sample_one sample_two sample_three>>VOL50>", noFix, {}, warning},
    {"sample-missing", "A:>a B1 Lone>>VOL50>>>>>#g", none},
    {"sample-missing", "A:>a b1", none}, // the last one does not count
    {"sample-missing", "A:>>#g #oa >", none},

    {"value-zero", "A:>a>>VOL00>P", "A:>a>>VOL01>P"},
    {"value-zero", "A:>a>>VOL0>P>CH20", "A:>a>>VOL01>P>CH20"},
    {"value-zero", "A:>a>>VOL50>P>CH00>PIT20", "A:>a>>VOL50>P>>PIT20"},
    {"value-zero", "A:>a>>VOL50>P>CH20>PIT-00>RAD10", "A:>a>>VOL50>P>CH20>>RAD10"},
    {"value-zero", "A:>a>>RAD000 PIT20>", "A:>a>>PIT20>"},
    {"value-zero", "A:>a VOL00 b1>>>", "A:>a VOL01 b1>>>"},
    {"value-zero", "A:>a CH00 b1>>VOL50>", "A:>a b1>>VOL50>"},
    {"value-zero", "A:>vol00 rad00>>VOL10>P>CH01>PIT10", none},
    {"value-zero", "A:>RAD0>>VOL50>", none}, // a sample of that name is there

    {"value-case", "A:>a>>vol50>P", "A:>a>>VOL50>P"},
    {"value-case", "A:>a>>VOL50>P>>Pit-20>rad10", noFix}, // two findings, see below
    {"value-case", "A:>a rad10>>VOL50>", "A:>a RAD10>>VOL50>"},
    {"value-case", "A:>a rad7>>VOL50>", none}, // a sample of that name is there
    {"value-case", "A:>a chop vol radio>>VOL50>", none},

    {"value-digits", "A:>a>>VOL150>P", noFix, {}, warning},
    {"value-digits", "A:>a>>VOL070>P", "A:>a>>VOL70>P", {}, warning},
    {"value-digits", "A:>a>>VOL100>P", "A:>a>>>P", {}, warning},
    {"value-digits", "A:>a>>VOL50>P>CH100>PIT20", "A:>a>>VOL50>P>>PIT20", {}, warning},
    {"value-digits", "A:>a>>VOL50>P>CH>PIT20", "A:>a>>VOL50>P>>PIT20", {}, warning},
    {"value-digits", "A:>a>>VOL50>P>>PIT-005", "A:>a>>VOL50>P>>PIT-05", {}, warning},
    {"value-digits", "A:>a>>VOL50>P>>PIT100", noFix, {}, warning},
    {"value-digits", "A:>a>>VOL50>P>>RAD", noFix, {}, warning},
    {"value-digits", "A:>a>>VOL5>P>CH10>PIT-9>RAD99", none},
    {"value-digits", "A:>a>>VOL50P>>CHX", none},

    {"ch-low", "A:>a>>VOL50>>CH10", noFix, "A:>a>>VOL50>", note},
    {"ch-low", "A:>a>>VOL50>>CH40", noFix, "A:>a>>VOL50>>CH50", note},
    {"ch-low", "A:>a>>VOL50>>CH50", none, "A:>a>>VOL50>>CH50"},
    {"ch-low", "A:>a>>VOL50>>CH60", none, "A:>a>>VOL50>>CH50"},
    {"ch-low", "A:>a>>VOL50>>CH100", none, "A:>a>>VOL50>"},

    {"no-letter", "A:>a>>VOL60>", noFix, "A:>a>>VOL50>", warning},
    {"no-letter", "A:>a>>VOL50>", noFix, "A:>a>>VOL50>>>>>#g", warning},
    {"no-letter", "A:>a>>VOL60>>>>>#oa", none, "A:>a>>VOL50>"},
    {"no-letter", "A:  a>VOL50>", none, "A:>a>>VOL50>>>>"}, // the same words
    {"no-letter", "A:>>>", none, "A:>a>>VOL50>"},

    {"letters-no-samples", "A:>>>>>>>>>#g", "A:>>>>>>>>>"},
    {"letters-no-samples", "A:>>>>#oa #g>", "A:>>>>>"},
    {"letters-no-samples", "A:>a>>>>>>>#g", none},
    {"letters-no-samples", "A:>>>>>>>>>", none},

    {"words-lost", "A:>a>>VOL50>P>oops>#g", noFix, {}, warning},
    {"words-lost", "A:>a>>VOL50>P>>VOL60", noFix, {}, warning},
    {"words-lost", "A:>a b1", noFix, {}, warning},
    {"words-lost", "A:>a>>VOL150>P>", none},                               // value-digits has told it
    {"words-lost", "A:>a>>vol50>P>", none},                                // value-case
    {"words-lost", "A:>a>>VOL50>>>>>#oa #zP ", none},                      // letter-as-word
    {"words-lost", "A:>a>>VOL50>R N>", none},                              // flags-rn
    {"words-lost", "A:>sample_one sample_two sample_three>>VOL50>", none}, // samples-too-long
    {"words-lost", "A: a>VOL5>P V>PIT-0>#g#oa", none},

    {"letter-twice", "A:>a>>VOL50>>>>>#oa #ob #oa", "A:>a>>VOL50>>>>>#oa #ob", {}, warning},
    {"letter-twice", "A:>a>>VOL50>>>>>#g#g #oa", "A:>a>>VOL50>>>>>#g #oa", {}, warning},
    {"letter-twice", "A:>a>>VOL50>>>>>#oa #oab #OA", none},

    {"letter-beside-g", "A:>a>>VOL50>>>>>#oa #g #ob", "A:>a>>VOL50>>>>>#g", {}, note},
    {"letter-beside-g", "A:>a>>VOL50>>>>>#g", none},
    {"letter-beside-g", "A:>a>>VOL50>>>>>#gx #oa", none},

    {"letter-length", "A:>a>>VOL50>>>>>#o #oa", "A:>a>>VOL50>>>>>#o0 #oa", {}, warning},
    {"letter-length", "A:>a>>VOL50>>>>>#oasis", noFix, {}, warning},
    {"letter-length", "A:>a>>VOL50>>>>>#oa #G1", none},
    {"letter-length", "A:>a>>VOL50>>>>>#g #o", none}, // letter-beside-g

    {"letter-as-word", "A:>a>>VOL50>>>>>#xP", noFix},
    {"letter-as-word", "A:>a>>VOL50>>>>>#CH", noFix},
    {"letter-as-word", "A:>a>>VOL50>>>>>#gx", noFix},
    {"letter-as-word", "A:>a>>VOL50>>>>>#Px #xp", none},

    {"letter-unknown", "A:>a>>VOL50>>>>>#oa #zz", noFix, {}, warning},
    {"letter-unknown", "A:>a>>VOL50>>>>>#oa", none},
    {"letter-unknown", "A:>a>>VOL50>>>>>#g #zz", none},

    {"flags-rn", "A:>a>>VOL50>R N>", noFix, {}, warning},
    {"flags-rn", "A:>N R>>VOL50>R>", none},
    {"flags-rn", "A:>a>>VOL50>N L>>>>#R #oa", none},

    {"samples-too-long", "A:>sample_one sample_two sample_three>>VOL50>", noFix},
    {"samples-too-long", "A:>sample_one sample_two sample_ten>>VOL50>", none}, // 32 characters
};

class LineChecks : public testing::Test
{
protected:
    LineChecks()
    {
        for (const char* name : {"a", "b1", "b2y", "b2z", "lone", "rad0", "rad7"}) {
            project.addSample(name);
        }
        project.references.appendUser({"second", "ob", "Another"});
        writeBytes(project.folders.wads / "second.wad", "");
    }

    CheckedProject project;
};

} // namespace

TEST_F(LineChecks, FindTheirFaultAndNothingLikeIt)
{
    for (const LineCase& test : cases) {
        SCOPED_TRACE(std::string(test.check) + " in " + test.line);
        project.catalogue = SoundCatalogue({project.soundsFile.path, {}}, false);
        project.addLine(test.line, test.original.empty() ? test.line : test.original);
        const std::vector<Finding> findings = project.check(test.check);
        if (test.expected == none) {
            EXPECT_TRUE(findings.empty()) << findings.front().text.english;
            continue;
        }
        ASSERT_FALSE(findings.empty());
        EXPECT_EQ(findings.front().severity, test.severity);
        EXPECT_EQ(findings.front().sounds, std::vector<std::size_t>{0});
        EXPECT_FALSE(findings.front().text.english.empty() || findings.front().text.french.empty());
        if (test.expected == noFix) {
            continue;
        }
        ASSERT_EQ(findings.size(), 1U);
        ASSERT_TRUE(findings.front().fix);
        EXPECT_TRUE(findCheck(test.check)->mendable);
        project.apply(findings);
        EXPECT_EQ(project.line(0), withTabs(test.expected));
        EXPECT_TRUE(project.check(test.check).empty()) << "it is found again";
    }
}

TEST_F(LineChecks, MendSeveralFaultsOfALineAtOnce)
{
    project.addLine("A:>a>>vol50>P>CH100 Ch20>pit-20>RAD00");
    project.addLine("B:>a>>VOL50>>>>>#o #g1");
    project.addLine("C:>a>>VOL50>>>>>#oa #o #o0");
    std::vector<Finding> findings = project.check().findings;
    project.apply(findings);
    EXPECT_EQ(project.line(0), withTabs("A:>a>>VOL50>P>CH20>PIT-20>"));
    EXPECT_EQ(project.line(1), withTabs("B:>a>>VOL50>>>>>#o1 #g1")) << "#o0 is taken";
    EXPECT_EQ(project.line(2), withTabs("C:>a>>VOL50>>>>>#oa #o1 #o0"));
}

TEST_F(LineChecks, LeaveProtectedLinesAlone)
{
    for (std::size_t k = 0; k <= 27; ++k) {
        project.addLine("A" + std::to_string(k) + ":>a>>VOL00>P>>>>#oa #oa", "A" + std::to_string(k) + ":>");
    }
    std::vector<Finding> findings = project.check().findings;
    std::erase_if(findings, [](const Finding& finding) { return finding.check == "protected-changed"; });
    project.apply(findings);
    EXPECT_EQ(project.line(26), withTabs("A26:>a>>VOL01>P>>>>#oa"));
    EXPECT_EQ(project.line(27), withTabs("A27:>a>>VOL00>P>>>>#oa #oa"));

    const std::vector<Finding> changed = project.check("protected-changed");
    ASSERT_EQ(changed.size(), 1U);
    EXPECT_EQ(changed.front().sounds, std::vector<std::size_t>{27});
    project.apply(changed);
    EXPECT_EQ(project.line(27), withTabs("A27:>"));
    EXPECT_TRUE(project.check("protected-changed").empty());
}

TEST_F(LineChecks, SayWhatStandsThereAndWhatIsRead)
{
    const struct
    {
        const char* check;
        const char* line;
        BilingualText text;
    } texts[] = {
        {"value-digits", "A:>a>>VOL150>", {"VOL150 reads as VOL15.", "VOL150 est lu comme VOL15."}},
        {"value-digits", "A:>a>>VOL50>>CH>", {"CH reads as CH00.", "CH est lu comme CH00."}},
        {"ch-low",
         "A:>a>>VOL50>>CH10>",
         {"CH10: plays one time in 10; the installed line: always.",
          "CH10 : se joue une fois sur 10 ; la ligne d'origine : à chaque fois."}},
        {"words-lost",
         "A:>a>>VOL50>>oops>",
         {"Lost when the line is rewritten: [oops]", "Perdus quand la ligne est réécrite : [oops]"}},
        {"letter-unknown",
         "A:>a>>VOL50>>>>>#z\xE9",
         {"#zé on one line: no reference has this letter.",
          "#zé sur une ligne : aucune référence n'a cette lettre."}},
    };
    for (const auto& expected : texts) {
        project.catalogue = SoundCatalogue();
        project.addLine(expected.line, "A:>a>>VOL50>");
        const std::vector<Finding> findings = project.check(expected.check);
        ASSERT_EQ(findings.size(), 1U) << expected.line;
        EXPECT_EQ(findings.front().text.english, expected.text.english);
        EXPECT_EQ(findings.front().text.french, expected.text.french);
    }
}
