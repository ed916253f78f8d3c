// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Json.h"

#include "base/Windows1252.h"

#include <array>
#include <cstddef>

namespace tavrel {

namespace {

using Spellings = std::array<std::string, 256>;

std::string spelledInAscii(unsigned char byte)
{
    constexpr std::string_view digits = "0123456789abcdef";
    switch (byte) {
    case '"':
        return R"(\")";
    case '\\':
        return R"(\\)";
    case '\t':
        return R"(\t)";
    default:
        break;
    }
    if (byte < 0x20 || byte == 0x7F) {
        return std::string(R"(\u00)") + digits[byte >> 4U] + digits[byte & 0x0FU];
    }
    return std::string(1, static_cast<char>(byte));
}

// What stands for each byte.
Spellings spellings(bool isWindows1252)
{
    Spellings all;
    for (std::size_t byte = 0; byte < all.size(); ++byte) {
        const auto character = static_cast<char>(byte);
        all[byte] = byte >= 0x80 && isWindows1252 ? utf8FromWindows1252({&character, 1})
                                                  : spelledInAscii(static_cast<unsigned char>(byte));
    }
    return all;
}

void appendText(std::string& text, std::string_view value, const Spellings& spelling)
{
    text += '"';
    for (const char byte : value) {
        text += spelling[static_cast<unsigned char>(byte)];
    }
    text += '"';
}

void appendBytes(std::string& text, std::string_view value)
{
    static const Spellings windows1252 = spellings(true);
    appendText(text, value, windows1252);
}

} // namespace

void JsonObject::startMember(std::string_view name)
{
    m_text += m_isEmpty ? "\"" : ", \"";
    m_text += name;
    m_text += "\": ";
    m_isEmpty = false;
}

JsonObject& JsonObject::bytes(std::string_view name, std::string_view value)
{
    startMember(name);
    appendBytes(m_text, value);
    return *this;
}

JsonObject& JsonObject::bytes(std::string_view name, std::span<const std::string> values)
{
    startMember(name);
    m_text += '[';
    for (std::size_t i = 0; i < values.size(); ++i) {
        m_text += i == 0 ? "" : ", ";
        appendBytes(m_text, values[i]);
    }
    m_text += ']';
    return *this;
}

JsonObject& JsonObject::utf8(std::string_view name, std::string_view value)
{
    static const Spellings unchanged = spellings(false);
    startMember(name);
    appendText(m_text, value, unchanged);
    return *this;
}

JsonObject& JsonObject::number(std::string_view name, std::uint64_t value)
{
    startMember(name);
    m_text += std::to_string(value);
    return *this;
}

JsonObject& JsonObject::null(std::string_view name)
{
    startMember(name);
    m_text += "null";
    return *this;
}

JsonObject& JsonObject::flag(std::string_view name, bool value)
{
    startMember(name);
    m_text += value ? "true" : "false";
    return *this;
}

} // namespace tavrel
