// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineSearch.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

constexpr auto Down = SearchDirection::Down;
constexpr auto Up = SearchDirection::Up;
using Number = std::optional<std::size_t>;

TEST(LineSearch, LooksThroughTheListedLinesOnce)
{
    SoundCatalogue catalogue;
    for (const char* line : {"DOOR:\topen\tVOL10\t", "CAT:\tm\xE9ow\t\t#g", "door_two:\tOPEN2\t",
                             "DOG:\tbark\tVOL1", "LAST:\topen9\t"}) {
        catalogue.append(line, line, 0);
    }
    const std::vector<std::size_t> all = {0, 1, 2, 3, 4};
    const std::vector<std::size_t> some = {1, 3, 4};
    const struct
    {
        const std::vector<std::size_t>& listed;
        Number from;
        LineSearch search;
        Number found;
    } cases[] = {
        {all, {}, {"open", Down, false}, 0},    {all, 0, {"open", Down, false}, 2},
        {all, 2, {"open", Down, false}, 4},     {all, 4, {"open", Down, false}, {}},
        {all, 0, {"open", Down, true}, 4},      {all, {}, {"DOOR", Down, true}, 0},
        {all, 0, {"DOOR", Down, true}, {}},     {all, {}, {"open", Up, false}, 4},
        {all, 4, {"open", Up, false}, 2},       {all, 2, {"open", Up, true}, 0},
        {all, 0, {"open", Up, false}, {}},      {all, {}, {"#g", Down, true}, 1},
        {all, {}, {"M\xC9OW", Down, false}, 1}, {all, {}, {"M\xC9OW", Down, true}, {}},
        {all, {}, {"VOL1", Up, true}, 3},       {all, {}, {"", Down, false}, {}},
        {some, {}, {"open", Down, false}, 4},   {some, 2, {"o", Down, false}, 3},
        {some, 2, {"o", Up, false}, 1},         {some, 0, {"o", Up, false}, {}},
        {some, 9, {"open", Up, false}, 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.search.text << " from " << (c.from ? static_cast<int>(*c.from) : -1));
        EXPECT_EQ(findNextLine(catalogue, c.listed, c.from, c.search), c.found);
    }
}

} // namespace
