// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace tavrel {

// Tells whether a file still holds what was read. Its time does not count: it may only have been touched.
struct FileStamp
{
    std::uintmax_t size = 0;
    std::uint64_t hash = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

// FNV-1a: quick, and two versions of one text file practically never share it.
std::uint64_t hashOf(std::string_view bytes);
FileStamp stampOf(std::string_view bytes);

// Takes the first line from the front of a text, without its end. CR LF, LF and a lone CR end a line; nothing
// after the last end is no line.
std::optional<std::string_view> takeLine(std::string_view& rest);

struct FileContent
{
    std::string bytes;
    FileStamp stamp;
};

// Only regular files are read and written: a pipe would wait for ever, a folder or a device is no text. Why
// another is refused; nothing for a regular one and for none.
std::error_code refusalOfKind(const std::filesystem::file_status& status);

// What is larger is refused before it is read: lists of lines and scripts may grow, other files do not.
constexpr std::uintmax_t largestLines = 256U << 20U;
constexpr std::uintmax_t largestOther = 16U << 20U;

Result<FileContent> readFile(const std::filesystem::path& file, std::uintmax_t largest = largestLines);

// 8-bit text. A file with NUL bytes (UTF-16 among them) is no such text and fails.
struct TextFile
{
    std::filesystem::path path;
    std::string text; // without the UTF-8 byte order mark, if it had one
    bool hadByteOrderMark = false;
    FileStamp stamp;

    std::vector<std::string_view> lines() const; // as takeLine() finds them
};

Result<TextFile> readTextFile(const std::filesystem::path& file, std::uintmax_t largest = largestOther);
// By its name in a folder, without regard to letter case.
Result<TextFile> readTextFile(const std::filesystem::path& folder, std::string_view name,
                              std::uintmax_t largest = largestOther);
// Of bytes that are there already.
Result<TextFile> asTextFile(const std::filesystem::path& file, FileContent content);

} // namespace tavrel
