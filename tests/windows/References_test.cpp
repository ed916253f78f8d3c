// SPDX-License-Identifier: GPL-3.0-or-later
// The register window, and letters on lines and objects in the main window.
#include "MainWindow.h"
#include "references/FmObject.h"
#include "references/FmRefW.h"
#include "ui/FmHelp.h"
#include "ui/Text.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QWheelEvent>

#include <algorithm>

using namespace tavrel;

namespace {

class ReferencesTest : public MainWindowTest
{
protected:
    std::string line(std::size_t number) const { return window->catalogue().currentLine(number); }
    std::string userFile() const { return readBytes(folders.program / "Tavrel.paw"); }
    QListWidget& letters() { return control<QListWidget>("LiWAD"); }

    void inRegister(const std::function<void(FmRefW&)>& act)
    {
        whenOpened<FmRefW>([act](FmRefW& registerWindow) {
            QTest::qWait(20); // the steps of the first showing
            act(registerWindow);
        });
        click("CdRefW");
    }
    static QLineEdit& box(FmRefW& registerWindow, const char* name)
    {
        return *registerWindow.findChild<QLineEdit*>(name);
    }
    static void press(FmRefW& registerWindow, const char* name)
    {
        QTest::mouseClick(registerWindow.findChild<QPushButton*>(name), Qt::LeftButton);
    }
    static void clickReference(FmRefW& registerWindow, int row)
    {
        auto& list = *registerWindow.findChild<QListWidget*>("LiRefW");
        list.scrollToItem(list.item(row));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
    }
};

const std::string demoReferences = "\"The oasis of Amun\",\"oa\",\"oasis\"\r\n"
                                   "\"The tomb of the wind\",\"tw\",\"tomb_of_wind\"\r\n";

} // namespace

TEST_F(ReferencesTest, ALetterLivesFromItsReferenceToItsDeletion)
{
    open();
    inRegister([this](FmRefW& registerWindow) {
        press(registerWindow, "CdEfface");
        QTest::keyClicks(&box(registerWindow, "TxWAD"), "karnak");
        QTest::keyClicks(&box(registerWindow, "TxLett"), "#kx");
        EXPECT_EQ(box(registerWindow, "TxLett").text(), "kx");
        QTest::keyClicks(&box(registerWindow, "TxTitre"), "My karnak");
        press(registerWindow, "CdNew"); // the stock level has that name already
        EXPECT_TRUE(
            dialogs.said().back().text.english.starts_with("Wad Name [karnak] already assigned to [#9F"));
        EXPECT_TRUE(box(registerWindow, "TxWAD").hasFocus());
        writeBytes(folders.levelEditor / "graphics" / "wads" / "temple.was", "");
        writeBytes(folders.levelEditor / "graphics" / "wads" / "temple.sam", "");
        dialogs.prepareFile(folders.levelEditor / "graphics" / "wads" / "temple.wad");
        press(registerWindow, "CdChoix");
        EXPECT_EQ(box(registerWindow, "TxWAD").text(), "temple");
        QTest::keyClick(&box(registerWindow, "TxTitre"), Qt::Key_Return);
        EXPECT_EQ(box(registerWindow, "TxWAD").text(), "") << "added, and ready for the next one";
    });
    EXPECT_EQ(userFile(), demoReferences + "\"My karnak\",\"kx\",\"temple\"\r\n");

    auto& chooser = control<QComboBox>("CbTWad");
    ASSERT_EQ(chooser.count(), 3);
    chooser.setFocus();
    QTest::keyClick(&chooser, Qt::Key_End);
    EXPECT_EQ(text("TxLett"), "kx");
    for (const int number : {73, 80}) {
        clickRow(number);
        click("CdAddWAD");
        EXPECT_EQ(letters().item(0)->text(), "#kx - temple") << "an entry just added shows the WAD";
        EXPECT_EQ(line(static_cast<std::size_t>(number)),
                  stockLines()[static_cast<std::size_t>(number)] + "#kx");
    }
    clickRow(73);
    EXPECT_EQ(letters().item(0)->text(), "#kx - My karnak");

    whenOpened<FmObject>([](FmObject& objects) {
        objects.findChild<QListWidget*>("LiOBJ")->setCurrentRow(1);
        QTest::mouseClick(objects.findChild<QPushButton*>("CdOK"), Qt::LeftButton);
    });
    click("CdObj");
    EXPECT_EQ(text("TxObj"), "SCORPION");
    EXPECT_FALSE(enabled("TxVOL"));
    clickRow(75);
    EXPECT_EQ(dialogs.said().back().text.english, "An object is selected. Modification not authorized");
    const std::size_t saidBefore = dialogs.said().size();
    click("CdAddWAD");
    EXPECT_EQ(dialogs.said().size(), saidBefore);
    EXPECT_EQ(control<QLabel>("LbInfo").text(), "4 lines changed");
    for (const std::size_t number : {216U, 217U, 218U, 219U}) {
        EXPECT_EQ(line(number), stockLines()[number] + "#kx");
    }
    click("CdEffObj");
    EXPECT_TRUE(enabled("TxVOL"));

    type("TxReplacL", "#zz");
    EXPECT_EQ(text("TxReplacL"), "zz");
    dialogs.prepareAnswer(Answer::Yes);
    click("CdReplacL");
    EXPECT_EQ(line(73), stockLines()[73] + "#zz");
    EXPECT_EQ(text("TxLett") + text("TxReplacL"), "zz");
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(userFile(), demoReferences + "\"My karnak\",\"zz\",\"temple\"\r\n");

    inRegister([](FmRefW& registerWindow) {
        press(registerWindow, "CdEfface");
        QTest::keyClicks(&box(registerWindow, "TxLett"), "zz");
        EXPECT_EQ(registerWindow.findChild<QLabel*>("LbInfo")->text(), "6 lines already carry #zz.");
    });
    inRegister([this](FmRefW& registerWindow) {
        EXPECT_EQ(box(registerWindow, "TxWAD").text(), "temple") << "opens on the current WAD";
        EXPECT_EQ(registerWindow.findChild<QLabel*>("LbInfo")->text(), "6 lines carry #zz");
        dialogs.prepareAnswer(Answer::Yes);
        press(registerWindow, "CdDel");
    });
    EXPECT_EQ(userFile(), demoReferences);
    EXPECT_EQ(text("TxWAD") + text("TxLett") + text("TxTitre"), "");
    for (std::size_t k = 0; k < 370; ++k) {
        // The TAB before a line's only letter went with it.
        EXPECT_EQ(line(k) + (line(k) == stockLines()[k] ? "" : "\t"), stockLines()[k]);
    }
    dialogs.prepareAnswer(Answer::Yes);
    window->close();
}

TEST_F(ReferencesTest, TheWheelOverTheChooserLeavesTheWadAlone)
{
    open();
    auto& chooser = control<QComboBox>("CbTWad");
    QWheelEvent turn(QPointF(5, 5), chooser.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&chooser, &turn);
    EXPECT_EQ(text("TxWAD"), "oasis");
}

TEST_F(ReferencesTest, GlobalSoundsTakeNoLetter)
{
    open();
    clickRow(2);
    click("CdAddWAD");
    EXPECT_EQ(dialogs.said().back().text.english, "WAD (letter) already allocated to this sound");
    EXPECT_FALSE(sounds().currentIndex().isValid()) << "the line is deselected";
    EXPECT_FALSE(sounds().selectionModel()->hasSelection());
    clickRow(2);
    click("CdDel");
    EXPECT_EQ(dialogs.said().back().text.english, "Select a letter in the [Assigned WADs] list");
    letters().setCurrentRow(0);
    click("CdDel");
    EXPECT_EQ(dialogs.said().back().text.english, "Letter [#g] shoudn't be removed");
    EXPECT_FALSE(window->session().pending());
}

TEST_F(ReferencesTest, BuiltInRowsAnswerAClickOnly)
{
    open();
    inRegister([this](FmRefW& registerWindow) {
        auto& list = *registerWindow.findChild<QListWidget*>("LiRefW");
        EXPECT_EQ(list.currentRow(), 42);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Up);
        EXPECT_EQ(box(registerWindow, "TxWAD").text(), "");
        EXPECT_TRUE(dialogs.said().empty());
        clickReference(registerWindow, 40);
        EXPECT_EQ(dialogs.said().back().text.english, "This reference shouldn't be modified");
        EXPECT_TRUE(list.selectedItems().empty());
        clickReference(registerWindow, 43);
        EXPECT_EQ(box(registerWindow, "TxWAD").text(), "tomb_of_wind");
        QTest::keyClick(&registerWindow, Qt::Key_Escape);
    });
    EXPECT_EQ(userFile(), demoReferences);
}

TEST_F(ReferencesTest, AnEmptyRegisterRemindsAndHelps)
{
    std::filesystem::remove(folders.program / "Tavrel.paw");
    open();
    QWidget& panel = control("PnWad");
    const QString calm = panel.styleSheet();
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel.styleSheet() != calm; }, 2000)) << "the chooser blinks";
    inRegister([this, &panel](FmRefW& registerWindow) {
        ASSERT_EQ(dialogs.said().size(), 1U);
        EXPECT_TRUE(
            dialogs.said()[0].text.english.starts_with("Start by adding a new reference of your wad.\n\n"));
        EXPECT_TRUE(box(registerWindow, "TxWAD").hasFocus());
        EXPECT_FALSE(enabled("CdQuit"));
        EXPECT_NE(panel.styleSheet().indexOf("#c0c0c0"), -1);
    });
    EXPECT_TRUE(enabled("CdQuit"));
    EXPECT_EQ(userFile(), "");
    likesMotion = false;
    open();
    EXPECT_FALSE(QTest::qWaitFor([&] { return control("PnWad").styleSheet() != calm; }, 700));
}

TEST_F(ReferencesTest, WhatIsWrongInTheRegisterIsToldOnce)
{
    const auto timesTold = [this] {
        const std::vector<std::string> said = dialogs.conversation(Language::English);
        return std::ranges::count_if(said, [](const std::string& text) {
            return text.starts_with("information | Manage Wad/Letter References | ");
        });
    };
    writeBytes(folders.program / "Tavrel.paw", demoReferences + "\"Odd\",\"g1\",\"odd\"\r\n");
    for (int start = 0; start < 2; ++start) {
        open();
        EXPECT_EQ(timesTold(), 1);
        window->close();
    }
    writeBytes(folders.program / "Tavrel.paw", "\"Odd\",\"g2\",\"odd\"\r\n");
    open();
    EXPECT_EQ(timesTold(), 2) << "another state of the file";
    window->close();
}

TEST_F(ReferencesTest, AFirstUseIsExplainedAndProposed)
{
    std::filesystem::remove(folders.program / "Tavrel.paw");
    open();
    QString top;
    const auto readHelp = [this, &top] {
        whenOpened<FmHelp>([&top](FmHelp& help) {
            QTest::qWait(20);
            const auto* const view = help.findChild<QPlainTextEdit*>("TxHlp");
            top = view->cursorForPosition(QPoint(2, 2)).block().text();
        });
        click("CdFirstUse");
        return top;
    };
    EXPECT_EQ(readHelp(), "2. A FIRST WALK: FROM A WAD TO ITS SOUND FILES");
    tick("OpLangF");
    EXPECT_EQ(readHelp(), "2. PREMIERS PAS : D'UN WAD À SES FICHIERS DE SONS");

    inRegister([this](FmRefW& registerWindow) {
        dialogs.prepareFile(folders.levelEditor / "graphics" / "wads" / "oasis.wad");
        press(registerWindow, "CdChoix");
        EXPECT_EQ(box(registerWindow, "TxLett").text(), "oa");
        QTest::keyClicks(&box(registerWindow, "TxTitre"), "Mine");
        press(registerWindow, "CdNew");
    });
    EXPECT_EQ(text("TxWAD"), "oasis") << "the first one is the current one at once";
    EXPECT_FALSE(control("CdFirstUse").isVisible());
}
