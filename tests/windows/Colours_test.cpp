// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ScriptedDialogs.h"
#include "ui/FmColors.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace tavrel;

namespace {

class ColoursTest : public testing::Test
{
protected:
    ColoursTest()
    {
        scheme.slots[0] = {0x101010, 0xE0E0E0};
        open(Language::English);
    }

    void open(Language language)
    {
        window = std::make_unique<FmColors>(nullptr, scheme, language, dialogs,
                                            [this](const ColourPair& pair) { painted.push_back(pair); });
        window->show();
    }

    void click(const char* name) { QTest::mouseClick(window->findChild<QPushButton*>(name), Qt::LeftButton); }
    void pick(const char* swatch, std::optional<ColourValue> colour)
    {
        dialogs.prepareColour(colour);
        click(swatch);
    }
    QString look(const char* example) { return window->findChild<QLabel*>(example)->styleSheet(); }
    QString warning() { return window->findChild<QLabel*>("LbWarning")->text(); }

    ColourScheme scheme;
    ScriptedDialogs dialogs;
    std::vector<ColourPair> painted; // on the main window
    std::unique_ptr<FmColors> window;
};

constexpr ColourPair stored{0x101010, 0xE0E0E0};
constexpr ColourPair chosen{0x302010, 0xE0E0E0};

} // namespace

TEST_F(ColoursTest, APickedColourWaitsForApply)
{
    pick("PbColB0", 0x302010);
    pick("PbColF5", std::nullopt);
    EXPECT_EQ(dialogs.colourQuestions(), (std::vector<ColourValue>{0x101010, 0x000000}));
    EXPECT_TRUE(look("LbExem0").contains("background: #102030")) << look("LbExem0").toStdString();
    EXPECT_TRUE(painted.empty());
    click("CdVoir");
    EXPECT_EQ(painted, std::vector{chosen});
    EXPECT_EQ(scheme.slots[0], stored);

    click("CdValid");
    EXPECT_EQ(scheme.slots[0], chosen);
    EXPECT_EQ(scheme.slots[5], ColourScheme().slots[5]);
    EXPECT_EQ(painted.back(), chosen);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ColoursTest, ClosingEndsAPreviewHoweverItIsDone)
{
    for (const bool byKey : {false, true}) {
        open(Language::English);
        pick("PbColB0", 0x302010);
        click("CdVoir");
        byKey ? QTest::keyClick(window.get(), Qt::Key_Escape) : click("CdClose");
        EXPECT_FALSE(window->isVisible());
        EXPECT_EQ(scheme.slots[0], stored);
        EXPECT_EQ(painted.back(), stored);
    }
}

TEST_F(ColoursTest, RestoredDefaultsStayAfterClosing)
{
    pick("PbColF1", 0x123456);
    dialogs.prepareAnswer(Answer::No);
    click("CdDefaut");
    EXPECT_EQ(scheme.slots[0], stored);
    dialogs.prepareAnswer(Answer::Yes);
    click("CdDefaut");
    EXPECT_EQ(scheme, ColourScheme());
    EXPECT_EQ(painted, std::vector{ColourScheme().slots[0]});
    EXPECT_FALSE(look("LbExem1").contains("#563412"));
    click("CdClose");
    EXPECT_EQ(scheme, ColourScheme());
    EXPECT_EQ(dialogs.conversation(Language::French),
              (std::vector<std::string>(2, "Yes/No | Colors | Restaurer les couleurs par Défaut")));
}

TEST_F(ColoursTest, OneSlotIsCopiedToAllOthersInTheWindow)
{
    click("CdRepeat5");
    EXPECT_NE(scheme.slots[0], scheme.slots[5]);
    click("CdValid");
    for (const ColourPair& pair : scheme.slots) {
        EXPECT_EQ(pair, (ColourPair{0xE0E0E0, 0x000000}));
    }
}

TEST_F(ColoursTest, WarnsOfColoursThatAreHardToRead)
{
    open(Language::French);
    EXPECT_EQ(warning(), "");
    pick("PbColF0", 0x202020);
    EXPECT_EQ(warning(), "Difficile à lire : Fenêtre principale, samples");
    pick("PbColF0", 0xFFFFFF);
    EXPECT_EQ(warning(), "");
}
