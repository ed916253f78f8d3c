// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace tavrel {

// Standard input, line by line, in constant memory. LF and CR LF end a line; a lone CR belongs to it.
class InputLines
{
public:
    // Longer than any line of sounds.txt by far.
    static constexpr std::size_t longestLine = 1U << 24U;

    // The next line, valid until the next call. Nothing at the end and on an error.
    std::optional<std::string_view> next();
    // Of the line that next() gave, 1-based.
    std::size_t number() const { return m_number; }
    // std::errc::message_size for a line that is too long.
    std::error_code error() const { return m_error; }

private:
    bool readMore();
    std::string_view take(std::size_t length, std::size_t ending);

    std::string m_buffer;
    std::size_t m_start = 0;    // of what was not given out yet
    std::size_t m_searched = 0; // no LF before this
    std::size_t m_number = 0;
    bool m_atEnd = false;
    std::error_code m_error;
};

} // namespace tavrel
