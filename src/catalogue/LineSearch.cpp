// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineSearch.h"

#include "base/CodePage.h"

#include <algorithm>
#include <iterator>

namespace tavrel {

std::optional<std::size_t> findNextLine(const SoundCatalogue& catalogue, std::span<const std::size_t> listed,
                                        std::optional<std::size_t> from, const LineSearch& search)
{
    if (search.text.empty()) {
        return std::nullopt;
    }
    const std::string wanted = search.caseSensitive ? search.text : upperCase(search.text);
    const auto matches = [&](std::size_t number) {
        const std::string& line = catalogue.currentLine(number);
        return (search.caseSensitive ? line : upperCase(line)).find(wanted) != std::string::npos;
    };
    if (search.direction == SearchDirection::Down) {
        const auto first = from ? std::ranges::upper_bound(listed, *from) : listed.begin();
        const auto found = std::find_if(first, listed.end(), matches);
        return found == listed.end() ? std::nullopt : std::optional(*found);
    }
    const auto last = from ? std::ranges::lower_bound(listed, *from) : listed.end();
    const auto found = std::find_if(std::make_reverse_iterator(last), listed.rend(), matches);
    return found == listed.rend() ? std::nullopt : std::optional(*found);
}

} // namespace tavrel
