// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FilledText.h"

namespace tavrel {

BilingualText filled(BilingualText pattern, std::initializer_list<TextPart> parts)
{
    constexpr std::string_view place = "{}";
    std::size_t english = 0;
    std::size_t french = 0;
    for (const TextPart& part : parts) {
        english = pattern.english.find(place, english);
        french = pattern.french.find(place, french);
        pattern.english.replace(english, place.size(), part.text.english);
        pattern.french.replace(french, place.size(), part.text.french);
        english += part.text.english.size();
        french += part.text.french.size();
    }
    return pattern;
}

} // namespace tavrel
