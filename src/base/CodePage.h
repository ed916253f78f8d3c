// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tavrel {

// The level editor's files are 8-bit text in the system code page; where the system has none, or has UTF-8,
// that is Windows-1252. Every byte converts to UTF-8 and back unchanged.

std::string utf8FromCodePage(std::string_view bytes);

// Text that a message takes from a file: control characters show as "?", for a terminal would obey them.
std::string shownText(std::string_view bytes);
// "[foot01]", as messages name what is in a file.
std::string bracketed(std::string_view bytes);
// A whole line as a message shows it, up to 120 characters.
std::string shownLine(std::string_view bytes);
// A message as a whole, in UTF-8, with "?" for control characters but line ends and TABs.
std::string withoutControls(std::string_view utf8);

struct CodePageText
{
    std::string bytes;
    bool exact = true; // false when a character has no place in the code page and stands as "?"
};
CodePageText codePageFromUtf8(std::string_view utf8);

// Names of files and folders: code page bytes <-> what the system opens.
std::filesystem::path nativePath(std::string_view bytes);
CodePageText codePagePath(const std::filesystem::path& path);

// A path as the user reads it, UTF-8.
std::string displayPath(const std::filesystem::path& path);

// One byte to one byte, in the code page.
std::string upperCase(std::string_view bytes);
std::string lowerCase(std::string_view bytes);
// The level editor compares file names without regard to letter case.
bool sameName(std::string_view left, std::string_view right);

} // namespace tavrel
