// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Windows1252.h"

namespace tavrel {

namespace {

char16_t unicodeOf(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 ? windows1252Controls[byte - 0x80U] : char16_t{byte};
}

void appendUtf8(std::string& text, char16_t character)
{
    if (character < 0x80) {
        text += static_cast<char>(character);
        return;
    }
    if (character < 0x800) {
        text += static_cast<char>(0xC0U | (character >> 6U));
    } else {
        text += static_cast<char>(0xE0U | (character >> 12U));
        text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
    }
    text += static_cast<char>(0x80U | (character & 0x3FU));
}

} // namespace

std::string utf8FromWindows1252(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        appendUtf8(text, unicodeOf(static_cast<unsigned char>(byte)));
    }
    return text;
}

} // namespace tavrel
