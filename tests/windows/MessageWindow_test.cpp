// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Titles.h"
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
        window.offer(answers, c.byDefault, Language::French, {{Answer::Other, {"Look", "Revoir"}}});
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

TEST(MessageWindow, DetailsFoldOutByTheirLetter)
{
    for (const bool open : {false, true}) {
        MessageWindow window(nullptr, MessageIcon::Question, "T", "text");
        const Answer answers[] = {Answer::Yes, Answer::No};
        window.addDetails("12: NAME\nLost: [VOL100]", open, Language::French);
        window.offer(answers, Answer::No, Language::French);
        const auto* const details = window.findChild<QPlainTextEdit*>("TxDetails");
        bool atFirst = false;
        bool afterKey = false;
        QTimer::singleShot(0, &window, [&] {
            atFirst = details->isVisible();
            QTest::keyClick(&window, Qt::Key_D);
            afterKey = details->isVisible();
            QTest::keyClick(&window, Qt::Key_Return);
        });
        EXPECT_EQ(window.run(Answer::Yes), Answer::No) << "they take no answer's place";
        EXPECT_EQ(atFirst, open);
        EXPECT_EQ(afterKey, !open);
    }
}

// Before the main window there is no opener to ask.
TEST(MessageWindow, F1OpensTheHelpWithoutAnOpener)
{
    MessageWindow window(nullptr, MessageIcon::Information, "T", "text");
    QStringList topics;
    window.setHelp([&topics](QWidget& /*box*/, const HelpTopic& topic) { topics += topic.title; });
    window.show();
    QApplication::setActiveWindow(&window);
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_EQ(topics, QStringList("T"));
}

TEST(QtDialogs, AFilterIsShownAsItIsWritten)
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); // the system's own could not be looked into
    QtDialogs dialogs;
    QString shown;
    QTimer::singleShot(0, qApp, [&shown] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        shown = dialog->findChild<QComboBox*>("fileTypeCombo")->currentText();
        dialog->reject();
    });
    EXPECT_FALSE(dialogs.chooseFile({titles::program, {"Files (*.tox,*.tob)", ""}, {"*.tox", "*.tob"}, {}}));
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false);
    EXPECT_EQ(shown, "Files (*.tox,*.tob)");
}
