// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/ScriptStatistics.h"
#include "support/Files.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

std::string repeated(const std::string& text, int times)
{
    std::string result;
    for (int i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

TEST(ScriptStatistics, CountsTheEntriesOfTwoLevels)
{
    using Second = std::optional<EntryCounts>;
    const struct
    {
        const char* what;
        std::string script;
        EntryCounts first;
        Second second;
        std::size_t notices = 0;
    } cases[] = {
        {"each kind, in any letter case",
         "[LEVEL]\r\nTriggerGroup=1\r\nGLOBALTRIGGER=2\r\n organizer=3\r\nx= $2000,$5000,$8000,$9000\r\nend\r\n",
         {1, 1, 1, 4},
         {}},
        {"once a line, but every trigger of it",
         "[level]\ntriggergroup=1 triggergroup=2 organizer=\nX=$2000, $2000, $9000\n;\n",
         {1, 0, 1, 3},
         {}},
        {"triggers may touch and stand inside longer numbers",
         "[level]\n$2000$20000$5000\n.\n",
         {0, 0, 0, 3},
         {}},
        {"comments only when the line starts with one",
         "[level]\n; triggergroup=1 $2000\n;organizer=\n organizer= ; $2000\n;[level]\n.\n",
         {0, 0, 1, 1},
         {}},
        {"the last line is never counted", "[level]\norganizer=1\ntriggergroup=1", {0, 0, 1, 0}, {}},
        {"with its line end neither", "[level]\norganizer=1\ntriggergroup=1\n", {0, 0, 1, 0}, {}},
        {"an empty line behind it saves it", "[level]\norganizer=1\ntriggergroup=1\n\n", {1, 0, 1, 0}, {}},
        {"nor is a level that starts on it", "[level]\norganizer=\n[level]", {0, 0, 1, 0}, {}},
        {"what precedes the first level counts for it",
         "triggergroup=\n[level]\ntriggergroup=\n.",
         {2, 0, 0, 0},
         {}},
        {"two levels", "[level]\n$2000\n[Level] \norganizer=\n.", {0, 0, 0, 1}, EntryCounts{0, 0, 1, 0}},
        {"the line of a level counts for the one before",
         "[level]\n[level] $8000\n$9000 $9000\n.",
         {0, 0, 0, 1},
         EntryCounts{0, 0, 0, 2}},
        {"a level not at the start of its line is none", "[level]\n [level]\n.", {}, {}},
        {"a lone CR ends no line", "[level]\norganizer=\r[level]\n.", {0, 0, 1, 0}, {}},
        {"a third level shows nowhere",
         "[level]\n$2000\n[level]\n$2000\n[level]\n$2000\n$5000\n.",
         {0, 0, 0, 1},
         EntryCounts{0, 0, 0, 1}},
        {"a fourth one is reported",
         "[level]\n$2000\n[level]\n$2000\n[level]\n[level]\n.",
         {0, 0, 0, 1},
         EntryCounts{0, 0, 0, 1},
         1},
        {"32767 is the most", "[level]\n" + repeated("$2000", 32767) + "\n.", {0, 0, 0, 32767}, {}},
        {"one more is reported", "[level]\n" + repeated("$2000", 32768) + "\n.", {0, 0, 0, 32768}, {}, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Result<ScriptStatistics> counted = countScript(c.script);
        if (!counted) {
            ADD_FAILURE() << counted.failure().text.english;
            continue;
        }
        EXPECT_EQ(counted->first, c.first);
        EXPECT_EQ(counted->second, c.second);
        EXPECT_EQ(counted->notices.size(), c.notices);
        for (std::size_t i = 0; i < countedEntries; ++i) {
            EXPECT_EQ(counted->total[i], c.first[i] + c.second.value_or(EntryCounts())[i]);
        }
    }
}

TEST(ScriptStatistics, NeedsALevelAndAFile)
{
    for (const char* const script : {"", "[level]", "[level]\r\n", "triggergroup=\n\n"}) {
        EXPECT_FALSE(countScript(script)) << script;
    }
    const TemporaryFolder root;
    const auto missing = countScriptFile(scriptFile(root.path()));
    ASSERT_FALSE(missing);
    EXPECT_NE(missing.failure().text.english.find("script.txt"), std::string::npos);
    writeBytes(root / "SCRIPT" / "Script.TXT", std::string("\xEF\xBB\xBF[level]\n\0organizer=1\n.", 25));
    const auto counted = countScriptFile(scriptFile(root.path()));
    ASSERT_TRUE(counted);
    EXPECT_EQ(counted->first, (EntryCounts{0, 0, 1, 0}));
}

} // namespace
