// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundLine.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <sstream>
#include <stdexcept>

using namespace tavrel;

namespace {

std::vector<std::string> splitAt(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

std::string flagsOf(const SoundLine& record)
{
    std::string flags;
    for (const auto* field : {&record.FlagP, &record.FlagV, &record.FlagRN, &record.FlagL}) {
        flags += field->trimmed();
    }
    return flags;
}

std::string blankPadded(std::string text, std::size_t width)
{
    text.resize(width, ' ');
    return text;
}

// ">" stands for a TAB, "," ends each sample.
struct ParseCase
{
    const char* line = "";
    const char* name = "";
    const char* samples = "";
    const char* vol = "";
    const char* flags = "";
    const char* ch = "";
    const char* pit = "";
    const char* rad = "";
    const char* letters = "";
};

const ParseCase parseCases[] = {
    {"LARA_FEET:>>lara_feet1 lara_feet2>>VOL08>P V>CH01>PIT05>RAD08>#g #ab",
     "LARA_FEET:", "lara_feet1,lara_feet2,", "VOL08", "PV", "CH01", "PIT05", "RAD08", "#g #ab"},
    // The end of the sample list.
    {"NAME:>a b>VOL08", "NAME:", "a,b,", "VOL08"},
    {"NAME:>a b", "NAME:", "a,"},
    {"NAME:>a b ", "NAME:", "a,b,"},
    {"NAME:>a", "NAME:"},
    {"NAME:>a  b>VOL08", "NAME:", "a,", "VOL08"},
    {"NAME:>a >b>VOL08", "NAME:", "a,", "VOL08"},
    {"NAME:>a b c  VOL08 P RAD3 ", "NAME:", "a,b,c,", "VOL08", "P", "", "", "RAD03"},
    {"NAME: > >a>VOL08", "NAME:", "a,", "VOL08"},
    {"NAME:a>VOL08", "NAME:", "a,", "VOL08"},
    {"NAME:>VOL08>P", "NAME:", "VOL08,"},
    {"NAME:", "NAME:"},
    {"NAME:>", "NAME:"},
    {"NAME: ", "NAME:", ","},
    {"NAME:\xA0", "NAME:"},
    {"", ""},
    {":", ":"},
    {"  a b>VOL08", "", "a,b,", "VOL08"},
    {"A:B:>a>", "A:", "B:,"},
    // Values.
    {"N:>a>VOL7>", "N:", "a,", "VOL07"},
    {"N:>a>VOLx7>", "N:", "a,", "VOL00"},
    {"N:>a>VOL 8>", "N:", "a,", "VOL00", "L"},
    {"N:>a>VOL-8>", "N:", "a,", "VOL00"},
    {"N:>a>VOL8x>", "N:", "a,", "VOL08"},
    {"N:>a>VOL100>PIT100>RAD100>CH100>", "N:", "a,", "VOL10", "", "CH10", "PIT10", "RAD10"},
    {"N:>a>PIT-5>", "N:", "a,", "", "", "", "PIT-05"},
    {"N:>a>PIT-123>", "N:", "a,", "", "", "", "PIT-12"},
    {"N:>a>PIT--5>", "N:", "a,", "", "", "", "PIT00"},
    {"N:>a>CH-1>RAD-1>", "N:", "a,", "", "", "CH00", "", "RAD00"},
    {"N:>a>VOL07>VOL08>", "N:", "a,", "VOL07"},
    {"N:>a>VOL>VOL08>", "N:", "a,", "VOL00", "L"},
    {"N:>a>RAD08>PIT05>CH01>VOL02>L>", "N:", "a,", "VOL02", "L", "CH01", "PIT05", "RAD08"},
    {"N:>a>VOL08PIT03CH04RAD05", "N:", "a,", "VOL08", "", "CH04", "PIT03", "RAD05"},
    {"N:>a>vol08>p>pit05>rad08>ch01>", "N:", "a,"},
    // At the very end of the line.
    {"N:>a>PIT-", "N:", "a,", "", "", "", "PIT00"},
    {"N:>a>PIT-7", "N:", "a,", "", "", "", "PIT-07"},
    // Keywords inside sample names.
    {"N:>VOL22x RAD33>CH40>", "N:", "VOL22x,RAD33,", "", "", "CH40"},
    {"N:>P V L>", "N:", "P,V,L,"},
    {"N:>a P", "N:", "a,"},
    // Flags.
    {"N:>a>VOL08>P V R L>", "N:", "a,", "VOL08", "PVRL"},
    {"N:>a>VOL08>R N>", "N:", "a,", "VOL08", "N"},
    {"N:>a>VOL08>    N L>", "N:", "a,", "VOL08", "NL"},
    {"N:>a>VOL08>L", "N:", "a,", "VOL08"},
    {"N:>a>VOL08>PVRL>", "N:", "a,", "VOL08", "L"},
    {"N:>a>LOOP >", "N:", "a,", "", "P"},
    {"N:>a>VOL08>#P>", "N:", "a,", "VOL08", "", "", "", "", "#P"},
    {"N:>a>VOL08>P>#P #ab", "N:", "a,", "VOL08", "", "", "", "", "#P #ab"},
    {"N:>a>VOL08>#P>P>#ab", "N:", "a,", "VOL08", "", "", "", "", "#P #ab"},
    {"N:>a>VOL08>>#aV #b", "N:", "a,", "VOL08", "V", "", "", "", "#aV #b"},
    {"N:>a>VOL08>>#CH", "N:", "a,", "VOL08", "", "CH00", "", "", "#CH"},
    // Letters.
    {"N:>a>VOL08>#g#ab", "N:", "a,", "VOL08", "", "", "", "", "#g #ab"},
    {"N:>a>VOL08>##ab", "N:", "a,", "VOL08", "", "", "", "", "# #ab"},
    {"N:>a>VOL08># >#abcdef  ", "N:", "a,", "VOL08", "", "", "", "", "# #abcdef"},
    {"N:>a>VOL08>#a x #b", "N:", "a,", "VOL08", "", "", "", "", "#a #b"},
    {"N:>a#x>VOL08>#c", "N:", "a#x,", "VOL08", "", "", "", "", "#c"},
    {"N:>a>#x>VOL08", "N:", "a,", "VOL08"},
    {"N:>a>VOL#x>", "N:", "a,", "VOL00", "", "", "", "", "#x"},
    {"N:>a#x>RAD08>#c", "N:", "a#x,", "", "", "", "", "RAD08", "#x #c"},
    {"N:>#g", "N:", "", "", "", "", "", "", "#g"},
    {"a#:>a>", "a#:", "a,"},
    {"ab#:>a>", "ab#:", "a,", "", "", "", "", "", "#:"},
    {"VOLCANO#x:>a>RAD08>", "VOLCANO#x:", "a,", "", "", "", "", "RAD08", "#x:"},
    // The width of the name, and bytes above 127.
    {"ABCDEFGHIJKLMNOPQRSTUVW:>a>", "ABCDEFGHIJKLMNOPQRSTUVW:", "a,"},
    {"ABCDEFGHIJKLMNOPQRSTUVWX:>a>", "ABCDEFGHIJKLMNOPQRSTUVWX", "a,"},
    {"\xC9T\xC9:>caf\xE9 a\xA0z>VOL50>P>>#\xFF\xE9", "\xC9T\xC9:", "caf\xE9,a\xA0z,", "VOL50", "P", "", "",
     "", "#\xFF\xE9"},
};

TEST(ParseSoundLine, ReadsEveryField)
{
    for (const ParseCase& expected : parseCases) {
        SCOPED_TRACE(expected.line);
        const SoundLine record = ParseSoundLine(withTabs(expected.line));
        const std::vector<std::string> samples = splitAt(expected.samples, ',');
        std::string sampleText;
        for (const std::string& sample : samples) {
            sampleText += sample + " ";
        }
        EXPECT_EQ(record.Name.trimmed(), expected.name);
        EXPECT_EQ(record.Samples, samples);
        EXPECT_EQ(record.SampleText.view(), blankPadded(sampleText, 32));
        EXPECT_EQ(record.Vol.trimmed(), expected.vol);
        EXPECT_EQ(flagsOf(record), expected.flags);
        EXPECT_EQ(record.Ch.trimmed(), expected.ch);
        EXPECT_EQ(record.Pit.trimmed(), expected.pit);
        EXPECT_EQ(record.Rad.trimmed(), expected.rad);
        EXPECT_EQ(record.Letters, expected.letters);
    }
}

TEST(ParseSoundLine, KeepsEachFlagInItsOwnField)
{
    const SoundLine record = ParseSoundLine(withTabs("N:>a>VOL08>P V R L>"));
    EXPECT_EQ(record.FlagP.view(), "P ");
    EXPECT_EQ(record.FlagV.view(), "V ");
    EXPECT_EQ(record.FlagRN.view(), "R ");
    EXPECT_EQ(record.FlagL.view(), "L ");
    EXPECT_EQ(record.Vol.view(), "VOL08   ");
}

TEST(ParseSoundLine, TakesFiftySamplesAndNoMore)
{
    std::string line = "N:\t";
    for (int i = 1; i <= 50; ++i) {
        line += "s" + std::to_string(i) + " ";
    }
    const SoundLine record = ParseSoundLine(line);
    ASSERT_EQ(record.sampleCount(), 50U);
    EXPECT_EQ(record.Samples.back(), "s50");
    EXPECT_EQ(record.SampleText.view(), "s1 s2 s3 s4 s5 s6 s7 s8 s9 s10 s");
    EXPECT_EQ(ParseSoundLine(line + "dropped").sampleCount(), 50U);
    EXPECT_THROW(ParseSoundLine(line + "s51 "), std::out_of_range);
    EXPECT_THROW(ParseSoundLine(line + "s51\t"), std::out_of_range);
}

TEST(ParseSoundLine, ReadsALineOfTenThousandCharacters)
{
    const std::string name(10'000, 'x');
    const SoundLine record = ParseSoundLine("N:\t" + name + "\tVOL08\tP\t" + name + "\t#ab");
    EXPECT_EQ(record.Samples, std::vector<std::string>{name});
    EXPECT_EQ(record.SampleText.view(), std::string(32, 'x'));
    EXPECT_EQ(record.Vol.trimmed(), "VOL08");
    EXPECT_EQ(flagsOf(record), "P");
    EXPECT_EQ(record.Letters, "#ab");
    EXPECT_EQ(ParseSoundLine(std::string(10'000, '#')).Letters.size(), 2U * 9'998 - 1);
    EXPECT_EQ(ParseSoundLine(std::string(10'000, ' ')).sampleCount(), 0U);
}

struct ComposeCase
{
    const char* name = "";
    const char* samples = "";
    const char* vol = "";
    const char* p = "";
    const char* v = "";
    const char* rn = "";
    const char* l = "";
    const char* ch = "";
    const char* pit = "";
    const char* rad = "";
    const char* letters = "";
    const char* line = "";
};

const ComposeCase composeCases[] = {
    {"LARA_FEET:", "lara_feet1 lara_feet2 ", "VOL08", "P", "V", "", "", "CH01", "PIT05", "RAD08", "#g #ab",
     "LARA_FEET:>>lara_feet1 lara_feet2>>VOL08>P V>CH01>PIT05>RAD08>#g #ab"},
    {"", "", "", "", "", "", "", "", "", "", "", ">>>>>>>>>>>>"},
    // Tabs by the length of the name, ":" included.
    {"SEVEN7:", "a", "", "", "", "", "", "", "", "", "", "SEVEN7:>>>a>>>>>>>>>"},
    {"EIGHT88:", "a", "", "", "", "", "", "", "", "", "", "EIGHT88:>>a>>>>>>>>>"},
    {"SIXTEEN_LETTERS:", "a", "", "", "", "", "", "", "", "", "", "SIXTEEN_LETTERS:>a>>>>>>>>>"},
    {"NO_COLON", "a", "", "", "", "", "", "", "", "", "", ">>>a>>>>>>>>>"},
    {"A:B", "a", "", "", "", "", "", "", "", "", "", "A:>>>a>>>>>>>>>"},
    // Tabs by the length of the sample text.
    {"N:", "1234567", "", "", "", "", "", "", "", "", "", "N:>>>1234567>>>>>>>>>"},
    {"N:", "12345678", "", "", "", "", "", "", "", "", "", "N:>>>12345678>>>>>>>>"},
    {"N:", "1234567890123456", "", "", "", "", "", "", "", "", "", "N:>>>1234567890123456>>>>>>>"},
    {"N:", "123456789012345678901234", "", "", "", "", "", "", "", "", "",
     "N:>>>123456789012345678901234>>>>>>"},
    {"N:", "12345678901234567890123456789012345", "", "", "", "", "", "", "", "", "",
     "N:>>>12345678901234567890123456789012>>>>>>"},
    // The flag column is positional.
    {"N:", "a", "", "P", "", "", "", "", "", "", "", "N:>>>a>>>>>P>>>>"},
    {"N:", "a", "", "", "", "R", "", "", "", "", "", "N:>>>a>>>>>    R>>>>"},
    {"N:", "a", "", "", "", "", "L", "", "", "", "", "N:>>>a>>>>>      L>>>>"},
    {"N:", "a", "", "P", "V", "N", "L", "", "", "", "", "N:>>>a>>>>>P V N L>>>>"},
    // Blanks behind the letters go, TABs stay.
    {"N:", "a ", "VOL01", "", "", "", "", "CH02", "PIT-03", "RAD04", "#ab  ",
     "N:>>>a>>>>VOL01>>CH02>PIT-03>RAD04>#ab"},
    {"N:", "a", "", "", "", "", "", "", "", "", "#ab\t ", "N:>>>a>>>>>>>>>#ab>"},
};

TEST(ComposeSoundLine, WritesTheLayout)
{
    for (const ComposeCase& c : composeCases) {
        SCOPED_TRACE(c.line);
        SoundLine record;
        record.Name = c.name;
        record.SampleText = c.samples;
        record.Vol = c.vol;
        record.FlagP = c.p;
        record.FlagV = c.v;
        record.FlagRN = c.rn;
        record.FlagL = c.l;
        record.Ch = c.ch;
        record.Pit = c.pit;
        record.Rad = c.rad;
        record.Letters = c.letters;
        EXPECT_EQ(ComposeSoundLine(record), withTabs(c.line));
    }
}

TEST(ComposeSoundLine, CutsWhatTheFixedWidthsCut)
{
    EXPECT_EQ(ComposeSoundLine(ParseSoundLine(withTabs("ABCDEFGHIJKLMNOPQRSTUVWX:>a>VOL08>"))),
              withTabs(">>>a>>>>VOL08>>>>>"));
    EXPECT_EQ(ComposeSoundLine(ParseSoundLine(withTabs("N:>a12345678 b12345678 c12345678 d12345678>VOL08>"))),
              withTabs("N:>>>a12345678 b12345678 c12345678 d1>VOL08>>>>>"));
}

// What the composer writes, the parser reads back, for any record that the program itself makes.
TEST(ComposeSoundLine, IsReadBackAsItWas)
{
    std::mt19937 random(370);
    const auto pick = [&random](int below) {
        return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    const auto value = [&](const char* keyword) {
        return pick(3) == 0 ? std::string() : keyword + FormatValue(pick(100), 2, '0');
    };
    for (int i = 0; i < 2'000; ++i) {
        SoundLine record;
        record.Name = std::string(static_cast<std::size_t>(1 + pick(23)), 'K') + ":";
        for (int count = 1 + pick(4); count > 0; --count) {
            record.Samples.emplace_back(static_cast<std::size_t>(1 + pick(7)), 's');
        }
        record.refreshSampleText();
        record.Vol = value("VOL");
        record.Ch = value("CH");
        record.Rad = value("RAD");
        record.Pit = pick(2) == 0 ? value("PIT") : "PIT" + FormatValue(-1 - pick(99), 2, '0');
        record.FlagP = pick(2) == 0 ? "P" : "";
        record.FlagV = pick(2) == 0 ? "V" : "";
        record.FlagRN = std::vector{"", "R", "N"}[static_cast<std::size_t>(pick(3))];
        record.FlagL = pick(2) == 0 ? "L" : "";
        record.Letters = std::vector{"", "#g", "#ab", "#g #ab #c9"}[static_cast<std::size_t>(pick(4))];
        const std::string line = ComposeSoundLine(record);
        const SoundLine parsed = ParseSoundLine(line);
        ASSERT_TRUE(parsed == record) << line;
        ASSERT_EQ(ComposeSoundLine(parsed), line);
    }
}

TEST(StockLines, ParseAndComposeBackToThemselves)
{
    ASSERT_EQ(stockLines().size(), 370U);
    for (const std::string& line : stockLines()) {
        EXPECT_EQ(ComposeSoundLine(ParseSoundLine(line)), line);
    }
}

struct LetterCase
{
    const char* line;
    const char* letter;
    const char* result;
};

TEST(AddLetter, GoesToTheEndOfTheLine)
{
    const LetterCase cases[] = {
        {"N:>a>VOL08>>>>>", "ab", "N:>a>VOL08>>>>>#ab"},
        {"N:>a>VOL08>>>>>#ab", "cd", "N:>a>VOL08>>>>>#ab #cd"},
        {"N:>a>VOL08>>>>>#ab", "ab", "N:>a>VOL08>>>>>#ab"},
        {"N:>a>VOL08>>>>>#ab", "a", "N:>a>VOL08>>>>>#ab"},
        {"N:>a>VOL08>>>>>#ab", "AB", "N:>a>VOL08>>>>>#ab #AB"},
        {"N:>a>VOL08>>>>>#g", "ab", "N:>a>VOL08>>>>>#g"},
        {"N:>a>VOL08>>>>>#ab #g", "cd", "N:>a>VOL08>>>>>#ab #g"},
        {"N:>a#b>RAD08", "ab", "N:>a#b>RAD08 #ab"},
        {"N:>a>RAD08", "ab", "N:>a>RAD08#ab"},
        {"", "ab", "#ab"},
    };
    for (const LetterCase& c : cases) {
        SCOPED_TRACE(std::string(c.line) + " + " + c.letter);
        EXPECT_EQ(AddLetter(withTabs(c.line), c.letter), withTabs(c.result));
    }
}

// The lines stand in the composer's layout where they change.
TEST(AddLetterByRecord, GoesInFrontOfTheOthers)
{
    const LetterCase cases[] = {
        {"N:>a>VOL08>", "ab", "N:>>>a>>>>VOL08>>>>>#ab"},
        {"N:>a>VOL8>P>RAD9>#cd", "ab", "N:>>>a>>>>VOL08>P>>>RAD09>#ab #cd"},
        {"N:>a>VOL08>#ab #cd", "cd", "N:>>>a>>>>VOL08>>>>>#ab #cd"},
        {"N:>a>VOL08>#abc", "ab", "N:>>>a>>>>VOL08>>>>>#abc"},
        {"N:>a>VOL08>#g", "ab", "N:>>>a>>>>VOL08>>>>>#ab #g"},
        {"N:>a>#ab>VOL08>", "ab", "N:>>>a>>>>VOL08>>>>>#ab"},
        {"N:", "ab", "N:>>>>>>>>>>>>#ab"},
    };
    for (const LetterCase& c : cases) {
        SCOPED_TRACE(std::string(c.line) + " + " + c.letter);
        EXPECT_EQ(AddLetterByRecord(withTabs(c.line), c.letter), withTabs(c.result));
    }
}

TEST(RemoveLetter, TakesItsNeighboursAlong)
{
    const LetterCase cases[] = {
        {"N:>a>VOL08>#ab", "ab", "N:>>>a>>>>VOL08>>>>>"},
        {"N:>a>VOL08>#ab #c", "a", "N:>>>a>>>>VOL08>>>>>#c"},
        {"N:>a>VOL08>#ab #cd", "ab", "N:>>>a>>>>VOL08>>>>>#cd"},
        {"N:>a>VOL08>#g #ab", "ab", "N:>>>a>>>>VOL08>>>>>#g"},
        {"N:>a>VOL08>#g #ab #cd", "ab", "N:>>>a>>>>VOL08>>>>>#g#cd"},
        {"N:>a>VOL08>#g #abc #cd", "ab", "N:>>>a>>>>VOL08>>>>>#g #cd"},
        {"N:>a>VOL08>#abcd", "a", "N:>>>a>>>>VOL08>>>>>cd"},
        {"N:>a>VOL08>#ab #ab", "ab", "N:>>>a>>>>VOL08>>>>>#ab"},
        // Absent: the line stays as it was, layout and all.
        {"N:>a>VOL8>#ab", "cd", "N:>a>VOL8>#ab"},
        {"N:>a>VOL8>#ab", "AB", "N:>a>VOL8>#ab"},
        {"N:>a#x>VOL8>#ab", "x", "N:>a#x>VOL8>#ab"},
        {"N:>a", "ab", "N:>a"},
        {"", "ab", ""},
    };
    for (const LetterCase& c : cases) {
        SCOPED_TRACE(std::string(c.line) + " - " + c.letter);
        EXPECT_EQ(RemoveLetter(withTabs(c.line), c.letter), withTabs(c.result));
    }
}

TEST(HasFlag, JudgesTheFirstPlaceOnly)
{
    const struct
    {
        const char* line;
        std::size_t start;
        char flag;
        bool present;
    } cases[] = {
        {"P ", 1, 'P', true},     {"P>", 1, 'P', true},    {"P", 1, 'P', false},     {"", 1, 'P', false},
        {"P ", 2, 'P', false},    {"xP ", 2, 'P', true},   {"#P ", 1, 'P', false},   {"#P ", 2, 'P', false},
        {"#P P ", 1, 'P', false}, {"#P P ", 3, 'P', true}, {"P>#P ", 1, 'P', false}, {"#P>P ", 1, 'P', true},
        {"#P>P>", 1, 'P', false}, {"p ", 1, 'P', false},   {"PP ", 1, 'P', true},    {"P\xA0", 1, 'P', false},
        {"a>N>", 9, 'N', false},  {"a>N>", 3, 'N', true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.line) + " from " + std::to_string(c.start));
        EXPECT_EQ(HasFlag(withTabs(c.line), c.start, c.flag), c.present);
    }
}

TEST(FormatValue, PutsThePaddingBehindTheSign)
{
    EXPECT_EQ(FormatValue(5, 2, '0'), "05");
    EXPECT_EQ(FormatValue(80, 2, '0'), "80");
    EXPECT_EQ(FormatValue(-5, 2, '0'), "-05");
    EXPECT_EQ(FormatValue(0, 2, '0'), "00");
    EXPECT_EQ(FormatValue(5, 3, ' '), "  5");
    EXPECT_EQ(FormatValue(-5, 3, ' '), "-  5");
    EXPECT_EQ(FormatValue(1000, 4, ' '), "1000");
    EXPECT_THROW(FormatValue(100, 2, '0'), std::invalid_argument);
    EXPECT_THROW(FormatValue(-100, 2, '0'), std::invalid_argument);
    EXPECT_THROW(FormatValue(1000, 3, ' '), std::invalid_argument);
    EXPECT_EQ(FormatValue(std::numeric_limits<int>::min(), 10, '0'), "-2147483648");
}

TEST(RTrimBlanks, TakesBlanksOnly)
{
    const struct
    {
        const char* text;
        const char* result;
    } cases[] = {{"", ""}, {"   ", ""}, {"a  ", "a"}, {" a b", " a b"}, {"a> ", "a>"}, {"a\xA0", "a\xA0"}};
    for (const auto& c : cases) {
        EXPECT_EQ(RTrimBlanks(withTabs(c.text)), withTabs(c.result));
    }
}

} // namespace
