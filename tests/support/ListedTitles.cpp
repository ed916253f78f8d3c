// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ListedTitles.h"

#include "base/Titles.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavrel {

void expectListedWindowTitle(std::string_view title)
{
    const auto fits = [title](std::string_view listed) {
        return title == listed || (listed.ends_with(" - ") && title.starts_with(listed));
    };
    EXPECT_TRUE(std::ranges::any_of(
        Title::all(),
        [&](const BilingualText& listed) { return fits(listed.english) || fits(listed.french); }))
        << "not in the table of titles: " << title;
}

} // namespace tavrel
