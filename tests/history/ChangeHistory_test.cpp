// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/ChangeHistory.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <random>

using namespace tavrel;

namespace {

struct State
{
    std::vector<std::string> lines;
    std::vector<WadReference> references;
    CurrentWad wad;

    bool operator==(const State&) const = default;
};

class ChangeHistoryTest : public testing::Test, public HistoryObserver
{
protected:
    ChangeHistoryTest()
    {
        for (std::size_t k = 0; k < 40; ++k) {
            catalogue.append(stockLines()[k], stockLines()[k], k + 1);
        }
        references.appendBuiltIn({"LARA", "g", "All levels"});
        references.appendUser({"oasis", "oa", "The oasis"});
        references.appendUser({"karnak", "ka", "Karnak"});
        wad = {"oasis", "oa", "The oasis"};
    }

    void stepDone(const HistoryStep& step) override { told.push_back("done " + step.label.english); }
    void stepMoved(const HistoryStep& step) override { told.push_back("moved " + step.label.english); }

    State state() const
    {
        State now{{}, references.all(), wad};
        for (std::size_t k = 0; k < catalogue.size(); ++k) {
            now.lines.push_back(catalogue.currentLine(k));
        }
        return now;
    }
    void change(std::size_t number, const std::string& text, const char* label = "change")
    {
        const Step step(catalogue, BilingualText::same(label));
        ASSERT_FALSE(catalogue.setCurrentLine(number, text));
    }
    void replaceLetter(const std::string& letter, std::size_t index, std::size_t number)
    {
        const Step step(catalogue, BilingualText::same("letter " + letter));
        ASSERT_FALSE(catalogue.setCurrentLine(number, catalogue.currentLine(number) + "#" + letter));
        references.replaceLetter(references.at(references.userBegin() + index).letter, letter);
    }
    // Any command there is, with whatever numbers come.
    void anyCommand(std::mt19937& random)
    {
        const auto below = [&random](std::size_t end) { return random() % end; };
        const Step step(catalogue, BilingualText::same("command"));
        const std::size_t number = below(catalogue.size());
        switch (below(8)) {
        case 0:
            ASSERT_FALSE(catalogue.putLineIn(number, "NEW" + std::to_string(random()) + ":\ta b\tVOL10\t"));
            break;
        case 1:
            if (catalogue.size() > 20) {
                catalogue.takeLineOut(number);
            }
            break;
        case 2:
            references.appendUser({"w" + std::to_string(random()), std::to_string(random()), "title"});
            break;
        case 3:
            if (references.size() > references.userBegin()) {
                references.replaceLetter(references.at(references.userBegin()).letter,
                                         std::to_string(random()));
                references.remove(references.userBegin() + below(references.size() - references.userBegin()));
            }
            break;
        case 4:
            wad.title += "x";
            [[fallthrough]];
        case 5: // many lines, one of them twice
            for (std::size_t k = 0; k < catalogue.size(); k += 3) {
                ASSERT_FALSE(catalogue.setCurrentLine(k, catalogue.currentLine(k) + " #z"));
            }
            [[fallthrough]];
        default:
            ASSERT_FALSE(catalogue.setCurrentLine(number, "N:\ts" + std::to_string(below(5)) + " \tVOL5"));
        }
    }

    SoundCatalogue catalogue;
    ReferenceRegister references;
    CurrentWad wad;
    std::vector<std::string> told;
    ChangeHistory history{catalogue, references, wad, *this};
};

TEST_F(ChangeHistoryTest, AStepIsWhatACommandDidAndNothingIsNone)
{
    change(3, catalogue.currentLine(3));
    EXPECT_FALSE(history.canUndo());
    {
        const Step outer(catalogue, {"outer", "externe"});
        change(3, "A:\tx \t", "inner");
        change(4, "B:\tx \t", "inner");
    }
    EXPECT_EQ(told, std::vector<std::string>{"done outer"});
    ASSERT_FALSE(catalogue.setCurrentLine(5, "C:")); // by a command that forgot its step
    ASSERT_EQ(history.track().steps.size(), 2U);
    EXPECT_EQ(history.track().steps[0].numbers(), (std::vector<std::size_t>{3, 4}));
    history.undo();
    history.undo();
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(catalogue.differsFromFile());
    EXPECT_EQ(told.back(), "moved outer");
}

TEST_F(ChangeHistoryTest, PendingCountsStepsAndNotTexts)
{
    const std::string before = catalogue.currentLine(3);
    change(3, "A:");
    change(3, before);
    EXPECT_TRUE(history.pending()) << "typed back by hand";
    history.undo();
    EXPECT_TRUE(history.pending());
    history.undo();
    EXPECT_FALSE(history.pending());
    {
        const Step step(catalogue, {"reference", "référence"});
        references.appendUser({"new", "ne", "New"});
    }
    EXPECT_FALSE(history.pending()) << "the register alone";
    change(3, "A:");
    history.markSaved();
    EXPECT_FALSE(history.pending());
    history.undo();
    EXPECT_TRUE(history.pending()) << "undone behind an apply";
    change(3, "B:");
    EXPECT_TRUE(history.pending());
    history.undo();
    EXPECT_TRUE(history.pending()) << "what was applied was cut off and cannot be reached again";
}

TEST_F(ChangeHistoryTest, ARandomWalkGoesBackAndForthThroughTheSameStates)
{
    std::mt19937 random(20261121);
    std::vector<State> states{state()};
    std::size_t saved = 0;
    for (int i = 0; i < 3000; ++i) {
        if (random() % 3 != 0) {
            const std::size_t before = history.track().position;
            anyCommand(random);
            if (history.track().position != before) {
                states.resize(before + 1);
                states.push_back(state());
                saved = saved > before ? SIZE_MAX : saved;
            }
        } else if (random() % 2 == 0 && history.canUndo()) {
            history.undo();
        } else if (history.canRedo()) {
            history.redo();
        } else if (random() % 4 == 0) {
            history.markSaved();
            saved = history.track().position;
        }
        ASSERT_EQ(state(), states[history.track().position]) << i;
        if (saved != SIZE_MAX && saved == history.track().position) {
            ASSERT_FALSE(history.pending()) << i;
        }
    }
    while (history.canUndo()) {
        history.undo();
        ASSERT_EQ(state(), states[history.track().position]);
    }
    while (history.canRedo()) {
        history.redo();
        ASSERT_EQ(state(), states[history.track().position]);
    }
}

TEST_F(ChangeHistoryTest, ALineTakenOutAndPutBackIsTheLineOfTheFileAgain)
{
    const std::string line = catalogue.currentLine(7);
    catalogue.takeLineOut(7);
    EXPECT_EQ(catalogue.currentLine(7), stockLines()[8]);
    EXPECT_EQ(catalogue.originalLine(7), stockLines()[7]) << "installed lines belong to numbers";
    EXPECT_EQ(catalogue.lineInFile(7), 9U);
    EXPECT_TRUE(history.track().steps[0].movesLines());
    history.undo();
    EXPECT_EQ(catalogue.fileLine(7), line);
    EXPECT_EQ(catalogue.lineInFile(7), 8U);
    EXPECT_EQ(catalogue.listEntry(8).substr(0, 4), "  8:");
    ASSERT_FALSE(catalogue.putLineIn(7, "NEW:"));
    EXPECT_EQ(catalogue.lineInFile(7), 0U);
    EXPECT_EQ(catalogue.originalLine(40), stockLines()[39]) << "the reference copy has no line for it";
    EXPECT_TRUE(catalogue.putLineIn(7, "no sound"));
}

TEST_F(ChangeHistoryTest, GivingUpLinesTakesBackWhatTheyDidToTheRegister)
{
    struct Case
    {
        const char* what;
        std::function<void()> act;
        std::string letters; // of the user's references afterwards
        std::size_t left;
    };
    const auto append = [this](const char* name, const char* letter) {
        const Step step(catalogue, {"add", "ajouter"});
        references.appendUser({name, letter, "T"});
    };
    const Case cases[] = {
        {"a letter", [&] { replaceLetter("xy", 0, 3); }, "oa ka", 0},
        {"a reference alone stays",
         [&] {
             replaceLetter("xy", 0, 3);
             append("new", "ne");
         },
         "oa ka ne", 0},
        {"undone after an apply, done again in the register",
         [&] {
             replaceLetter("xy", 0, 3);
             history.markSaved();
             history.undo();
         },
         "xy ka", 0},
        {"cut off after an apply",
         [&] {
             replaceLetter("xy", 0, 3);
             history.markSaved();
             history.undo();
             change(5, "C:");
         },
         "xy ka", 0},
        {"the letter has another owner by now",
         [&] {
             replaceLetter("xy", 0, 3);
             append("thief", "oa");
         },
         "xy ka oa", 1},
        {"changed once more by hand",
         [&] {
             replaceLetter("xy", 0, 3);
             const Step step(catalogue, {"title", "titre"});
             references.replace(references.userBegin(), {"oasis", "xy", "Another title"});
         },
         "xy ka", 1},
    };
    const ReferenceRegister before = references;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        references = before;
        while (history.canUndo()) {
            history.undo();
        }
        references = before;
        history.restart();
        c.act();
        EXPECT_EQ(history.moveReferencesToSaved(history.track()).size(), c.left);
        std::string letters;
        for (std::size_t i = references.userBegin(); i < references.size(); ++i) {
            letters += (letters.empty() ? "" : " ") + references.at(i).letter;
        }
        EXPECT_EQ(letters, c.letters);
    }
}

} // namespace
