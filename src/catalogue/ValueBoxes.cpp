// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ValueBoxes.h"

#include "catalogue/SoundLine.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr int largestValue = 99;

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

} // namespace

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
