// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineEdit.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

constexpr auto Vol = ValueBox::Vol;
constexpr auto Pit = ValueBox::Pit;
constexpr auto Rad = ValueBox::Rad;
constexpr auto Ch = ValueBox::Ch;

LineEdit text(ValueBox box, const char* value)
{
    LineEdit edit;
    edit.value(box) = LineEdit::Value{value};
    return edit;
}

LineEdit by(ValueBox box, int steps)
{
    LineEdit edit;
    edit.value(box) = LineEdit::Value{std::nullopt, steps};
    return edit;
}

LineEdit flag(LineFlag which, bool on)
{
    LineEdit edit;
    edit.setFlag(which, on);
    return edit;
}

LineEdit samples(std::vector<std::string> names)
{
    LineEdit edit;
    edit.samples = std::move(names);
    return edit;
}

TEST(LineEdit, ChangesWhatItNamesOnAnyLine)
{
    const struct
    {
        const char* before;
        LineEdit edit;
        const char* after;
    } cases[] = {
        {"N:>>>a>>>>VOL08>P>CH50>PIT-05>RAD08>#ab", {}, "N:>>>a>>>>VOL08>P>CH50>PIT-05>RAD08>#ab"},
        {"N:>>>a>>>>VOL08>>>>>", text(Vol, "9"), "N:>>>a>>>>VOL09>>>>>"},
        {"N:>>>a>>>>VOL08>>>>>", text(Vol, ""), "N:>>>a>>>>>>>>>"},
        {"N:>>>a>>>>>>>>>#g", text(Pit, "-7"), "N:>>>a>>>>>>>PIT-07>>#g"},
        {"N:>>>a>>>>VOL08>>>>>", by(Vol, 10), "N:>>>a>>>>VOL18>>>>>"},
        {"N:>>>a>>>>VOL95>>>>>", by(Vol, 10), "N:>>>a>>>>>>>>>"},
        {"N:>>>a>>>>VOL05>>>>>", by(Vol, -10), "N:>>>a>>>>VOL01>>>>>"},
        {"N:>>>a>>>>VOL00>>>>>", by(Vol, -1), "N:>>>a>>>>VOL00>>>>>"},
        {"N:>>>a>>>>>>>>>", by(Vol, 1), "N:>>>a>>>>>>>>>"},
        {"N:>>>a>>>>>>>>>", by(Vol, -1), "N:>>>a>>>>VOL99>>>>>"},
        {"N:>>>a>>>>>>CH99>>>", by(Ch, 1), "N:>>>a>>>>>>>>>"},
        {"N:>>>a>>>>>>>>>", by(Ch, -10), "N:>>>a>>>>>>CH90>>>"},
        {"N:>>>a>>>>>>>PIT-01>>", by(Pit, 1), "N:>>>a>>>>>>>>>"},
        {"N:>>>a>>>>>>>>>", by(Pit, -1), "N:>>>a>>>>>>>PIT-01>>"},
        {"N:>>>a>>>>>>>PIT-95>>", by(Pit, -10), "N:>>>a>>>>>>>PIT-99>>"},
        {"N:>>>a>>>>>>>PIT95>>", by(Pit, 10), "N:>>>a>>>>>>>PIT99>>"},
        {"N:>>>a>>>>>>>>RAD01>", by(Rad, -1), "N:>>>a>>>>>>>>>"},
        {"N:>>>a>>>>>>>>>", by(Rad, -1), "N:>>>a>>>>>>>>>"},
        {"N:>>>a>>>>>>>>>", by(Rad, 1), "N:>>>a>>>>>>>>RAD01>"},
        {"N:>>>a>>>>>>>>RAD99>", by(Rad, 1), "N:>>>a>>>>>>>>RAD99>"},
        {"N:>>>a>>>>>    N>>>>", flag(LineFlag::R, true), "N:>>>a>>>>>    R>>>>"},
        {"N:>>>a>>>>>    N>>>>", flag(LineFlag::R, false), "N:>>>a>>>>>    N>>>>"},
        {"N:>>>a>>>>>P   N L>>>>", flag(LineFlag::N, false), "N:>>>a>>>>>P     L>>>>"},
        {"N:>>>a>>>>VOL08>>>>>#ab", samples({"b", "c"}), "N:>>>b c>>>>VOL08>>>>>#ab"},
    };
    for (const auto& c : cases) {
        const SoundLine before = ParseSoundLine(withTabs(c.before));
        EXPECT_EQ(ComposeSoundLine(c.edit.applied(before)), withTabs(c.after)) << c.before;
    }
    LineEdit edit = flag(LineFlag::N, true);
    edit.setFlag(LineFlag::R, true);
    EXPECT_EQ(edit.applied(SoundLine()).FlagRN.trimmed(), "R") << "the last of the two, which share a field";
}

// What an edit between two lines holds makes the one of the other, and so does carrying all parts over.
TEST(LineEdit, IsTheDifferenceOfTwoLines)
{
    const char* const lines[] = {"N:>>>a>>>>VOL08>P>CH50>PIT-05>RAD08>#ab", "N:>>>b c>>>>>  V N>>PIT05>>#g",
                                 "N:>>>a>>>>>    R L>CH01>>RAD99>", "N:>>>>>>>>>>>>"};
    for (const char* from : lines) {
        for (const char* to : lines) {
            const SoundLine before = ParseSoundLine(withTabs(from));
            const SoundLine after = ParseSoundLine(withTabs(to));
            EXPECT_EQ(editBetween(before, after).applied(before), after) << from << to;
            EXPECT_EQ(editBetween(before, before), LineEdit());
            SoundLine carried = editTo(after, {true, true, true}).applied(before);
            EXPECT_EQ(carried.Letters, before.Letters) << "letters are no part that is carried over";
            carried.Letters = after.Letters;
            EXPECT_EQ(carried, after) << from << to;
        }
    }
    const SoundLine first = ParseSoundLine(withTabs(lines[0]));
    const SoundLine second = ParseSoundLine(withTabs(lines[1]));
    EXPECT_EQ(ComposeSoundLine(editTo(second, {true, false, false}).applied(first)),
              withTabs("N:>>>a>>>>>P>>PIT05>>#ab"));
    EXPECT_EQ(ComposeSoundLine(editTo(second, {false, true, false}).applied(first)),
              withTabs("N:>>>a>>>>VOL08>  V N>CH50>PIT-05>RAD08>#ab"));
}

} // namespace
