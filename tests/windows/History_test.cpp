// SPDX-License-Identifier: GPL-3.0-or-later
// Undo, review and recovery, by keys and clicks in the main window.
#include "MainWindow.h"
#include "session/FmRecover.h"
#include "versions/FmReview.h"

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>

using namespace tavrel;

namespace {

class HistoryWindowTest : public MainWindowTest
{
protected:
    HistoryWindowTest()
    {
        writeBytes(folders.sounds, textOf(stockLines())); // without comments to be asked about
    }

    void setVolume(int row, const QString& volume)
    {
        clickRow(row);
        type("TxVOL", volume);
        click("CdValidW");
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        QApplication::setActiveWindow(window.get());
        sounds().setFocus();
        QTest::keyClick(&sounds(), key, modifiers);
    }
    QList<QAction*> menuOf(const char* button)
    {
        QMenu* const menu = control<QToolButton>(button).menu();
        Q_EMIT menu->aboutToShow();
        return menu->actions();
    }
    std::string line(std::size_t number) { return window->catalogue().currentLine(number); }
    std::string fileLine(std::size_t number) { return window->catalogue().originalLine(number); }
    QString info() { return control<QLabel>("LbInfo").text(); }
};

} // namespace

TEST_F(HistoryWindowTest, KeysAndMenusGoThroughTheSteps)
{
    open();
    EXPECT_FALSE(enabled("CdUndo"));
    const std::vector<std::string> before{line(1), line(2), line(3)};
    for (int row = 1; row <= 3; ++row) {
        setVolume(row, QString::number(30 + row));
    }
    const std::string third = line(3);
    EXPECT_EQ(control("CdUndo").toolTip(), "Undo: Accept values, 3: LARA_SLIPPING");
    clickRow(6);
    press(Qt::Key_Z);
    EXPECT_EQ(line(3), before[2]);
    EXPECT_EQ(row(), 3) << "what came back is shown";
    EXPECT_EQ(info(), "Undone: Accept values, 3: LARA_SLIPPING");
    press(Qt::Key_Y);
    EXPECT_EQ(line(3), third);
    press(Qt::Key_Z);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(line(3), third);

    const QList<QAction*> steps = menuOf("CdUndo");
    ASSERT_EQ(steps.size(), 3);
    EXPECT_EQ(steps[2]->text(), "Accept values, 1: LARA_CLIMB2");
    steps[1]->trigger(); // back to before the second
    EXPECT_NE(line(1), before[0]);
    EXPECT_EQ(line(2), before[1]);
    EXPECT_EQ(line(3), before[2]);
    EXPECT_TRUE(window->session().pending());
    press(Qt::Key_Z);
    EXPECT_FALSE(window->session().pending()) << "back where the file is";
    ASSERT_EQ(menuOf("CdRedo").size(), 3);
    menuOf("CdRedo")[2]->trigger();
    EXPECT_EQ(line(3), third);

    tick("OpLangF");
    EXPECT_EQ(control("CdUndo").toolTip(), "Annuler : Accepter les valeurs, 3: LARA_SLIPPING");
    EXPECT_EQ(control("CdUndo").accessibleName(), "Annuler");
}

TEST_F(HistoryWindowTest, UndoBelongsToABoxFirstAndThenToItsValues)
{
    open();
    setVolume(1, "31");
    clickRow(2);
    const QString accepted = text("TxVOL");
    type("TxVOL", "77");
    auto& box = control<QLineEdit>("TxVOL");
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(box.text(), "77") << "typing is taken back in the box";
    EXPECT_NE(line(1).find("VOL31"), std::string::npos);

    type("TxVOL", "55");
    press(Qt::Key_Z);
    EXPECT_EQ(box.text(), accepted) << "the first undo restores the boxes";
    EXPECT_NE(line(1).find("VOL31"), std::string::npos);
    press(Qt::Key_Y);
    EXPECT_EQ(box.text(), "55");
    EXPECT_TRUE(enabled("CdValidW"));
    press(Qt::Key_Z);
    press(Qt::Key_Z);
    EXPECT_EQ(line(1), fileLine(1));
}

TEST_F(HistoryWindowTest, TheReviewShowsAndPutsBackWhatAnApplyWouldWrite)
{
    open();
    setVolume(1, "31");
    setVolume(2, "32");
    bool applied = false;
    whenOpened<FmReview>([this, &applied](FmReview& review) {
        auto& list = *review.findChild<QTableView*>("LiDifferences");
        ASSERT_EQ(list.model()->rowCount(), 2);
        QString all;
        for (int column = 0; column < list.model()->columnCount(); ++column) {
            all += list.model()->index(1, column).data().toString() + "|";
        }
        EXPECT_TRUE(all.contains("LARA_NO") && all.contains("VOL") && all.contains("32"))
            << all.toStdString();
        const int last = list.model()->columnCount() - 1;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualRect(list.model()->index(1, last)).center());
        EXPECT_EQ(line(2), fileLine(2)) << "put back";
        EXPECT_EQ(list.model()->rowCount(), 1);
        dialogs.prepareAnswer(Answer::Yes);
        QTest::mouseClick(review.findChild<QPushButton*>("CdApply"), Qt::LeftButton);
        applied = !review.isVisible();
    });
    press(Qt::Key_D);
    EXPECT_TRUE(applied);
    EXPECT_FALSE(window->session().pending());
    const std::string written = readBytes(folders.sounds);
    EXPECT_NE(written.find(line(1) + "\r\n"), std::string::npos);
    EXPECT_NE(written.find(fileLine(2) + "\r\n"), std::string::npos);
    press(Qt::Key_Z);
    EXPECT_TRUE(window->session().pending()) << "an undo behind an apply is a change";
}

TEST_F(HistoryWindowTest, ACrashIsOfferedToBeRecovered)
{
    open();
    setVolume(1, "31");
    clickRow(2);
    type("TxVOL", "55");
    window->keepValues();
    const std::string changed = line(1);
    window.reset(); // without a word

    open();
    EXPECT_NE(line(1), changed);
    whenOpened<FmRecover>([](FmRecover& recover) {
        EXPECT_TRUE(recover.findChild<QListWidget*>("LiRecover")->item(0)->text().contains("LARA_CLIMB2"));
        QTest::mouseClick(recover.findChild<QPushButton*>("CdRecover"), Qt::LeftButton);
    });
    window->offerRecovery();
    EXPECT_EQ(line(1), changed);
    EXPECT_EQ(row(), 2);
    EXPECT_EQ(text("TxVOL"), "55") << "and the values that were not accepted";
    EXPECT_TRUE(window->session().pending());
    press(Qt::Key_Z);
    press(Qt::Key_Z);
    EXPECT_FALSE(window->session().pending());
    EXPECT_EQ(line(1), fileLine(1));
}

TEST_F(HistoryWindowTest, WhatWasLeftIsNamedBeforeItIsGivenUp)
{
    open();
    setVolume(1, "31");
    window.reset(); // without a word
    open();
    whenOpened<FmRecover>([](FmRecover& recover) {
        QTest::mouseClick(recover.findChild<QPushButton*>("CdDiscard"), Qt::LeftButton);
    });
    dialogs.prepareAnswer(Answer::No);
    window->offerRecovery();
    EXPECT_EQ(dialogs.said().back().details.english, "1: LARA_CLIMB2: VOL 70 \u2192 31");
}

TEST_F(HistoryWindowTest, TheSystemMayEndTheProgramWithoutAQuestion)
{
    open();
    setVolume(1, "31");
    clickRow(2);
    type("TxVOL", "55");
    window->closeForSystem();
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(dialogs.said().empty());
    window.reset();
    EXPECT_EQ(namesIn(folders.program / "Recovery").size(), 1U);
}
