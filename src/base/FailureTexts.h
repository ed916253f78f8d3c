// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Result.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace tavrel {

// What the system says, in both languages where it is one of the usual errors.
BilingualText errorText(const std::error_code& error);

// "[C:\TRLE\Sounds.txt]", as messages name a file.
std::string bracketedPath(const std::filesystem::path& file);

Failure cannotRead(const std::filesystem::path& file, const std::error_code& error);
Failure cannotWrite(const std::filesystem::path& file, const std::error_code& error);
Failure fileMissing(const std::filesystem::path& folder, std::string_view name);

// What is wrong, then the file and the line (1-based) where it stands.
Failure wrongContent(const std::filesystem::path& file, const BilingualText& what);
Failure wrongLine(const std::filesystem::path& file, std::size_t line, const BilingualText& what);

// The first of them, an empty line between each two, and how many more there are.
BilingualText listOf(const std::vector<Failure>& notices);

// Such a list while it grows: what is not shown is counted, and kept nowhere.
class NoticeList
{
public:
    void add(const BilingualText& notice);
    bool empty() const { return m_count == 0; }
    BilingualText text() const;

private:
    BilingualText m_first;
    std::size_t m_count = 0;
};

// "3, 17, 20", the first of them.
BilingualText listOfNumbers(std::span<const std::size_t> numbers);

} // namespace tavrel
