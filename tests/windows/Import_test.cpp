// SPDX-License-Identifier: GPL-3.0-or-later
// A WAD's lists in the main window, the unknown samples, the viewer, and the doubles.
#include "MainWindow.h"
#include "references/FmView.h"
#include "samples/FmDoub.h"
#include "samples/FmSplInc.h"
#include "ui/Colours.h"

#include <QApplication>
#include <QClipboard>
#include <QListWidget>
#include <QPushButton>

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

} // namespace

TEST_F(MainWindowTest, AnImportGivesTheLetterAndShowsWhatIsUnknown)
{
    open();
    clickRow(100);
    whenOpened<FmSplInc>([](FmSplInc& unknown) {
        EXPECT_EQ(itemsOf(unknown, "LiSample"), std::vector<std::string>{"well01"});
        QTest::mouseClick(unknown.findChild<QPushButton*>("CdCopyList"), Qt::LeftButton);
        EXPECT_EQ(QApplication::clipboard()->text(), "well01");
    });
    dialogs.prepareAnswer(Answer::Ok);
    click("CdLoadSAM");
    EXPECT_EQ(row(), 0);
    EXPECT_TRUE(ticked("OpWAD0"));
    for (const std::size_t number : {73U, 79U, 80U}) { // the demo WAD's other samples are in every level
        EXPECT_EQ(window->catalogue().currentLine(number), stockLines()[number] + "#oa") << number;
    }
    EXPECT_TRUE(dialogs.said().back().text.english.starts_with("3 line(s) got the letter.\n1 sample(s)"));

    whenOpened<FmView>([](FmView& view) {
        const std::vector<std::string> samples = itemsOf(view, "LiSAM");
        EXPECT_NE(std::ranges::find(samples, "!  well01               "), samples.end());
        EXPECT_NE(std::ranges::find(samples, "   croc_at               80: CROC_ATTACK           "),
                  samples.end());
        const std::vector<std::string> objects = itemsOf(view, "LiWAS");
        EXPECT_NE(std::ranges::find(objects, "!  CROCODILE             81: CROC_DEATH            "),
                  objects.end());
    });
    click("CdViewWAD");
    dialogs.prepareAnswer(Answer::Yes);
    window->close();
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
    EXPECT_TRUE(control("CdLoadSAM").toolTip().contains("Not once modifications"));
    dialogs.prepareAnswer(Answer::Yes);
    click("CdApply");
    EXPECT_TRUE(enabled("CdLoadSAM"));
    writeBytes(folders.program / "sounds" / "OASIS.TOR", "");
    clickRow(1);
    EXPECT_FALSE(enabled("CdLoadWAS")) << "lines are saved for this WAD";
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
    QListWidget& list() { return *window->findChild<QListWidget*>("LiDoub"); }
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
    EXPECT_EQ(list().item(0)->checkState(), Qt::Unchecked);
    EXPECT_EQ(list().item(0)->toolTip(), "");
    EXPECT_TRUE(list().item(1)->toolTip().startsWith("Protected sound"));
}

TEST_F(FmDoubTest, SaysWhatCannotBeRead)
{
    std::filesystem::remove(folders.program / "Tavrel.tod");
    open();
    QCoreApplication::processEvents();
    ASSERT_EQ(dialogs.said().size(), 1U);
    EXPECT_NE(dialogs.said()[0].text.french.find("Tavrel.tod"), std::string::npos);
    EXPECT_EQ(list().count(), 0);
    for (const char* button : {"CdTickAll", "CdUntickAll", "CdOK"}) {
        EXPECT_FALSE(window->findChild<QPushButton*>(button)->isEnabled()) << button;
    }
}
