// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace tavrel {

// Text in a field of fixed width: cut to it, or padded with blanks on the right.
template <std::size_t Width>
class FixedText
{
public:
    FixedText() { m_characters.fill(' '); }
    FixedText(std::string_view text) { *this = text; }
    FixedText& operator=(std::string_view text)
    {
        const std::size_t kept = std::min(text.size(), Width);
        std::copy_n(text.begin(), kept, m_characters.begin());
        std::fill(m_characters.begin() + kept, m_characters.end(), ' ');
        return *this;
    }

    // All characters, padding included.
    std::string_view view() const { return {m_characters.data(), Width}; }
    // Without the padding.
    std::string_view trimmed() const { return view().substr(0, view().find_last_not_of(' ') + 1); }
    bool empty() const { return trimmed().empty(); }

    friend bool operator==(const FixedText&, const FixedText&) = default;

private:
    std::array<char, Width> m_characters;
};

} // namespace tavrel
