// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SoundsArgument.h"

#include "base/CodePage.h"
#include "catalogue/SoundFilter.h"
#include "cli/Menu.h"
#include "cli/Opening.h"

#include <algorithm>

namespace tavrel {

namespace {

std::optional<SoundsArgument::Range> parseRange(std::string_view text)
{
    constexpr std::size_t mostDigits = 9;
    const std::size_t dash = text.find('-');
    const std::string first(text.substr(0, dash));
    const std::string last(dash == std::string_view::npos ? first : text.substr(dash + 1));
    if (!isNumber(first, mostDigits) || !isNumber(last, mostDigits)) {
        return std::nullopt;
    }
    const SoundsArgument::Range range{std::stoul(first), std::stoul(last)};
    return range.first <= range.last ? std::optional(range) : std::nullopt;
}

std::vector<std::size_t> numbersIn(const SoundsArgument& argument, std::size_t size)
{
    std::vector<std::size_t> numbers;
    std::vector<bool> known(size, false);
    const auto add = [&](std::size_t first, std::size_t last) {
        for (std::size_t number = first; number <= last && number < size; ++number) {
            if (!known[number]) {
                known[number] = true;
                numbers.push_back(number);
            }
        }
    };
    for (const SoundsArgument::Range& range : argument.ranges) {
        add(range.first, range.last);
    }
    if (argument.ranges.empty() && size > 0) {
        add(0, size - 1);
    }
    return numbers;
}

} // namespace

std::optional<std::vector<SoundsArgument::Range>> parseRanges(std::string_view text)
{
    std::vector<SoundsArgument::Range> ranges;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        const std::optional<SoundsArgument::Range> range = parseRange(text.substr(start, end - start));
        if (!range) {
            return std::nullopt;
        }
        ranges.push_back(*range);
        start = end + 1;
    }
    return ranges;
}

std::optional<std::vector<std::size_t>> soundsOf(const SoundsArgument& argument, const Session& session,
                                                 Console& console)
{
    for (const SoundsArgument::Range& range : argument.ranges) {
        if (!hasSound(session, range.last, console)) {
            return std::nullopt;
        }
    }
    std::vector<std::size_t> numbers = numbersIn(argument, session.catalogue().size());
    if (!argument.where) {
        return numbers;
    }
    const SoundFilter filter(*argument.where);
    if (filter.unfinished()) {
        const std::string word = bracketed(*filter.unfinished());
        console.dialogs.refuse({word + " is neither a comparison nor a flag: write vol<50 or flag:L.",
                                word + " n'est ni une comparaison ni un flag : écrivez vol<50 ou flag:L."});
        return std::nullopt;
    }
    std::erase_if(numbers, [&](std::size_t number) {
        return !filter.matches(FilteredSound(number, session.catalogue().currentLine(number)));
    });
    if (numbers.empty()) {
        const std::string where = bracketed(*argument.where);
        console.dialogs.refuse(
            {"No sound matches " + where + ".", "Aucun son ne correspond à " + where + "."});
        return std::nullopt;
    }
    return numbers;
}

} // namespace tavrel
