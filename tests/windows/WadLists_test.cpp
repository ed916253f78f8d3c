// SPDX-License-Identifier: GPL-3.0-or-later
// A WAD's lists in the main window, the unknown samples, the viewer, and the doubles.
#include "MainWindow.h"
#include "demo/WavFile.h"
#include "references/FmView.h"
#include "samples/FmDoub.h"
#include "samples/FmSplInc.h"
#include "ui/Colours.h"
#include "ui/TickList.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>

#include <algorithm>

using namespace tavrel;

namespace {

std::vector<std::string> itemsOf(const QWidget& window, const char* list)
{
    std::vector<std::string> items;
    const auto& widget = *window.findChild<QListWidget*>(list);
    for (int row = 0; row < widget.count(); ++row) {
        items.push_back(widget.item(row)->text().toStdString());
    }
    return items;
}

// A row that fits the pattern, "*" for anything.
bool shows(const QWidget& window, const char* list, const char* pattern)
{
    const std::vector<std::string> items = itemsOf(window, list);
    const QRegularExpression wanted(QRegularExpression::wildcardToRegularExpression(pattern));
    return std::ranges::any_of(items, [&wanted](const std::string& item) {
        return wanted.match(QString::fromStdString(item)).hasMatch();
    });
}

} // namespace

TEST_F(MainWindowTest, AnImportGivesTheLetterAndShowsWhatIsUnknown)
{
    open();
    clickRow(100);
    const QString panelColours = control("PnWad").styleSheet();
    whenOpened<FmSplInc>([&](FmSplInc& unknown) {
        EXPECT_EQ(itemsOf(unknown, "LiSample"), std::vector<std::string>{"well01"});
        EXPECT_TRUE(unknown.findChild<QLabel*>("LbMeaning")
                        ->text()
                        .startsWith("1 sample of the WAD's list is not in any line"));
        EXPECT_TRUE(control("PnWad").styleSheet().contains("#c0c0c0"));
        EXPECT_FALSE(enabled("CdQuit"));
        QTest::mouseClick(unknown.findChild<QPushButton*>("CdCopyList"), Qt::LeftButton);
        EXPECT_EQ(QApplication::clipboard()->text(), "well01");
        EXPECT_EQ(unknown.findChild<QLabel*>("LbInfo")->text(), "1 name copied");
    });
    dialogs.prepareAnswer(Answer::Ok);
    dialogs.whileShowing([this] {
        EXPECT_EQ(control<QLabel>("LbPending").text(), "Modifications not yet applied")
            << "behind the notice";
    });
    click("CdLoadSAM");
    dialogs.whileShowing([] {});
    EXPECT_EQ(control("PnWad").styleSheet(), panelColours);
    EXPECT_TRUE(enabled("CdQuit"));
    EXPECT_EQ(row(), 0);
    EXPECT_TRUE(ticked("OpWAD0"));
    for (const std::size_t number : {73U, 79U, 80U}) { // the demo WAD's other samples are in every level
        EXPECT_EQ(window->catalogue().currentLine(number), stockLines()[number] + "#oa") << number;
    }
    EXPECT_TRUE(dialogs.said().back().text.english.starts_with("3 sounds got the letter.\n1 sample is"));

    whenOpened<FmView>([](FmView& view) {
        EXPECT_TRUE(shows(view, "LiSAM", "!  well01 *no sound uses it"));
        EXPECT_TRUE(shows(view, "LiSAM", "   croc_at * 80: CROC_ATTACK *"));
        EXPECT_TRUE(shows(view, "LiWAS", "!  CROCODILE * 81: CROC_DEATH *"));
        EXPECT_TRUE(shows(view, "LiSurplus", "   none"));
        EXPECT_TRUE(view.findChild<QLabel*>("LbWAS")->text().endsWith(" sounds (5)"))
            << view.findChild<QLabel*>("LbWAS")->text().toStdString();
        QTest::mouseClick(view.findChild<QPushButton*>("CdCopyList"), Qt::LeftButton);
        EXPECT_TRUE(QApplication::clipboard()->text().contains("\n!  well01"));
        EXPECT_TRUE(QApplication::clipboard()->text().contains("\n   none\n"));
    });
    click("CdViewWAD");
    dialogs.prepareAnswer(Answer::Yes);
    window->close();
}

TEST(FmView, MarksRowsSoThatTheyCanBeRead)
{
    SoundCatalogue catalogue;
    catalogue.append("A:\ta\t", "A:\ta\t", 1);
    WadView view;
    view.samples = std::vector<WadViewRow>{{"a", 0, WadViewMark::Lacking, false}};
    for (const ColourPair& pair :
         {ColourScheme().slots[1], ColourPair{0xFFFFFF, 0x000000}, ColourPair{0x808080, 0x000000}}) {
        ColourScheme colours;
        colours.slots[1] = pair;
        const FmView window(nullptr, catalogue, {"w", "ab", ""}, view, colours, Language::English);
        const QColor marked = window.findChild<QListWidget*>("LiSAM")->item(0)->foreground().color();
        EXPECT_GE(contrastOf({pair.back, colourValue(marked)}), leastContrast) << pair.back;
    }
}

TEST_F(MainWindowTest, AnImportOfObjectsSaysWhatItDidInFrench)
{
    ProgramSettings settings = LoadSettings(folders.program).settings;
    settings.language = Language::French;
    ASSERT_FALSE(SaveSettings(folders.program, settings));
    open();
    clickRow(100);
    dialogs.prepareAnswer(Answer::Ok);
    click("CdLoadWAS");
    EXPECT_TRUE(ticked("OpWAD1"));
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(window->catalogue().currentLine(81), stockLines()[81] + "#oa");
    EXPECT_EQ(control<QLabel>("LbPending").text(), "Modifications non encore appliquées");
    const std::vector<std::string> said = dialogs.conversation(Language::French);
    ASSERT_EQ(said.size(), 2U);
    EXPECT_TRUE(said[0].starts_with("OK/Cancel | Charger fichier WAS | Ouvrir [oasis.WAS]")) << said[0];
    EXPECT_TRUE(
        said[1].find(
            " sons ont reçu la lettre.\n1 objet de la liste n'a pas de sons connus de Tavrel : [LARA]\n\n") !=
        std::string::npos)
        << said[1];
}

TEST_F(MainWindowTest, ACancelledImportLeavesTheSelection)
{
    open();
    clickRow(73);
    click("CdAddWAD");
    auto& letters = control<QListWidget>("LiWAD");
    ASSERT_EQ(letters.currentRow(), 0);
    dialogs.prepareAnswer(Answer::Cancel);
    click("CdLoadSAM");
    std::filesystem::remove(folders.levelEditor / "graphics" / "wads" / "oasis.was");
    click("CdLoadWAS"); // no such file
    EXPECT_EQ(letters.currentRow(), 0);
    EXPECT_EQ(row(), 73);
}

TEST_F(MainWindowTest, TheSettingsCanForbidImportsOnceThereIsWork)
{
    ProgramSettings settings = LoadSettings(folders.program).settings;
    settings.loadWadAfterChanges = false;
    ASSERT_FALSE(SaveSettings(folders.program, settings));
    open();
    EXPECT_TRUE(enabled("CdLoadSAM"));
    type("TxVOL", "12");
    click("CdValidW");
    EXPECT_FALSE(enabled("CdLoadSAM") || enabled("CdLoadWAS"));
    EXPECT_TRUE(control("CdLoadSAM")
                    .toolTip()
                    .endsWith("\nOff while modifications are pending or saved for this "
                              "WAD. Parameters can allow it."));
    dialogs.prepareAnswer(Answer::Ok);
    dialogs.prepareAnswer(Answer::Yes);
    click("CdApply");
    EXPECT_TRUE(enabled("CdLoadSAM"));
    clickRow(73);
    writeBytes(folders.levelEditor / "sound" / "Samples" / "other.wav", wavBytes({.seconds = 0.01}));
    type("TxSamp", "other");
    click("CdAddSmp");
    dialogs.prepareAnswer(Answer::Yes);
    click("CdApply");
    EXPECT_FALSE(enabled("CdLoadWAS")) << "lines are saved for this WAD";
}

TEST_F(MainWindowTest, TheSavedLinesOfAWadAreLookedUpOnce)
{
    ProgramSettings settings = LoadSettings(folders.program).settings;
    settings.loadWadAfterChanges = false;
    ASSERT_FALSE(SaveSettings(folders.program, settings));
    open();
    for (const char* name : {"oasis.tor", "TOMB_OF_WIND.TOR"}) {
        writeBytes(folders.program / "sounds" / name, "");
    }
    clickRow(1);
    EXPECT_TRUE(enabled("CdLoadWAS")) << "not at each selection";
    QTest::keyClick(&control("CbTWad"), Qt::Key_Down);
    EXPECT_FALSE(enabled("CdLoadWAS")) << "but when a WAD is chosen";
}

namespace {

class FmDoubTest : public testing::Test
{
protected:
    void open(Language language = Language::English)
    {
        window = std::make_unique<FmDoub>(nullptr, folders.program, emptyAndUnsureSounds, ColourScheme(),
                                          language, dialogs);
        window->show();
    }
    void click(const char* button)
    {
        QTest::mouseClick(window->findChild<QPushButton*>(button), Qt::LeftButton);
    }
    TickList& list() { return *window->findChild<TickList*>("LiDoub"); }
    QString tipOf(int row) { return list().model()->index(row, 0).data(Qt::ToolTipRole).toString(); }
    std::string file() const { return readBytes(folders.program / "Tavrel.tod"); }

    DemoFolders folders;
    ScriptedDialogs dialogs;
    std::unique_ptr<FmDoub> window;
};

} // namespace

TEST_F(FmDoubTest, WritesTheTicks)
{
    for (const auto& [button, present, absent] :
         {std::tuple{"CdUntickAll", "\"   \"", "\"OK \""}, {"CdTickAll", "\"OK \"", "\"   \""}}) {
        open(Language::French);
        click(button);
        click("CdOK");
        EXPECT_EQ(window->result(), QDialog::Accepted);
        EXPECT_NE(file().find(present), std::string::npos);
        EXPECT_EQ(file().find(absent), std::string::npos);
    }
}

TEST_F(FmDoubTest, OpensOnItsList)
{
    writeBytes(folders.program / "Tavrel.tod",
               "7,\"   \",\"\",\"N\",\"s\",\"\"\r\n27,\"OK \",\"\",\"N\",\"s\",\"\"\r\n");
    open();
    QApplication::setActiveWindow(window.get());
    EXPECT_EQ(list().palette().color(QPalette::Base), colourFrom(ColourScheme().slots[0].back));
    ASSERT_EQ(window->focusWidget(), &list());
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(list().isTicked(0));
    EXPECT_EQ(tipOf(0), "");
    EXPECT_TRUE(tipOf(1).startsWith("Protected sound"));
}

TEST_F(FmDoubTest, SaysWhatCannotBeRead)
{
    std::filesystem::remove(folders.program / "Tavrel.tod");
    open();
    QCoreApplication::processEvents();
    ASSERT_EQ(dialogs.said().size(), 1U);
    EXPECT_NE(dialogs.said()[0].text.french.find("Tavrel.tod"), std::string::npos);
    EXPECT_EQ(list().rows(), 0U);
    for (const char* button : {"CdTickAll", "CdUntickAll", "CdOK"}) {
        EXPECT_FALSE(window->findChild<QPushButton*>(button)->isEnabled()) << button;
    }
}
