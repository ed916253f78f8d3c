// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/LetterList.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

TEST(LetterList, ShowsTheTitleOfEachLetter)
{
    ReferenceRegister references;
    references.appendBuiltIn({"all levels", "g", "All levels"});
    references.appendUser({"oasis", "oa", "The oasis"});
    const CurrentWad other{"new_wad", "nw", "A new level"};
    const CurrentWad oasis{"oasis", "oa", "The oasis"};
    const struct
    {
        const char* letters;
        CurrentWad current;
        std::vector<std::string> entries;
    } cases[] = {
        {"", {}, {}},
        {"#g #oa #zz", {}, {"#g - All levels", "#oa - The oasis", "#zz - **NO REF**"}},
        {"#g#oa", {}, {"#g - All levels", "#oa - The oasis"}},
        {"#nw #oa", other, {"#nw - new_wad", "#oa - The oasis"}},
        {"#oa", oasis, {"#oa - The oasis"}},
        {"#OA #G", oasis, {"#OA - **NO REF**", "#G - **NO REF**"}},
        {"# #ab", {}, {"# - **NO REF**", "#ab - **NO REF**"}},
        {"#oab", oasis, {"#oab - **NO REF**"}},
    };
    for (const auto& c : cases) {
        SoundLine line;
        line.Letters = c.letters;
        EXPECT_EQ(letterEntries(line, references, c.current, Language::English), c.entries) << c.letters;
    }
    SoundLine line;
    line.Letters = "#g #oa";
    EXPECT_EQ(letterEntries(line, references, {}, Language::French),
              (std::vector<std::string>{"#g - Tous les niveaux", "#oa - The oasis"}));
}

} // namespace
