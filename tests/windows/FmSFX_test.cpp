// SPDX-License-Identifier: GPL-3.0-or-later
#include "MainWindow.h"
#include "base/FileNames.h"
#include "base/ProcessLock.h"
#include "ui/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>

using namespace tavrel;

TEST_F(MainWindowTest, anEditReachesSoundsTxtAndNothingElseChanges)
{
    open();
    clickRow(4);
    EXPECT_EQ(text("TxVOL"), "75");
    EXPECT_EQ(text("TxLine"), "7") << "two comment lines stand before the sounds";
    type("TxVOL", "8");
    type("TxPIT", "-5");
    type("TxCH", "40");
    tick("CkP");
    tick("CkL");
    EXPECT_EQ(control<QPlainTextEdit>("TxModif").toPlainText(), fromCodePage(stockLines()[4]))
        << "boxes change the line only when they are accepted";
    click("CdValidW");
    std::vector<std::string> expected = stockLines();
    expected[4] = "LARA_LAND:\t\tlanding\t\t\t\tVOL08\t      L\tCH40\tPIT-05\tRAD13\t#g";
    EXPECT_EQ(control<QPlainTextEdit>("TxModif").toPlainText(), fromCodePage(expected[4]));
    EXPECT_EQ(control<QLabel>("LbPending").text(), "Modifications not yet applied");

    dialogs.prepareAnswer(Answer::Ok);
    dialogs.prepareAnswer(Answer::Yes);
    click("CdApply");
    EXPECT_EQ(readBytes(folders.sounds), textOf(expected));
    EXPECT_FALSE(window->session().pending());
    EXPECT_TRUE(window->catalogue().isModified(4)) << "still another line than the installed one";

    dialogs.prepareAnswer(Answer::Yes);
    click("CdRestore");
    EXPECT_EQ(text("TxVOL"), "75");
    EXPECT_TRUE(window->session().pending());
}

TEST_F(MainWindowTest, appliesNothingWhileACommandIsAtWork)
{
    open();
    clickRow(4);
    type("TxVOL", "8");
    click("CdValidW");
    const std::string before = readBytes(folders.sounds);
    Result<ProcessLock> command = takeLock(folders.program, changesLock, std::chrono::seconds(0));
    ASSERT_TRUE(command);
    dialogs.prepareAnswer(Answer::Ok);
    dialogs.prepareAnswer(Answer::Yes);
    click("CdApply");
    EXPECT_NE(dialogs.said().back().text.english.find("at work on the same files"), std::string::npos);
    EXPECT_TRUE(window->session().pending());
    EXPECT_EQ(readBytes(folders.sounds), before);
    command->reset();
    dialogs.prepareAnswer(Answer::Ok);
    dialogs.prepareAnswer(Answer::Yes);
    click("CdApply");
    EXPECT_NE(readBytes(folders.sounds), before);
}

TEST_F(MainWindowTest, boxesCorrectWhatIsTyped)
{
    open();
    struct Case
    {
        const char* box;
        const char* typed;
        const char* shown;
    };
    const Case cases[] = {{"TxVOL", "0", "1"},    {"TxVOL", "05", "5"},  {"TxVOL", "123", "12"},
                          {"TxPIT", "150", "99"}, {"TxPIT", "-5", "-5"}, {"TxPIT", "-05", "-05"},
                          {"TxPIT", "0", ""},     {"TxRAD", "0", ""},    {"TxCH", "x", ""}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.box << " " << c.typed);
        type(c.box, c.typed);
        EXPECT_EQ(text(c.box), c.shown);
    }
    type("TxPIT", "-");
    EXPECT_EQ(text("TxPIT"), "-");
    control("TxVOL").setFocus();
    EXPECT_EQ(text("TxPIT"), "") << "a sign alone is no value once the box is left";

    tick("CkR");
    tick("CkN");
    EXPECT_TRUE(ticked("CkN"));
    EXPECT_FALSE(ticked("CkR"));
}

TEST_F(MainWindowTest, leavingALineAsksAboutValuesThatWereNotAccepted)
{
    open();
    struct Case
    {
        Answer answer;
        int rowAfter;
        bool accepted;
    };
    for (const Case& c : {Case{Answer::Cancel, 2, false}, {Answer::No, 3, false}, {Answer::Yes, 3, true}}) {
        SCOPED_TRACE(static_cast<int>(c.answer));
        clickRow(2);
        if (!window->catalogue().isModified(2)) {
            type("TxVOL", "31");
        }
        dialogs.prepareAnswer(c.answer);
        clickRow(3);
        EXPECT_EQ(row(), c.rowAfter);
        EXPECT_EQ(text("TxVOL"), c.rowAfter == 2 ? "31" : "10");
        EXPECT_EQ(window->catalogue().isModified(2), c.accepted);
        if (c.answer == Answer::Cancel) {
            dialogs.prepareAnswer(Answer::No);
            clickRow(5);
        }
    }
    EXPECT_EQ(dialogs.said().front().text,
              BilingualText("Values not accepted. Accept them?", "Valeurs non acceptées. Les accepter ?"));
}

TEST_F(MainWindowTest, aProtectedLineIsRefusedAndCannotBeEdited)
{
    open();
    clickRow(59); // has samples and values to hide
    ASSERT_EQ(dialogs.said().size(), 1U);
    EXPECT_EQ(dialogs.said()[0].kind, "exclamation");
    EXPECT_EQ(dialogs.said()[0].title, BilingualText("Select", "Sélection"));
    EXPECT_EQ(dialogs.said()[0].text,
              BilingualText("This line should not be modified", "Cette ligne ne doit pas être modifiée"));
    EXPECT_EQ(row(), 59);
    for (const char* name :
         {"CdValidW", "CdRestore", "CdCopyLine", "CdAddWAD", "CdDel",    "CdPlay", "CdPlay2", "CdStopS",
          "CdStopS2", "CdRename",  "CdAddSmp",   "CdDelSmp", "CdChSamp", "CdObj",  "TxVOL",   "TxPIT",
          "TxRAD",    "TxCH",      "CkP",        "CkV",      "CkR",      "CkN",    "CkL",     "TxSamp"}) {
        EXPECT_FALSE(enabled(name)) << name;
    }
    EXPECT_EQ(text("TxVOL") + text("TxLine"), "");
    EXPECT_EQ(control<QPlainTextEdit>("TxOrig").toPlainText(), "");
    EXPECT_EQ(control<QListWidget>("LiSamp").count(), 0);
    QTest::keyClick(window.get(), Qt::Key_Return, Qt::ControlModifier); // the shortcut of "Accept values"
    EXPECT_FALSE(window->catalogue().isModified(59));

    clickRow(60);
    EXPECT_TRUE(enabled("CdValidW"));
    EXPECT_EQ(text("TxVOL"), "35");
}

TEST_F(MainWindowTest, protectedLinesCanBeEditedWhenTheSettingsAllowIt)
{
    ProgramSettings settings = LoadSettings(folders.program).settings;
    settings.protectedLinesEditable = true;
    ASSERT_FALSE(SaveSettings(folders.program, settings));
    open();
    clickRow(59);
    EXPECT_EQ(text("TxVOL"), "50");

    clickRow(62); // has no sample
    type("TxVOL", "40");
    click("CdValidW");
    EXPECT_FALSE(window->catalogue().isModified(62)) << "its VOL would be read as a sample";
    ASSERT_EQ(dialogs.said().size(), 1U);
    dialogs.prepareAnswer(Answer::No);
    window->close();
}

TEST_F(MainWindowTest, searchLooksInWholeLinesInItsDirection)
{
    open();
    type("TxSearch", "CROC_F1"); // a sample of sound 73
    QTest::keyClick(&control("TxSearch"), Qt::Key_Return);
    EXPECT_EQ(row(), 73);
    QTest::keyClick(window.get(), Qt::Key_F3);
    EXPECT_EQ(row(), 73);
    EXPECT_EQ(control<QLabel>("LbInfo").text(), "No other line contains [CROC_F1]");
    tick("CkCase");
    tick("OpUp");
    click("CdSearch");
    EXPECT_EQ(row(), 73);
    type("TxSearch", "LARA_");
    click("CdSearch");
    EXPECT_EQ(row(), 70);
    EXPECT_EQ(control<QLabel>("LbInfo").text(), "");
}

TEST_F(MainWindowTest, hidingGlobalSoundsKeepsTheNumbers)
{
    open();
    EXPECT_EQ(sounds().model()->rowCount(), 370);
    clickRow(11);
    click("CdShowG");
    const int globals = static_cast<int>(std::ranges::count_if(
        stockLines(), [](const std::string& line) { return line.find("#g") != std::string::npos; }));
    EXPECT_EQ(sounds().model()->rowCount(), 370 - globals);
    EXPECT_EQ(sounds().currentIndex().data().toString(), " 11: PUSH_BLOCK_END        ");
    type("TxVOL", "99");
    click("CdValidW");
    EXPECT_TRUE(window->catalogue().isModified(11));
    type("TxSearch", "LARA_LAND"); // hidden, so not to be found
    tick("OpUp");
    click("CdSearch");
    EXPECT_EQ(sounds().currentIndex().data().toString(), " 11: PUSH_BLOCK_END        ");
    click("CdShowG");
    EXPECT_EQ(row(), 11);
    clickRow(0);
    click("CdShowG");
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(text("TxVOL"), "99") << "the selected sound is hidden: the first visible one takes over";
}

TEST_F(MainWindowTest, samplesAndLettersOfTheLineAreListed)
{
    open();
    clickRow(10);
    auto& samples = control<QListWidget>("LiSamp");
    ASSERT_EQ(samples.count(), 2);
    EXPECT_EQ(text("TxSamp"), "rico_01");
    QTest::mouseClick(samples.viewport(), Qt::LeftButton, {},
                      samples.visualItemRect(samples.item(1)).center());
    EXPECT_EQ(text("TxSamp"), "rico_02");
    EXPECT_EQ(control<QListWidget>("LiWAD").item(0)->text(), "#g - All levels");
    EXPECT_EQ(text("TxWAD") + "/" + text("TxLett") + "/" + text("TxTitre"), "oasis/oa/The oasis of Amun");
}

TEST_F(MainWindowTest, copiesTheLineWithItsTabs)
{
    open();
    clickRow(2);
    click("CdCopyLine");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), stockLines()[2]);
}

TEST_F(MainWindowTest, opensNotepadAndReloadsWhenAsked)
{
    open();
    clickRow(7);
    dialogs.whileAsking([this] {
        std::vector<std::string> lines = stockLines();
        lines[0] = "LARA_FEET:\t\tfoot01\t\t\t\tVOL77\t\t\t\tRAD10\t#g";
        writeBytes(folders.sounds, textOf(lines));
    });
    dialogs.prepareAnswer(Answer::Yes);
    click("CdEdit");
    ASSERT_EQ(programs.edited.size(), 1U);
    EXPECT_EQ(programs.edited[0], (std::pair{folders.sounds, WindowMode::Normal}));
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(text("TxVOL"), "77");
    EXPECT_EQ(dialogs.said().back().text, BilingualText("Reload [sounds.txt]\nand reboot program",
                                                        "Faut-il recharger le fichier sounds.txt\net "
                                                        "réinitialiser le programme"));
}

TEST_F(MainWindowTest, closingAsksAboutPendingChangesAndKeepsTheSettings)
{
    open();
    type("TxVOL", "50");
    QTest::keyClick(&control("TxVOL"), Qt::Key_Return); // accepts
    click("ImPanelE");
    tick("OpLangF");
    dialogs.prepareAnswer(Answer::No);
    click("CdQuit");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(dialogs.said().back().text,
              BilingualText("Modifications not applied. Would you like to quit anyway",
                            "Des modifications n'ont pas été appliquées. Voulez-vous quitter quand même"));
    EXPECT_NE(dialogs.said().back().details.french.find("50"), std::string::npos) << "what would be lost";
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible()) << "Esc never ends the program";

    dialogs.prepareAnswer(Answer::Yes);
    click("CdQuit");
    EXPECT_FALSE(window->isVisible());
    const ProgramSettings kept = LoadSettings(folders.program).settings;
    EXPECT_EQ(kept.language, Language::French);
    EXPECT_FALSE(kept.panel(Panel::EditFunctions));
    EXPECT_TRUE(kept.panel(Panel::Modifications));
    EXPECT_EQ(kept.lastWad + kept.lastLetter, "oasisoa");
}

TEST_F(MainWindowTest, aDamagedSettingsFileIsKeptWhenTheProgramCloses)
{
    const std::filesystem::path file = folders.program / "Tavrel.par";
    const std::string damaged = readBytes(file) + "";
    const std::string broken = damaged.substr(0, damaged.rfind("\r\n", damaged.size() - 3)) + "\r\nblue\r\n";
    writeBytes(file, broken);
    open();
    window->close();
    EXPECT_EQ(readBytes(folders.program / "Tavrel_copy1.par"), broken);
    EXPECT_FALSE(LoadSettings(folders.program).damage);
}

TEST_F(MainWindowTest, aCatalogueThatCannotBeLoadedLeavesAnEmptyWindowThatCloses)
{
    std::filesystem::remove(folders.sounds);
    open();
    ASSERT_EQ(dialogs.said().size(), 1U);
    EXPECT_EQ(dialogs.said()[0].kind, "critical");
    EXPECT_NE(dialogs.said()[0].text.english.find("Sounds.txt"), std::string::npos);
    EXPECT_EQ(sounds().model()->rowCount(), 0);
    for (const char* name : {"CdApply", "CdValidW", "CdRestore", "CdCopyLine", "TxVOL", "CkP"}) {
        EXPECT_FALSE(enabled(name)) << name;
    }
    QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(std::filesystem::exists(folders.sounds));
    window->close();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MainWindowTest, theWadChooserFillsLetterAndTitle)
{
    open();
    auto& chooser = control("CbTWad");
    chooser.setFocus();
    QTest::keyClick(&chooser, Qt::Key_Down);
    EXPECT_EQ(text("TxWAD") + "/" + text("TxLett"), "tomb_of_wind/tw");
    EXPECT_EQ(window->windowTitle(), "Tavrel - tomb_of_wind");

    ProgramSettings settings = LoadSettings(folders.program).settings;
    settings.lastWad = "karnak"; // not one of the user's own
    ASSERT_FALSE(SaveSettings(folders.program, settings));
    open();
    EXPECT_EQ(text("TxWAD") + text("TxLett") + text("TxTitre"), "");
}

TEST_F(MainWindowTest, TheWindowIsInOrderWhileAMessageAboutLoadingStands)
{
    open();
    clickRow(300);
    writeBytes(folders.sounds, std::string("X:\0", 3));
    int rowsWhileShown = -1;
    dialogs.whileShowing([&] {
        rowsWhileShown = sounds().model()->rowCount();
        window->resize(window->size() + QSize(20, 20));
        window->grab();
    });
    dialogs.prepareAnswer(Answer::Yes);
    click("CdEdit");
    EXPECT_EQ(rowsWhileShown, 370) << "what was loaded stays";
    EXPECT_EQ(dialogs.said().back().kind, "critical");
}

TEST_F(MainWindowTest, LeavingABoxChangesNothing)
{
    std::vector<std::string> lines = stockLines();
    lines[1] = "LARA_CLIMB2:\t\tclim_up2\t\t\tVOL00\t\tCH00\tPIT00\tRAD00\t#g";
    writeBytes(folders.sounds, textOf(lines));
    open();
    EXPECT_TRUE(sounds().hasFocus()) << "the arrow keys go through the sounds";
    clickRow(1);
    for (const char* name : {"TxVOL", "TxPIT", "TxRAD", "TxCH", "LiSFX"}) {
        control(name).setFocus();
    }
    EXPECT_EQ(text("TxVOL") + text("TxPIT") + text("TxRAD") + text("TxCH"), "00000000");
    clickRow(2);
    EXPECT_TRUE(dialogs.said().empty());

    // A box that loses the focus to a protected line takes nothing along.
    type("TxVOL", "55");
    click("CdValidW");
    control("TxVOL").setFocus();
    type("TxSearch", "WATER_LOOP_NOTINUSE");
    control("TxVOL").setFocus();
    QTest::keyClick(window.get(), Qt::Key_F3);
    QCoreApplication::processEvents();
    EXPECT_EQ(row(), 59);
    EXPECT_EQ(text("TxVOL"), "");
    clickRow(60);
    EXPECT_EQ(dialogs.said().size(), 1U) << "the refusal of the protected line alone";
    dialogs.prepareAnswer(Answer::Yes);
    window->close();
}

TEST_F(MainWindowTest, KeysThatRepeatAskOnceAndRefuseOnlyWhereTheyEnd)
{
    open();
    clickRow(184); // two protected lines follow
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&sounds(), Qt::Key_Down);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(row(), 187);
    EXPECT_TRUE(dialogs.said().empty());

    type("TxVOL", "33");
    dialogs.prepareAnswer(Answer::No);
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&sounds(), Qt::Key_Down);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(row(), 190);
    EXPECT_EQ(dialogs.said().size(), 1U);
    EXPECT_EQ(text("TxVOL"), "70");
}

TEST_F(MainWindowTest, TheLineNumberFollowsTheFile)
{
    open();
    clickRow(80);
    EXPECT_EQ(text("TxLine"), "85");
    dialogs.prepareAnswer(Answer::Ok);
    dialogs.prepareAnswer(Answer::Yes);
    click("CdApply"); // leaves the comments out
    EXPECT_EQ(text("TxLine"), "81");
}

TEST_F(MainWindowTest, ErrorsOfTheFileAreToldOnceUntilTheyAreOthers)
{
    std::vector<std::string> lines = stockLines();
    const auto load = [&] {
        writeBytes(folders.sounds, textOf(lines));
        const std::size_t before = dialogs.said().size();
        window->load();
        return dialogs.said().size() - before;
    };
    open();
    EXPECT_TRUE(dialogs.said().empty()) << "a file without errors";
    lines[2].erase(lines[2].find(':'), 1);
    dialogs.prepareAnswer(Answer::Other);
    EXPECT_EQ(load(), 1U);
    EXPECT_TRUE(dialogs.said().back().text.english.starts_with("[sounds.txt] itself has errors:\n"));
    EXPECT_TRUE(control<QDialog>("FmChecks").isVisible()) << "one click away";
    EXPECT_EQ(load(), 0U) << "the same errors";
    lines[5].erase(lines[5].find(':'), 1);
    EXPECT_EQ(load(), 1U);
}
