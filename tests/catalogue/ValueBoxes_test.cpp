// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ValueBoxes.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

constexpr auto Vol = ValueBox::Vol;
constexpr auto Pit = ValueBox::Pit;
constexpr auto Rad = ValueBox::Rad;
constexpr auto Ch = ValueBox::Ch;

struct BoxCase
{
    ValueBox box;
    const char* typed;
    const char* text;
    const char* field;
};

// clang-format off
const BoxCase boxCases[] = {
    {Vol, "", "", ""}, {Vol, "0", "1", "VOL01"}, {Vol, "00", "1", "VOL01"}, {Vol, "-5", "1", "VOL01"},
    {Vol, "x", "1", "VOL01"}, {Vol, " ", "1", "VOL01"}, {Vol, " 5", "", ""}, {Vol, "5", "5", "VOL05"},
    {Vol, "08", "08", "VOL08"}, {Vol, "99", "99", "VOL99"}, {Vol, "100", "10", "VOL10"},
    {Vol, "5x", "5x", "VOL05"},
    {Pit, "", "", ""}, {Pit, "0", "", ""}, {Pit, "x", "", ""}, {Pit, "150", "99", "PIT99"},
    {Pit, "99", "99", "PIT99"}, {Pit, "100", "99", "PIT99"}, {Pit, "-5", "-5", "PIT-05"},
    {Pit, "-05", "-05", "PIT-05"}, {Pit, "-99", "-99", "PIT-99"}, {Pit, "007", "007", "PIT07"},
    {Pit, " 7", " 7", "PIT07"}, {Pit, "--5", "", ""},
    {Rad, "", "", ""}, {Rad, "0", "", ""}, {Rad, "-1", "", ""}, {Rad, "8", "8", "RAD08"},
    {Rad, "08", "08", "RAD08"}, {Rad, "123", "12", "RAD12"}, {Rad, "x", "", ""}, {Rad, "1x", "1x", "RAD01"},
    {Ch, "", "", ""}, {Ch, "0", "", ""}, {Ch, "-1", "", ""}, {Ch, "50", "50", "CH50"},
    {Ch, "100", "10", "CH10"}, {Ch, "1", "1", "CH01"},
};
// clang-format on

TEST(ValueBoxes, CorrectTheTextAndMakeTheField)
{
    for (const BoxCase& c : boxCases) {
        for (const bool userIsTyping : {false, true}) {
            SCOPED_TRACE(static_cast<int>(c.box));
            SCOPED_TRACE(c.typed);
            const std::string text = correctedBoxText(c.box, c.typed, userIsTyping);
            EXPECT_EQ(text, c.text);
            EXPECT_EQ(fieldFromBox(c.box, text), c.field);
        }
    }
}

// Or "-5" and "-05" could not be typed.
TEST(ValueBoxes, LetAMinusStandInThePitchWhileItIsTyped)
{
    for (const char* typed : {"-", "-0"}) {
        EXPECT_EQ(correctedBoxText(Pit, typed, true), typed);
        EXPECT_EQ(correctedBoxText(Pit, typed, false), "");
        EXPECT_EQ(fieldFromBox(Pit, typed), "");
        EXPECT_EQ(correctedBoxText(Rad, typed, true), "");
        EXPECT_EQ(correctedBoxText(Ch, typed, true), "");
        EXPECT_EQ(correctedBoxText(Vol, typed, true), "1");
    }
    EXPECT_EQ(correctedBoxText(Pit, "-00", true), "");
}

TEST(ValueBoxes, ShowTheDigitsOfTheFieldAsTheyStand)
{
    EXPECT_EQ(boxFromField(Vol, "VOL08"), "08");
    EXPECT_EQ(boxFromField(Pit, "PIT-05"), "-05");
    EXPECT_EQ(boxFromField(Rad, "RAD00   "), "00");
    EXPECT_EQ(boxFromField(Ch, "CH99"), "99");
    for (const ValueBox box : {Vol, Pit, Rad, Ch}) {
        EXPECT_EQ(boxFromField(box, "        "), "");
    }
}

} // namespace
