// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace tavrel {

enum class Language { English, French };

// A caption or message in both display languages, UTF-8.
struct BilingualText
{
    std::string english;
    std::string french;

    BilingualText() = default;
    BilingualText(std::string english, std::string french)
        : english(std::move(english)), french(std::move(french))
    {}

    // The same text in both languages: names, paths, line feeds.
    static BilingualText same(std::string_view text) { return {std::string(text), std::string(text)}; }

    const std::string& in(Language language) const { return language == Language::French ? french : english; }
    bool empty() const { return english.empty() && french.empty(); }

    BilingualText& operator+=(const BilingualText& more)
    {
        english += more.english;
        french += more.french;
        return *this;
    }
    BilingualText& operator+=(std::string_view more)
    {
        english += more;
        french += more;
        return *this;
    }
    friend BilingualText operator+(BilingualText left, const BilingualText& right) { return left += right; }
    friend BilingualText operator+(BilingualText left, std::string_view right) { return left += right; }
    friend bool operator==(const BilingualText&, const BilingualText&) = default;
};

} // namespace tavrel
