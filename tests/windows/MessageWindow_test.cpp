// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MessageWindow.h"
#include "ui/QtDialogs.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tavrel;

TEST(MessageWindow, AnswersByTheKeyboard)
{
    struct Case
    {
        Qt::Key key;
        Answer byDefault;
        Answer answer;
    };
    for (const Case& c : {Case{Qt::Key_Return, Answer::Yes, Answer::Yes},
                          {Qt::Key_Return, Answer::No, Answer::No},
                          {Qt::Key_O, Answer::No, Answer::Yes},
                          {Qt::Key_N, Answer::Yes, Answer::No},
                          {Qt::Key_A, Answer::Yes, Answer::Cancel},
                          {Qt::Key_R, Answer::No, Answer::Other},
                          {Qt::Key_Escape, Answer::Yes, Answer::Cancel}}) {
        MessageWindow window(nullptr, MessageIcon::Question, "T", "text");
        const Answer answers[] = {Answer::Other, Answer::Yes, Answer::No, Answer::Cancel};
        window.offer(answers, c.byDefault, Language::French, {"Look", "Revoir"});
        QTimer::singleShot(0, &window, [&] { QTest::keyClick(&window, c.key); });
        EXPECT_EQ(window.run(Answer::Cancel), c.answer) << c.key;
    }
}

TEST(MessageWindow, ALongTextStaysOnTheScreen)
{
    MessageWindow window(nullptr, MessageIcon::Question, "T", QString("some words ").repeated(900));
    window.show();
    EXPECT_LT(window.height(), 600);
    EXPECT_LT(window.width(), 900);
}

TEST(MessageWindow, LineBreaksOfTwoCharactersAreOne)
{
    const MessageWindow window(nullptr, MessageIcon::Question, "T", "a\n\rb\r\n\r\nc");
    EXPECT_EQ(window.findChild<QLabel*>("LbText")->text(), "a\nb\n\nc");
}

TEST(MessageWindow, DetailsFoldOut)
{
    MessageWindow window(nullptr, MessageIcon::Question, "T", "text");
    window.addDetails({"7: S7\n8: S8", ""}, Language::English);
    window.show();
    auto& rows = *window.findChild<QPlainTextEdit*>("TxDetails");
    EXPECT_EQ(rows.toPlainText(), "7: S7\n8: S8");
    EXPECT_FALSE(rows.isVisible());
    QTest::mouseClick(window.findChild<QWidget*>("ImDetails"), Qt::LeftButton);
    EXPECT_TRUE(rows.isVisible());
}

// Before the main window there is no opener to ask.
TEST(MessageWindow, F1OpensTheHelpWithoutAnOpener)
{
    MessageWindow window(nullptr, MessageIcon::Information, "T", "text");
    int opened = 0;
    window.setHelp([&opened](QWidget& /*box*/) { ++opened; });
    window.show();
    QApplication::setActiveWindow(&window);
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_EQ(opened, 1);
}

TEST(QtDialogs, AFilterIsShownAsItIsWritten)
{
    QtDialogs dialogs;
    QString shown;
    QTimer::singleShot(0, qApp, [&shown] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        shown = dialog->findChild<QComboBox*>("fileTypeCombo")->currentText();
        dialog->reject();
    });
    EXPECT_FALSE(dialogs.chooseFile({{"T", "T"}, {"Files (*.tox,*.tob)", ""}, {"*.tox", "*.tob"}, {}}));
    EXPECT_EQ(shown, "Files (*.tox,*.tob)");
}
