// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"

#include "base/CodePageTables.h"

#include <algorithm>

namespace tavrel {

namespace {

std::string mapped(std::string_view bytes, const ByteTable& table)
{
    std::string result(bytes);
    std::ranges::transform(result, result.begin(),
                           [&table](char c) { return table[static_cast<unsigned char>(c)]; });
    return result;
}

bool isControl(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

// U+0080 to U+009F, which UTF-8 spells with two bytes.
bool isLongControl(std::string_view rest)
{
    return rest.size() > 1 && rest[0] == '\xC2' && static_cast<unsigned char>(rest[1]) < 0xA0;
}

std::string printable(std::string_view utf8, std::string_view kept)
{
    std::string result;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const bool isLong = isLongControl(utf8.substr(i));
        const bool shows = !isLong && (!isControl(utf8[i]) || kept.find(utf8[i]) != std::string_view::npos);
        result += shows ? utf8[i] : '?';
        i += isLong ? 1 : 0;
    }
    return result;
}

} // namespace

std::string shownText(std::string_view bytes)
{
    return printable(utf8FromCodePage(bytes), "\t");
}

std::string bracketed(std::string_view bytes)
{
    return "[" + shownText(bytes) + "]";
}

std::string shownLine(std::string_view bytes)
{
    constexpr std::size_t longest = 120; // a byte is a character
    return shownText(bytes.substr(0, longest)) + (bytes.size() > longest ? "..." : "");
}

std::string withoutControls(std::string_view utf8)
{
    return printable(utf8, "\t\n");
}

std::string displayPath(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string upperCase(std::string_view bytes)
{
    static const ByteTable table = upperCaseTable();
    return mapped(bytes, table);
}

std::string lowerCase(std::string_view bytes)
{
    static const ByteTable table = lowerCaseTable();
    return mapped(bytes, table);
}

bool sameName(std::string_view left, std::string_view right)
{
    return left.size() == right.size() && upperCase(left) == upperCase(right);
}

} // namespace tavrel
