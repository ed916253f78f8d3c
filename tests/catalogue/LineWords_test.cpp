// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineWords.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

using Words = std::vector<std::string>;

struct WordCase
{
    const char* line;
    Words vanishing;
    Words appearing;
};

TEST(LineWords, TellsWhatComposingChanges)
{
    const WordCase cases[] = {
        {"N:>a b>VOL08>P V>CH01>PIT-05>RAD08>#g #ab", {}, {}},
        {"N:   a b  VOL8  P  CH1  PIT-5  RAD8  #g#ab", {}, {}},
        {"N:a>RAD8>VOL8>V P>", {}, {}},
        {"N:>>>>>>>>>>>>", {}, {}},
        {"N:", {}, {}},
        {"N:>a b", {"b"}, {}},
        {"N:>a>VOL08>P", {"P"}, {}},
        {"N:>a  b>VOL08>", {"b"}, {}},
        {"N:>a12345678 b12345678 c12345678 d12345678>", {"d12345678"}, {"d1"}},
        {"N:>a>VOL100>CH100>", {"CH100", "VOL100"}, {"CH10", "VOL10"}},
        {"N:>a>RAD>", {"RAD"}, {"RAD00"}},
        {"N:>a>VOL08>R N>", {"R"}, {}},
        {"N:>a>VOL08>VOL08>", {"VOL08"}, {}},
        {"N:>a>VOL08>P P>", {"P"}, {}},
        {"N:>a>VOL08>#ab ; remark", {";", "remark"}, {}},
        {"N:>a>#ab>VOL08>", {"#ab"}, {}},
        {"N:>a>VOL08>#aP #b", {}, {"P"}},
        {"N:>a>VOL08>#CH", {}, {"CH00"}},
        {"N:>a#x>RAD08>#c", {}, {"#x"}},
        {"ABCDEFGHIJKLMNOPQRSTUVWX:>a>VOL08>", {"ABCDEFGHIJKLMNOPQRSTUVWX:"}, {}},
        {"N:>a>vol08>", {"vol08"}, {}},
    };
    for (const WordCase& c : cases) {
        SCOPED_TRACE(c.line);
        const WordChanges changes = wordsChangedByComposing(withTabs(c.line));
        EXPECT_EQ(changes.vanishing, c.vanishing);
        EXPECT_EQ(changes.appearing, c.appearing);
        EXPECT_EQ(changes.none(), c.vanishing.empty() && c.appearing.empty());
    }
}

TEST(LineWords, AsksBeforeWordsAreLost)
{
    ScriptedDialogs none;
    EXPECT_TRUE(confirmComposing(withTabs("N:>a>VOL8>"), none));
    EXPECT_TRUE(none.said().empty());

    ScriptedDialogs dialogs{Answer::Yes, Answer::No};
    EXPECT_TRUE(confirmComposing(withTabs("N:>a>VOL100>#ab caf\xE9"), dialogs));
    EXPECT_FALSE(confirmComposing(withTabs("N:>a>R N>"), dialogs));
    ASSERT_EQ(dialogs.said().size(), 2U);
    const ScriptedDialogs::Said& question = dialogs.said().front();
    EXPECT_EQ(question.kind, "Yes/No");
    EXPECT_TRUE(question.refusalIsDefault);
    for (const std::string* text : {&question.text.english, &question.text.french}) {
        for (const char* word : {"[VOL100]", "[caf\u00E9]", "[VOL10]"}) {
            EXPECT_NE(text->find(word), std::string::npos) << *text;
        }
    }
}

} // namespace
