// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "base/CodePageTables.h"

#include <windows.h>

#include <cstdint>

namespace tavrel {

namespace {

constexpr UINT windows1252 = 1252;

UINT systemCodePage()
{
    const UINT page = GetACP();
    return page == CP_UTF8 ? windows1252 : page;
}

std::wstring wideFrom(UINT page, std::string_view bytes)
{
    const int length = static_cast<int>(bytes.size());
    std::wstring wide(bytes.size(), L'\0');
    const int written = MultiByteToWideChar(page, 0, bytes.data(), length, wide.data(), length);
    wide.resize(static_cast<std::size_t>(written));
    return wide;
}

std::string utf8From(std::wstring_view wide)
{
    const int length = static_cast<int>(wide.size());
    std::string text(wide.size() * 3, '\0');
    const int written = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(),
                                            static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<std::size_t>(written));
    return text;
}

// A character of two units gets one "?", as everywhere.
std::wstring withSinglePairs(std::wstring_view wide)
{
    std::wstring single;
    for (const wchar_t unit : wide) {
        if (!IS_LOW_SURROGATE(unit) || single.empty() || !IS_HIGH_SURROGATE(single.back())) {
            single += unit;
        }
    }
    return single;
}

CodePageText codePageFromWide(std::wstring_view text)
{
    CodePageText result;
    const std::wstring wide = withSinglePairs(text);
    const int length = static_cast<int>(wide.size());
    result.bytes.resize(wide.size() * 2);
    BOOL substituted = FALSE;
    const int written =
        WideCharToMultiByte(systemCodePage(), WC_NO_BEST_FIT_CHARS, wide.data(), length, result.bytes.data(),
                            static_cast<int>(result.bytes.size()), "?", &substituted);
    result.bytes.resize(static_cast<std::size_t>(written));
    result.exact = substituted == FALSE;
    return result;
}

template <typename Change>
ByteTable caseTable(Change change)
{
    ByteTable table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        const char byte = static_cast<char>(i);
        std::wstring wide = wideFrom(systemCodePage(), {&byte, 1});
        change(wide.data(), static_cast<DWORD>(wide.size()));
        const CodePageText back = codePageFromWide(wide);
        table[i] = back.exact && back.bytes.size() == 1 ? back.bytes[0] : byte;
    }
    return table;
}

} // namespace

std::string utf8FromCodePage(std::string_view bytes)
{
    return bytes.empty() ? std::string() : utf8From(wideFrom(systemCodePage(), bytes));
}

CodePageText codePageFromUtf8(std::string_view utf8)
{
    return utf8.empty() ? CodePageText{} : codePageFromWide(wideFrom(CP_UTF8, utf8));
}

std::filesystem::path nativePath(std::string_view bytes)
{
    return bytes.empty() ? std::filesystem::path() : std::filesystem::path(wideFrom(systemCodePage(), bytes));
}

CodePageText codePagePath(const std::filesystem::path& path)
{
    return path.empty() ? CodePageText{} : codePageFromWide(path.native());
}

ByteTable upperCaseTable()
{
    return caseTable(CharUpperBuffW);
}

ByteTable lowerCaseTable()
{
    return caseTable(CharLowerBuffW);
}

} // namespace tavrel
