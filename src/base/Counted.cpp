// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Counted.h"

namespace tavrel {

BilingualText agreeing(std::size_t count, const BilingualText& one, const BilingualText& several)
{
    return {count == 1 ? one.english : several.english, count < 2 ? one.french : several.french};
}

BilingualText counted(std::size_t count, const BilingualText& one, const BilingualText& several)
{
    return BilingualText::same(std::to_string(count) + " ") + agreeing(count, one, several);
}

BilingualText countedLines(std::size_t count)
{
    return counted(count, {"line", "ligne"}, {"lines", "lignes"});
}

BilingualText countedSounds(std::size_t count)
{
    return counted(count, {"sound", "son"}, {"sounds", "sons"});
}

std::string numberRanges(std::span<const std::size_t> numbers, std::size_t mostEntries)
{
    std::string text;
    std::size_t entries = 0;
    for (std::size_t i = 0; i < numbers.size();) {
        if (entries++ == mostEntries) {
            return text + " ...";
        }
        std::size_t last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) {
            ++last;
        }
        if (last - i < 2) {
            last = i;
        }
        text += (text.empty() ? "" : ", ") + std::to_string(numbers[i]);
        text += last > i ? "-" + std::to_string(numbers[last]) : "";
        i = last + 1;
    }
    return text;
}

} // namespace tavrel
