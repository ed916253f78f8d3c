// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FmLanguage.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace tavrel;

TEST(FmLanguage, givesTheChosenLanguageOnOkAndNothingOnQuit)
{
    FmLanguage window({});
    window.show();
    auto* const french = window.findChild<QRadioButton*>("OpLangF");
    QTest::mouseClick(french, Qt::LeftButton, {}, QPoint(8, french->height() / 2));
    EXPECT_EQ(window.language(), Language::French);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_EQ(window.result(), QDialog::Accepted);

    window.show();
    auto* const english = window.findChild<QRadioButton*>("OpLangE");
    QTest::mouseClick(english, Qt::LeftButton, {}, QPoint(8, english->height() / 2));
    EXPECT_EQ(window.language(), Language::English);
    QTest::mouseClick(window.findChild<QPushButton*>("CdQuit"), Qt::LeftButton);
    EXPECT_EQ(window.result(), QDialog::Rejected);
}
