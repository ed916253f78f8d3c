// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

// The edit boxes of a line's values. They hold the digits alone; the field of the line has the keyword before
// them.
enum class ValueBox { Vol, Pit, Rad, Ch };
constexpr std::size_t valueBoxCount = 4;
constexpr std::array<ValueBox, valueBoxCount> allValueBoxes = {ValueBox::Vol, ValueBox::Pit, ValueBox::Rad,
                                                               ValueBox::Ch};

// "VOL"
std::string_view keyword(ValueBox box);

// In characters: two digits, and a sign for the pitch.
std::size_t maximumLength(ValueBox box);

// What the box becomes after each change of its text. A "-" or "-0" may stand in the pitch while the user is
// typing, or no negative value could be typed.
std::string correctedBoxText(ValueBox box, std::string_view typed, bool userIsTyping);

// What is heard: an empty volume or probability is 100, an empty pitch 0. Nothing is known of an empty
// radius.
std::optional<int> heardValue(ValueBox box, std::string_view text);

// The text of the box when its value goes up or down by so much, as far as it can. No digits stand for 100
// and for 0.
std::string steppedBoxText(ValueBox box, std::string_view text, int by);
// How far the one text is from the other, as steps count.
int stepsBetween(ValueBox box, std::string_view from, std::string_view to);

// The field of the line for a corrected text: "VOL08", or empty.
std::string fieldFromBox(ValueBox box, std::string_view text);

// The digits of a field as they stand: "08", "-05".
std::string boxFromField(ValueBox box, std::string_view field);

} // namespace tavrel
