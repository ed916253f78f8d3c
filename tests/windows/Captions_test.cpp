// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Captions.h"

#include <QPushButton>
#include <gtest/gtest.h>

#include <set>
#include <vector>

using namespace tavrel;

TEST(Captions, EachButtonGetsALetterOfItsOwn)
{
    QWidget window;
    std::vector<QPushButton*> buttons;
    // Each of the first three has to leave its first choice to the one behind it.
    for (const char* caption : {"Save all", "Search", "As", "S", "\xC3\x89t\xC3\xA9", "&List", "", "a"}) {
        buttons.push_back(new QPushButton(QString::fromUtf8(caption), &window));
    }
    underlineLetters(window);
    std::set<QChar> letters;
    for (const QPushButton* const button : buttons) {
        const auto mark = button->text().indexOf('&');
        if (mark >= 0) {
            EXPECT_TRUE(letters.insert(button->text()[mark + 1].toUpper()).second)
                << button->text().toStdString();
        }
    }
    EXPECT_EQ(letters.size(), 6U) << "A and S are all that three of them have";
    EXPECT_EQ(buttons[4]->text(), QString::fromUtf8("\xC3\x89&t\xC3\xA9")) << "a key that every keyboard has";
    EXPECT_EQ(buttons[5]->text(), "&List") << "chosen by hand";
    const QString before = buttons[0]->text();
    underlineLetters(window);
    EXPECT_EQ(buttons[0]->text(), before) << "once is enough";
}
