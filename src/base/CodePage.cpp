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

} // namespace

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
