// SPDX-License-Identifier: GPL-3.0-or-later
// Windows-1252, for systems whose own text is UTF-8.
#include "base/CodePage.h"
#include "base/CodePageTables.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <optional>

namespace tavrel {

namespace {

std::optional<char> byteOf(char32_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character < 0x100)) {
        return static_cast<char>(character);
    }
    const auto found =
        std::ranges::find(windows1252Controls, character, [](char16_t c) { return char32_t{c}; });
    if (found == windows1252Controls.end()) {
        return std::nullopt;
    }
    return static_cast<char>(0x80 + (found - windows1252Controls.begin()));
}

// One character from the front of the text; nothing when the bytes there are no UTF-8.
std::optional<char32_t> takeCharacter(std::string_view& text)
{
    const auto byteAt = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byteAt(0);
    std::size_t length = 1;
    char32_t character = lead;
    if (lead >= 0xF0 && lead < 0xF8) {
        length = 4;
        character = lead & 0x07U;
    } else if (lead >= 0xE0) {
        length = 3;
        character = lead & 0x0FU;
    } else if (lead >= 0xC0) {
        length = 2;
        character = lead & 0x1FU;
    }
    bool valid = (lead < 0x80 || lead >= 0xC2) && lead < 0xF5 && text.size() >= length;
    for (std::size_t i = 1; valid && i < length; ++i) {
        valid = (byteAt(i) & 0xC0U) == 0x80U;
        character = (character << 6U) | (byteAt(i) & 0x3FU);
    }
    constexpr std::array<char32_t, 5> shortest = {0, 0, 0x80, 0x800, 0x10000};
    valid = valid && character >= shortest[length];
    text.remove_prefix(valid ? length : 1);
    return valid ? std::optional(character) : std::nullopt;
}

struct CasePair
{
    unsigned char upper;
    unsigned char lower;
};

// Letters outside ASCII whose two cases both stand in Windows-1252.
template <typename Function>
void forEachHighPair(Function apply)
{
    for (unsigned upper = 0xC0; upper <= 0xDE; ++upper) {
        if (upper != 0xD7) { // the multiplication sign
            apply(CasePair{static_cast<unsigned char>(upper), static_cast<unsigned char>(upper + 0x20)});
        }
    }
    for (const CasePair pair : {CasePair{0x8A, 0x9A}, {0x8C, 0x9C}, {0x8E, 0x9E}, {0x9F, 0xFF}}) {
        apply(pair);
    }
}

ByteTable identityTable()
{
    ByteTable table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        table[i] = static_cast<char>(i);
    }
    return table;
}

} // namespace

std::string utf8FromCodePage(std::string_view bytes)
{
    return utf8FromWindows1252(bytes);
}

CodePageText codePageFromUtf8(std::string_view utf8)
{
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::ranges::all_of(utf8, isAscii)) {
        return {std::string(utf8), true};
    }
    CodePageText result;
    while (!utf8.empty()) {
        const std::optional<char32_t> character = takeCharacter(utf8);
        const std::optional<char> byte = character ? byteOf(*character) : std::nullopt;
        result.bytes += byte.value_or('?');
        result.exact = result.exact && byte.has_value();
    }
    return result;
}

std::filesystem::path nativePath(std::string_view bytes)
{
    return utf8FromCodePage(bytes);
}

CodePageText codePagePath(const std::filesystem::path& path)
{
    return codePageFromUtf8(path.native());
}

ByteTable upperCaseTable()
{
    ByteTable table = identityTable();
    for (char c = 'a'; c <= 'z'; ++c) {
        table[static_cast<std::size_t>(c)] = static_cast<char>(c - 'a' + 'A');
    }
    forEachHighPair([&table](CasePair pair) { table[pair.lower] = static_cast<char>(pair.upper); });
    return table;
}

ByteTable lowerCaseTable()
{
    ByteTable table = identityTable();
    for (char c = 'A'; c <= 'Z'; ++c) {
        table[static_cast<std::size_t>(c)] = static_cast<char>(c - 'A' + 'a');
    }
    forEachHighPair([&table](CasePair pair) { table[pair.upper] = static_cast<char>(pair.lower); });
    return table;
}

} // namespace tavrel
