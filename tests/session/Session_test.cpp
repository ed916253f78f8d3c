// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/LetterCommands.h"
#include "session/Selection.h"
#include "session/Session.h"
#include "session/UndoCommands.h"
#include "support/Files.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

using namespace tavrel;

namespace {

class SessionTest : public testing::Test
{
protected:
    SessionTest() { writeBytes(demo.sounds, textOf(stockLines())); } // without comments to be asked about

    std::unique_ptr<Session> open()
    {
        auto session = std::make_unique<Session>(demo.program, LoadSettings(demo.program).settings);
        session->keepRecoverable();
        EXPECT_TRUE(session->load());
        return session;
    }
    std::string userFile() { return readBytes(demo.program / "Tavrel.paw"); }
    static void change(Session& session, std::size_t number, const std::string& text)
    {
        const Step step(session.catalogue(), {"change", "modification"});
        ASSERT_FALSE(session.catalogue().setCurrentLine(number, text));
    }
    // On one line at least.
    static void replaceLetter(Session& session, const char* letter)
    {
        change(session, 60, session.catalogue().currentLine(60) + "#" + session.wad().letter);
        ScriptedDialogs dialogs{Answer::Yes};
        ASSERT_EQ(replaceLetterEverywhere(session.catalogue(), session.references(), session.wad(), letter,
                                          dialogs),
                  ReplacedLetter::Replaced);
        ASSERT_FALSE(session.writeRegister());
    }
    std::vector<std::string> logs() { return namesIn(demo.program / "Recovery"); }

    DemoFolders demo;
};

struct Told : SessionObserver
{
    void reloaded() override { events += "reloaded "; }
    void linesChanged(const std::vector<std::size_t>& numbers) override
    {
        events += "lines" + std::to_string(numbers.size()) + " ";
    }
    void linesMoved() override { events += "moved "; }
    void registerChanged() override { events += "register "; }
    void wadChanged() override { events += "wad "; }
    void historyChanged() override { events += "history "; }

    std::string take() { return std::exchange(events, {}); }
    std::string events;
};

TEST_F(SessionTest, TellsEachChangeOnceAndInTheSameWordsWhenItIsUndone)
{
    const std::unique_ptr<Session> session = open();
    Told told;
    session->addObserver(told);
    change(*session, 3, "A:");
    EXPECT_EQ(told.take(), "lines1 history ");
    session->undo();
    EXPECT_EQ(told.take(), "lines1 history ");
    session->chooseWad("oasis");
    EXPECT_EQ(told.take(), "wad ");
    replaceLetter(*session, "zz");
    const std::string replaced = "lines1 register wad history ";
    EXPECT_EQ(told.take(), "lines1 history " + replaced);
    session->undo();
    EXPECT_EQ(told.take(), replaced);
    EXPECT_EQ(session->wad().letter, "oa");
    session->catalogue().takeLineOut(3);
    EXPECT_EQ(told.take(), "moved history ");
    session->removeObserver(told);
}

TEST_F(SessionTest, UndoWritesTheRegisterAndADiscardTakesItBack)
{
    std::unique_ptr<Session> session = open();
    session->chooseWad("oasis");
    const std::string before = userFile();
    replaceLetter(*session, "zz");
    const std::string after = userFile();
    EXPECT_NE(after, before);
    EXPECT_FALSE(session->undo().problem);
    EXPECT_EQ(userFile(), before);
    session->redo();
    EXPECT_EQ(userFile(), after);
    EXPECT_TRUE(session->discardChanges().empty());
    EXPECT_EQ(userFile(), before) << "the lines keep their letter, and so does the register";
    EXPECT_EQ(logs(), std::vector<std::string>{"discarded-1.rec"});

    session = open();
    session->chooseWad("oasis");
    replaceLetter(*session, "zz");
    ASSERT_TRUE(session->load());
    EXPECT_EQ(userFile(), before) << "a load discards as well";
    EXPECT_FALSE(session->canUndo());
    EXPECT_EQ(session->references().findUserWad("oasis")->letter, "oa");
}

TEST_F(SessionTest, ALoadThatFailsKeepsEverything)
{
    const std::unique_ptr<Session> session = open();
    change(*session, 3, "A:");
    const std::string sounds = readBytes(demo.sounds);
    std::filesystem::remove(demo.sounds);
    EXPECT_FALSE(session->load());
    EXPECT_FALSE(session->loadFrom("X:", "/nowhere/"));
    EXPECT_TRUE(session->pending());
    EXPECT_EQ(session->catalogue().currentLine(3), "A:");
    EXPECT_EQ(session->places().creator, demo.creator);
    writeBytes(demo.sounds, sounds + "MORE:\tx \t\r\n");
    ScriptedDialogs dialogs{Answer::Yes, Answer::No};
    EXPECT_FALSE(session->apply(dialogs)) << "asks before it overwrites what it has not read";
    EXPECT_EQ(dialogs.said().back().kind, "Yes/No");
}

TEST_F(SessionTest, ARegisterThatCannotBeWrittenIsTriedAgainAndNeverLost)
{
    const std::unique_ptr<Session> session = open();
    session->chooseWad("oasis");
    const std::filesystem::path file = demo.program / "Tavrel.paw";
    const std::string before = userFile();
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    ScriptedDialogs dialogs{Answer::Yes};
    replaceLetterEverywhere(session->catalogue(), session->references(), session->wad(), "zz", dialogs);
    EXPECT_TRUE(session->writeRegister());
    ScriptedDialogs applying{Answer::Yes, Answer::Yes};
    EXPECT_TRUE(session->apply(applying));
    EXPECT_TRUE(session->isRegisterUnsaved());
    ASSERT_TRUE(session->load());
    EXPECT_EQ(session->references().findUserWad("oasis")->letter, "zz") << "as the lines have it";
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    change(*session, 3, "A:");
    EXPECT_TRUE(session->apply(applying));
    EXPECT_FALSE(session->isRegisterUnsaved());
    EXPECT_NE(userFile(), before);
}

TEST_F(SessionTest, WhatWasNotAppliedIsRecoveredWithItsHistory)
{
    {
        const std::unique_ptr<Session> session = open();
        session->chooseWad("oasis");
        change(*session, 3, "A:");
        change(*session, 4, "B:");
        replaceLetter(*session, "zz");
        session->undo();
        session->keepValues({5, "C:"});
    }
    std::vector<FoundRecovery> found = abandonedRecoveries(demo.program);
    ASSERT_EQ(found.size(), 1U);
    const std::unique_ptr<Session> session = open();
    const RecoveryContent& content = found[0].content;
    EXPECT_EQ(content.header.hash, session->catalogue().file().stamp.hash);
    EXPECT_EQ(content.values->line, "C:");
    ASSERT_TRUE(session->adopt(content.track));
    EXPECT_EQ(session->catalogue().currentLine(4), "B:");
    EXPECT_TRUE(session->canRedo());
    session->redo();
    EXPECT_EQ(session->references().findUserWad("oasis")->letter, "zz");
    while (session->canUndo()) {
        session->undo();
    }
    EXPECT_FALSE(session->pending());
    EXPECT_FALSE(session->catalogue().differsFromFile());

    HistoryTrack damaged = content.track;
    damaged.steps[0].lines[0].number = 9999;
    EXPECT_FALSE(session->adopt(damaged));
    EXPECT_FALSE(session->catalogue().differsFromFile());
}

TEST_F(SessionTest, ACleanEndAndAnApplyLeaveNothingToRecover)
{
    std::unique_ptr<Session> session = open();
    change(*session, 3, "A:");
    ScriptedDialogs dialogs{Answer::Yes};
    EXPECT_TRUE(session->apply(dialogs));
    session.reset(); // as by a crash
    EXPECT_TRUE(abandonedRecoveries(demo.program).empty());
    session = open();
    change(*session, 3, "B:");
    session->undo();
    session->close();
    EXPECT_TRUE(logs().empty());
}

TEST_F(SessionTest, ValuesInTheBoxesAreAStepOnTheWayBack)
{
    const std::unique_ptr<Session> session = open();
    Selection selection(*session);
    UndoCommands steps(*session, selection);
    ScriptedDialogs dialogs;
    selection.select(4);
    selection.setValue(ValueBox::Vol, "8", true);
    ASSERT_TRUE(selection.accept(dialogs));
    selection.setValue(ValueBox::Vol, "9", true);
    EXPECT_EQ(steps.nextUndo().english, "Values not accepted, 4: LARA_LAND");
    EXPECT_EQ(steps.undo(dialogs).english, "Undone: Values not accepted, 4: LARA_LAND");
    EXPECT_EQ(selection.editor().boxText(ValueBox::Vol), "08");
    EXPECT_EQ(steps.nextUndo().english, "Accept values, 4: LARA_LAND");
    steps.undo(dialogs);
    EXPECT_FALSE(steps.canUndo());
    EXPECT_EQ(selection.editor().boxText(ValueBox::Vol), "75");
    selection.select(7);
    steps.redo(dialogs);
    EXPECT_EQ(selection.number(), 4U) << "what came back is selected";
    EXPECT_EQ(steps.redo(dialogs).french, "Rétabli : Valeurs non acceptées, 4: LARA_LAND");
    EXPECT_EQ(selection.editor().boxText(ValueBox::Vol), "09");
    EXPECT_TRUE(selection.edited());
    EXPECT_FALSE(steps.canRedo());
}

} // namespace
