// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineEditor.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

class LineEditorTest : public testing::Test
{
protected:
    LineEditorTest()
    {
        for (const char* line : {"FIRST:>>>a>>>>VOL08>P>CH50>PIT-05>RAD08>#ab", "LOSSY:>a>VOL100>",
                                 "EMPTY:>>>>>>>>>>>>", "SHORT:>b>VOL8>"}) {
            catalogue.append(withTabs(line), withTabs(line), 0);
        }
    }

    const std::string& line(std::size_t number) const { return catalogue.currentLine(number); }

    SoundCatalogue catalogue;
    LineEditor editor{catalogue};
    ScriptedDialogs silent;
};

TEST_F(LineEditorTest, ChangesTheLineOnlyOnAccept)
{
    editor.select(0);
    EXPECT_FALSE(editor.edited());
    EXPECT_EQ(editor.setValue(ValueBox::Vol, "0", true), "1");
    EXPECT_TRUE(editor.edited());
    editor.setFlag(LineFlag::P, false);
    editor.setFlag(LineFlag::L, true);
    editor.setValue(ValueBox::Pit, "150", true);
    editor.setValue(ValueBox::Rad, "", true);
    editor.setValue(ValueBox::Ch, "7", true);
    EXPECT_EQ(line(0), withTabs("FIRST:>>>a>>>>VOL08>P>CH50>PIT-05>RAD08>#ab"));
    EXPECT_FALSE(catalogue.differsFromFile());

    EXPECT_TRUE(editor.accept(silent));
    EXPECT_EQ(line(0), withTabs("FIRST:>>>a>>>>VOL01>      L>CH07>PIT99>>#ab"));
    EXPECT_FALSE(editor.edited());
    EXPECT_TRUE(catalogue.differsFromFile());
}

TEST_F(LineEditorTest, IsNotEditedWhenTheValuesComeBack)
{
    editor.select(0);
    editor.setValue(ValueBox::Vol, "9", true);
    editor.setFlag(LineFlag::V, true);
    editor.setFlag(LineFlag::V, false);
    EXPECT_TRUE(editor.edited());
    editor.setValue(ValueBox::Vol, "8", true);
    EXPECT_FALSE(editor.edited());
    EXPECT_TRUE(editor.accept(silent));
    EXPECT_FALSE(catalogue.differsFromFile());
}

TEST_F(LineEditorTest, HoldsOneOfRAndN)
{
    const auto flags = [this] { return std::pair(editor.hasFlag(LineFlag::R), editor.hasFlag(LineFlag::N)); };
    editor.select(0);
    EXPECT_EQ(flags(), std::pair(false, false));
    editor.setFlag(LineFlag::R, true);
    EXPECT_EQ(flags(), std::pair(true, false));
    editor.setFlag(LineFlag::N, true);
    EXPECT_EQ(flags(), std::pair(false, true));
    editor.setFlag(LineFlag::R, false); // the R box is cleared after N was checked
    EXPECT_EQ(flags(), std::pair(false, true));
    editor.setFlag(LineFlag::R, true);
    editor.setFlag(LineFlag::N, false);
    EXPECT_EQ(flags(), std::pair(true, false));
    EXPECT_TRUE(editor.hasFlag(LineFlag::P));
    EXPECT_FALSE(editor.hasFlag(LineFlag::V));
}

TEST_F(LineEditorTest, RefusesValuesWithoutASample)
{
    const std::string before = line(2);
    editor.select(2);
    EXPECT_TRUE(editor.accept(silent));
    editor.setFlag(LineFlag::L, true);
    ScriptedDialogs dialogs;
    EXPECT_FALSE(editor.accept(dialogs));
    editor.setFlag(LineFlag::L, false);
    editor.setValue(ValueBox::Vol, "5", true);
    EXPECT_FALSE(editor.accept(dialogs));
    ASSERT_EQ(dialogs.said().size(), 2U);
    EXPECT_EQ(dialogs.said()[0].kind, "exclamation");
    EXPECT_TRUE(editor.edited());
    EXPECT_EQ(line(2), before);
    EXPECT_FALSE(catalogue.differsFromFile());
}

TEST_F(LineEditorTest, AsksBeforeWordsOfTheLineAreLost)
{
    const std::string before = line(1);
    editor.select(1);
    editor.setFlag(LineFlag::L, true);
    ScriptedDialogs dialogs{Answer::No, Answer::Yes};
    EXPECT_FALSE(editor.accept(dialogs));
    EXPECT_EQ(line(1), before);
    EXPECT_TRUE(editor.edited());
    EXPECT_TRUE(editor.accept(dialogs));
    EXPECT_EQ(line(1), withTabs("LOSSY:>>>a>>>>VOL10>      L>>>>"));
}

TEST_F(LineEditorTest, MayLeaveAsksAboutValuesThatWereNotAccepted)
{
    editor.select(3);
    EXPECT_TRUE(editor.mayLeave(silent));

    const std::string before = line(3);
    editor.setValue(ValueBox::Vol, "9", true);
    ScriptedDialogs dialogs{Answer::Cancel, Answer::No, Answer::Yes};
    EXPECT_FALSE(editor.mayLeave(dialogs));
    EXPECT_TRUE(editor.edited());
    EXPECT_EQ(line(3), before);

    EXPECT_TRUE(editor.mayLeave(dialogs));
    EXPECT_FALSE(editor.edited());
    EXPECT_EQ(editor.record().Vol.trimmed(), "VOL08");
    EXPECT_EQ(line(3), before);

    editor.setValue(ValueBox::Vol, "9", true);
    EXPECT_TRUE(editor.mayLeave(dialogs));
    EXPECT_EQ(line(3), withTabs("SHORT:>>>b>>>>VOL09>>>>>"));
    EXPECT_EQ(dialogs.conversation(Language::English).front(),
              "Yes/No/Cancel | Accept values | Values not accepted. Accept them?");
    EXPECT_EQ(dialogs.said().front().text.french, "Valeurs non acceptées. Les accepter ?");
}

// Values that cannot be accepted are not lost by answering Yes.
TEST_F(LineEditorTest, StaysWhenTheAcceptIsRefused)
{
    editor.select(2);
    editor.setValue(ValueBox::Vol, "5", true);
    ScriptedDialogs dialogs{Answer::Yes};
    EXPECT_FALSE(editor.mayLeave(dialogs));
    EXPECT_TRUE(editor.edited());
}

TEST_F(LineEditorTest, EditsNoProtectedLineAndNoLineAtAll)
{
    for (std::size_t number = catalogue.size(); number < 30; ++number) {
        catalogue.append(withTabs("N:>a>VOL08>"), withTabs("N:>a>VOL08>"), 0);
    }
    for (const std::optional<std::size_t> number :
         {std::optional<std::size_t>(), std::optional<std::size_t>(27), std::optional<std::size_t>(30)}) {
        editor.select(number);
        EXPECT_FALSE(editor.canEdit());
        EXPECT_EQ(editor.record(), SoundLine());
        editor.setValue(ValueBox::Vol, "5", true);
        EXPECT_FALSE(editor.accept(silent));
    }
    EXPECT_FALSE(catalogue.differsFromFile());
    editor.select(28);
    EXPECT_TRUE(editor.canEdit());
}

// Several lines at once

class SeveralLinesTest : public testing::Test
{
protected:
    SeveralLinesTest()
    {
        while (catalogue.size() < 28) { // 27 is protected
            const std::string number = std::to_string(catalogue.size());
            const std::string line = withTabs("S" + number + ":>>>a>>>>VOL50>>>>>#ab");
            catalogue.append(line, line, 0);
        }
        set(1, "S1:>>>a>>>>VOL98>P>>>>#ab");
        set(2, "S2:>a>VOL100>#ab"); // composing it loses a 0
        set(3, "S3:>>>>>>>>>>>>");  // has no sample
        catalogue.setRecorder(&history);
    }

    void set(std::size_t number, const std::string& text)
    {
        EXPECT_FALSE(catalogue.setCurrentLine(number, withTabs(text)));
    }
    std::string line(std::size_t number) const { return catalogue.currentLine(number); }

    struct Steps : StepRecorder
    {
        void beginStep(const BilingualText& label) override { labels.push_back(label.english); }
        void endStep() override {}
        void record(LineDelta /*delta*/) override {}

        std::vector<std::string> labels;
    };

    SoundCatalogue catalogue;
    Steps history;
    LineEditor editor{catalogue};
};

TEST_F(SeveralLinesTest, TakeOneEditInOneStep)
{
    editor.select({0, 1, 4, 27}, 0);
    EXPECT_EQ(editor.commonText(ValueBox::Vol), std::nullopt) << "they differ";
    EXPECT_EQ(editor.commonText(ValueBox::Ch), "");
    EXPECT_EQ(editor.commonFlag(LineFlag::P), std::nullopt);
    EXPECT_EQ(editor.commonFlag(LineFlag::L), false);
    editor.setFlag(LineFlag::L, true);
    for (int i = 0; i < 10; ++i) {
        EXPECT_TRUE(editor.stepValue(ValueBox::Vol, 1)) << i;
    }
    ScriptedDialogs dialogs;
    EXPECT_TRUE(editor.accept(dialogs));
    EXPECT_EQ(line(0), withTabs("S0:>>>a>>>>VOL60>      L>>>>#ab"));
    EXPECT_EQ(line(1), withTabs("S1:>>>a>>>>>P     L>>>>#ab")) << "as far as it can go";
    EXPECT_EQ(line(27), withTabs("S27:>>>a>>>>VOL50>>>>>#ab"));
    EXPECT_EQ(history.labels, std::vector<std::string>{"Accept values, 4 sounds"});
    EXPECT_EQ(editor.report().english, "3 lines changed; left out: 27 (protected)");
    EXPECT_EQ(editor.report().french, "3 lignes modifiées ; laissées : 27 (protégées)");
    EXPECT_FALSE(editor.edited());
}

// A step that no line can take is none, or the way back would begin with steps that change nothing.
TEST_F(SeveralLinesTest, StepsEndWithTheLastLineThatCanTakeThem)
{
    editor.select(0);
    EXPECT_FALSE(editor.stepValue(ValueBox::Ch, 1)) << "an empty one is the highest";
    editor.select(1);
    EXPECT_TRUE(editor.stepValue(ValueBox::Vol, 10));
    EXPECT_EQ(editor.commonText(ValueBox::Vol), "");
    EXPECT_FALSE(editor.stepValue(ValueBox::Vol, 1));
    EXPECT_TRUE(editor.stepValue(ValueBox::Vol, -1));
    EXPECT_EQ(editor.commonText(ValueBox::Vol), "99");
    editor.setValue(ValueBox::Vol, "", true);
    EXPECT_FALSE(editor.stepValue(ValueBox::Vol, 1));
    EXPECT_TRUE(editor.stepValue(ValueBox::Vol, -1));
    EXPECT_EQ(editor.commonText(ValueBox::Vol), "99");
}

TEST_F(SeveralLinesTest, AreAskedAboutOnceAndLeaveOutWhatRefuses)
{
    editor.select({0, 2, 3}, 0);
    editor.setFlag(LineFlag::L, true);
    ScriptedDialogs dialogs{Answer::No, Answer::Yes};
    EXPECT_FALSE(editor.accept(dialogs));
    EXPECT_TRUE(history.labels.empty());
    EXPECT_TRUE(editor.edited()) << "nothing typed is lost";
    EXPECT_TRUE(editor.accept(dialogs));
    EXPECT_EQ(line(2), withTabs("S2:>>>a>>>>VOL10>      L>>>>#ab"));
    EXPECT_EQ(line(3), withTabs("S3:>>>>>>>>>>>>"));
    ASSERT_EQ(dialogs.said().size(), 3U);
    EXPECT_EQ(dialogs.said()[0].details.english, "2: S2\nLost: [VOL100]\nNew: [VOL10]");
    EXPECT_EQ(dialogs.said()[2].kind, "exclamation");
    EXPECT_EQ(dialogs.said()[2].details.english.substr(0, 27), "3: This line has no sample:");
    EXPECT_EQ(editor.report().english, "2 lines changed; left out: 3");
}

TEST_F(SeveralLinesTest, KeepALineThatTheEditDoesNotChange)
{
    editor.select({0, 2}, 0);
    editor.setValue(ValueBox::Vol, "10", true); // what 2 is read with
    ScriptedDialogs dialogs;
    EXPECT_TRUE(editor.accept(dialogs));
    EXPECT_EQ(line(0), withTabs("S0:>>>a>>>>VOL10>>>>>#ab"));
    EXPECT_EQ(line(2), withTabs("S2:>a>VOL100>#ab"));
}

TEST(RestoreLine, PutsTheOriginalBack)
{
    SoundCatalogue catalogue;
    catalogue.append("NEW:\ta\t", "OLD:\ta\t", 0);
    catalogue.append("SAME:\ta\t", "SAME:\ta\t", 0);
    ScriptedDialogs dialogs{Answer::No, Answer::Yes, Answer::Yes};
    const auto restore = [&](std::size_t number) {
        return restoreLines(catalogue, {&number, 1}, dialogs).has_value();
    };
    EXPECT_FALSE(restore(0));
    EXPECT_EQ(catalogue.currentLine(0), "NEW:\ta\t");
    EXPECT_TRUE(restore(1));
    EXPECT_FALSE(catalogue.differsFromFile());
    EXPECT_TRUE(restore(0));
    EXPECT_EQ(catalogue.currentLine(0), "OLD:\ta\t");
    EXPECT_EQ(catalogue.listEntry(0).substr(0, 8), "  0: OLD");
    EXPECT_TRUE(catalogue.differsFromFile());
    EXPECT_EQ(dialogs.conversation(Language::English).front(), "Yes/No | Line | Restore Original line");
    EXPECT_EQ(dialogs.conversation(Language::French).front(),
              "Yes/No | Ligne | Restaurer la ligne d'origine");
}

} // namespace
