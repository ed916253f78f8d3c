// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavrel {

// The edit boxes of a line's values. They hold the digits alone; the field of the line has the keyword before
// them.
enum class ValueBox { Vol, Pit, Rad, Ch };

// In characters: two digits, and a sign for the pitch.
std::size_t maximumLength(ValueBox box);

// What the box becomes after each change of its text. A "-" or "-0" may stand in the pitch while the user is
// typing, or no negative value could be typed.
std::string correctedBoxText(ValueBox box, std::string_view typed, bool userIsTyping);

// The field of the line for a corrected text: "VOL08", or empty.
std::string fieldFromBox(ValueBox box, std::string_view text);

// The digits of a field as they stand: "08", "-05".
std::string boxFromField(ValueBox box, std::string_view field);

} // namespace tavrel
