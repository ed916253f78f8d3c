// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ValueBoxes.h"

#include "catalogue/SoundLine.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr int largestValue = 99;
constexpr int fullValue = 100; // what an empty volume or probability means

int valueOf(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return leadingNumber(text);
}

std::string correctedPitch(std::string_view text, bool userIsTyping)
{
    const int value = valueOf(text);
    if (value == 0) {
        return userIsTyping && (text == "-" || text == "-0") ? std::string(text) : std::string();
    }
    const int kept = std::clamp(value, -largestValue, largestValue);
    return kept == value ? std::string(text.substr(0, maximumLength(ValueBox::Pit))) : std::to_string(kept);
}

std::string correctedVolume(std::string_view text)
{
    if (!text.empty() && valueOf(text) <= 0) {
        return "1";
    }
    return text.starts_with(' ') ? std::string() : std::string(text);
}

bool isPercentage(ValueBox box)
{
    return box == ValueBox::Vol || box == ValueBox::Ch;
}

// No value is the same as 0 for a pitch and the smallest step for a radius.
int steppingValue(ValueBox box, std::string_view text)
{
    return text.empty() && isPercentage(box) ? fullValue : valueOf(text);
}

} // namespace

std::string_view keyword(ValueBox box)
{
    switch (box) {
    case ValueBox::Vol:
        return "VOL";
    case ValueBox::Pit:
        return "PIT";
    case ValueBox::Rad:
        return "RAD";
    case ValueBox::Ch:
        return "CH";
    }
    return {};
}

std::size_t maximumLength(ValueBox box)
{
    return box == ValueBox::Pit ? 3 : 2;
}

std::string correctedBoxText(ValueBox box, std::string_view typed, bool userIsTyping)
{
    const std::string_view text = typed.substr(0, maximumLength(box));
    switch (box) {
    case ValueBox::Vol:
        return correctedVolume(text);
    case ValueBox::Pit:
        return correctedPitch(typed, userIsTyping);
    case ValueBox::Rad:
    case ValueBox::Ch:
        return valueOf(text) <= 0 ? std::string() : std::string(text);
    }
    return {};
}

std::optional<int> heardValue(ValueBox box, std::string_view text)
{
    if (text.empty() && box == ValueBox::Rad) {
        return std::nullopt;
    }
    return steppingValue(box, text);
}

std::string steppedBoxText(ValueBox box, std::string_view text, int by)
{
    const int least = box == ValueBox::Pit ? -largestValue : isPercentage(box) ? 1 : 0;
    const int most = isPercentage(box) ? fullValue : largestValue;
    const int before = steppingValue(box, text);
    const int after = std::clamp(before + by, least, most);
    // A value below the limit, which only a file can have, is not raised by a step down.
    if (after == before || (after < before) != (by < 0)) {
        return std::string(text);
    }
    const bool isNone = after == (isPercentage(box) ? fullValue : 0);
    return isNone ? std::string() : std::to_string(after);
}

int stepsBetween(ValueBox box, std::string_view from, std::string_view to)
{
    return steppingValue(box, to) - steppingValue(box, from);
}

std::string fieldFromBox(ValueBox box, std::string_view text)
{
    const int value = valueOf(text);
    if (text.empty() || (box == ValueBox::Pit && value == 0)) {
        return {};
    }
    return std::string(keyword(box)) + FormatValue(value, 2, '0');
}

std::string boxFromField(ValueBox box, std::string_view field)
{
    return field.starts_with(keyword(box)) ? std::string(RTrimBlanks(field.substr(keyword(box).size())))
                                           : std::string();
}

} // namespace tavrel
