// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's generation, from the click to the enabled window, and the windows of restore and
// statistics.
#include "MainWindow.h"
#include "demo/WavFile.h"
#include "generation/FmDefault.h"
#include "generation/FmStats.h"
#include "samples/FmCheck.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

using namespace tavrel;

namespace {

class MainWindowGenerationTest : public MainWindowTest
{
protected:
    QString info() { return control<QLabel>("LbInfo").text(); }
    bool isBusy() const { return QApplication::overrideCursor() != nullptr; }
    bool waitUntilEnabled(int milliseconds)
    {
        return QTest::qWaitFor([this] { return window->isEnabled(); }, milliseconds);
    }
    void begin()
    {
        dialogs.prepareAnswer(Answer::Ok); // most samples are missing: generate all the same
        dialogs.prepareAnswer(Answer::Ok);
        control("CdCopy").setFocus();
        click("CdCopy");
    }

    std::filesystem::path wads = folders.levelEditor / "graphics" / "wads";
};

#ifndef _WIN32 // where the batch file waits for a key in its console window
// With Wine and the stand-in for the tool.
class MainWindowGenerationRun : public MainWindowGenerationTest
{
protected:
    MainWindowGenerationRun()
    {
        useWineOfTheTests();
        installTool(folders.creator);
        batches = realBatches.get();
        writeBytes(folders.sounds, textOf({"OURS:\t\tone\t\t#oa", "ALL:\t\ttwo\t\t#g"}));
        std::filesystem::remove(wads / "oasis.sam");
        open();
    }

    std::unique_ptr<BatchRunner> realBatches = makeSystemBatchRunner();
};
#endif

} // namespace

#ifndef _WIN32
TEST_F(MainWindowGenerationRun, FromTheClickToTheEnabledWindow)
{
    const ToolSetting slow("TAVREL_TOOL_TAKES", "4500");
    QElapsedTimer time;
    time.start();
    begin();
    EXPECT_FALSE(window->isEnabled());
    EXPECT_TRUE(isBusy());
    EXPECT_TRUE(control("PbBusy").isVisible());
    EXPECT_TRUE(info().contains("sound files of [oasis]")) << info().toStdString();
    window->close();
    QTest::keyClick(window.get(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(window->isVisible()) << "close requests are ignored";

    EXPECT_TRUE(waitUntilEnabled(60000));
    EXPECT_GE(time.elapsed(), 4500) << "the .sfx file was there at the first look";
    EXPECT_EQ(readBytes(wads / "oasis.sam"), "one.wav\r\ntwo.wav\r\n");
    EXPECT_TRUE(std::filesystem::exists(wads / "oasis.sfx"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return info().contains("generated"); }, 20000))
        << info().toStdString();
    EXPECT_EQ(namesIn(folders.creator), (std::vector<std::string>{"Sounds.txt", "pcwadsfx.exe"}));
    EXPECT_FALSE(isBusy());
    EXPECT_FALSE(control("PbBusy").isVisible());
    EXPECT_TRUE(control("CdCopy").hasFocus());
    EXPECT_TRUE(window->close());
}
#endif

TEST_F(MainWindowGenerationTest, EnablesAfterThreeSecondsThoughTheConsoleIsOpen)
{
    open();
    type("TxVOL", "12"); // not accepted
    QElapsedTimer time;
    time.start();
    begin();
    EXPECT_TRUE(info().contains("sound files of [oasis]")) << info().toStdString();
    EXPECT_EQ(dialogs.said()[1].text.english, "Modifications not applied.");
    EXPECT_EQ(text("TxVOL"), "12") << "the selected line's values are not touched";
    EXPECT_TRUE(waitUntilEnabled(10000));
    EXPECT_GE(time.elapsed(), 3000);
    EXPECT_LT(time.elapsed(), 5000);
    EXPECT_FALSE(isBusy());
    EXPECT_TRUE(std::filesystem::exists(folders.creator / "CreateSFX.bat"));
    EXPECT_TRUE(info().contains("still running")) << info().toStdString();
    *heldBatches.ended = true;
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return !std::filesystem::exists(folders.creator / "CreateSFX.bat"); }, 10000));
    EXPECT_TRUE(info().startsWith("No new"));
}

TEST_F(MainWindowGenerationTest, ErrorsOfTheLevelAreShownBeforeAnythingIsAsked)
{
    writeBytes(folders.sounds, textOf({"OURS:\t\tgone\t\tVOL00\t\t\t\t\t\t#oa", "THEIRS:\t\tlost\t\t#pa"}));
    open();
    dialogs.prepareAnswer(Answer::Other);
    click("CdCopy");
    ASSERT_FALSE(dialogs.said().empty());
    const std::string told = dialogs.said().back().text.english;
    EXPECT_TRUE(told.starts_with("3 errors would go into the level:")) << told;
    EXPECT_NE(told.find("[gone.wav] is not in the samples folder."), std::string::npos) << told;
    EXPECT_EQ(told.find("lost"), std::string::npos) << "of another level";
    EXPECT_TRUE(window->isEnabled());
    auto* const checks = window->findChild<QDialog*>("FmChecks");
    ASSERT_NE(checks, nullptr);
    EXPECT_TRUE(checks->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] {
        return control<QListWidget>("LiSamp").item(0)->toolTip().contains("gone.wav");
    })) << "the sample is marked";
}

TEST_F(MainWindowGenerationTest, AWrongSampleLeadsToTheCheckOfTheFolder)
{
    writeBytes(folders.levelEditor / "sound" / "Samples" / "foot03.wav", wavBytes({.channels = 2}));
    open();
    tick("OpLangF");
    dialogs.whileShowing([this] {
        EXPECT_EQ(info(), "Génération des fichiers SFX de [oasis] - contrôle de l'intégrité du sample : "
                          "[foot03.wav]...");
        const auto& label = control<QLabel>("LbInfo");
        EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(192, 0, 0));
        EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()), label.contentsRect().width() - 12)
            << "the name of the sample can be read";
        EXPECT_FALSE(isBusy());
    });
    bool opened = false;
    whenOpened<FmCheck>([&opened](const FmCheck& check) {
        opened = check.findChild<QWidget*>("PnInfo")->isVisible() &&
                 check.focusWidget() == check.findChild<QWidget*>("ImPlus");
    });
    begin();
    EXPECT_TRUE(opened) << "with the check offered";
    EXPECT_EQ(dialogs.said().back().kind, "critical");
    EXPECT_EQ(info(), "");
    EXPECT_TRUE(control("LbPath").isVisible());
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(namesIn(folders.creator), std::vector<std::string>{"Sounds.txt"});
}

TEST_F(MainWindowGenerationTest, ARestoredCatalogueIsOfferedToBeLoaded)
{
    open();
    window->reloadIfReplaced(); // nothing was restored, nothing is asked
    type("TxVOL", "12");
    click("CdValidW");
    const std::string changed = window->catalogue().currentLine(0);
    std::string stock = readBytes(dataFolder() / "Tavrel.tos");
    whenOpened<FmDefault>([this](FmDefault& chooser) {
        auto& start = *chooser.findChild<QPushButton*>("CdOK");
        QTest::mouseClick(&start, Qt::LeftButton);
        EXPECT_TRUE(chooser.isVisible());
        EXPECT_EQ(dialogs.said().back().text.english, "Choose what to restore");
        chooser.findChild<QCheckBox*>("CkDefFile")->click();
        chooser.findChild<QCheckBox*>("CkDefDir")->click();
        QTest::mouseClick(&start, Qt::LeftButton);
        EXPECT_FALSE(chooser.isVisible());
    });
    window->openRestore(window.get());
    EXPECT_EQ(dialogs.said().back().kind, "critical") << "the program folder has no samples to restore";
    EXPECT_EQ(readBytes(folders.sounds), stock);
    EXPECT_FALSE(isBusy());

    dialogs.prepareAnswer(Answer::No);
    window->reloadIfReplaced();
    EXPECT_NE(dialogs.said().back().text.english.find("not applied would be lost"), std::string::npos);
    EXPECT_TRUE(dialogs.said().back().refusalIsDefault);
    EXPECT_EQ(window->catalogue().currentLine(0), changed);
    const std::size_t said = dialogs.said().size();
    window->reloadIfReplaced();
    EXPECT_EQ(dialogs.said().size(), said) << "asked once";

    whenOpened<FmDefault>([](FmDefault& chooser) {
        chooser.findChild<QCheckBox*>("CkDefFile")->click();
        QTest::keyClick(&chooser, Qt::Key_Escape);
    });
    window->openRestore(window.get());
    whenOpened<FmDefault>([](FmDefault& chooser) {
        EXPECT_FALSE(chooser.choice().any()) << "nothing is left from the last time";
        chooser.findChild<QCheckBox*>("CkDefFile")->click();
        chooser.findChild<QPushButton*>("CdOK")->click();
    });
    window->openRestore(window.get());
    EXPECT_EQ(dialogs.said().back().kind, "information");
    dialogs.prepareAnswer(Answer::Yes);
    window->reloadIfReplaced();
    EXPECT_EQ(window->catalogue().currentLine(0), stockLines()[0]);
    EXPECT_FALSE(window->session().pending());
}

TEST_F(MainWindowGenerationTest, TheStatisticsShowWhatTheScriptHolds)
{
    open();
    const std::filesystem::path script = folders.levelEditor / "script" / "script.txt";
    whenOpened<FmStats>([&](FmStats& stats) {
        const auto column = [&stats](const char* number) {
            QStringList texts;
            for (const char* row : {"TxTG", "TxGT", "TxOG", "TxTR"}) {
                texts += stats.findChild<QLineEdit*>(QString(row) + number)->text();
            }
            return texts.join(' ').toStdString();
        };
        auto& count = *stats.findChild<QPushButton*>("CdStats");
        EXPECT_EQ(count.text().remove('&'), "Voir les statistiques");
        QTest::mouseClick(&count, Qt::LeftButton);
        EXPECT_EQ(column("0"), "1 1 0 1");
        EXPECT_EQ(column("1"), "0 0 1 0");
        EXPECT_EQ(column("2"), "1 1 1 1");
        writeBytes(script, "[level]\n$2000 $2000\n[end]");
        count.click();
        EXPECT_EQ(column("0") + column("1") + column("2"), "0 0 0 2"
                                                           "   "
                                                           "0 0 0 2");
        std::filesystem::remove(script);
        count.click();
        EXPECT_EQ(dialogs.said().back().kind, "critical");
        EXPECT_EQ(column("2"), "0 0 0 2") << "the grid stays, and so does the window";
        EXPECT_TRUE(stats.isVisible());
        writeBytes(script, "[level]\n[level]\n[level]\n[level]\n$2000\n.");
        count.click();
        EXPECT_EQ(dialogs.said().back().kind, "exclamation");
        EXPECT_EQ(column("2"), "0 0 0 0");
        QTest::mouseClick(stats.findChild<QPushButton*>("CdAnnul"), Qt::LeftButton);
        EXPECT_FALSE(stats.isVisible());
    });
    click("CdStats");
    EXPECT_EQ(dialogs.said().size(), 2U);
}
