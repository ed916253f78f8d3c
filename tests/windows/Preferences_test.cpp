// SPDX-License-Identifier: GPL-3.0-or-later
// The options, the windows behind them, the help and the view of sounds.txt, all from the main window.
#include "MainWindow.h"
#include "app/FmPreferences.h"
#include "app/FmSounds.h"
#include "base/CodePage.h"
#include "samples/FmDoub.h"
#include "ui/FmColors.h"
#include "ui/FmHelp.h"
#include "ui/TickList.h"

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTextCursor>

using namespace tavrel;

namespace {

constexpr int protectedSound = 27;

template <typename Control = QWidget>
Control& in(QWidget& window, const char* name)
{
    return *window.findChild<Control*>(name);
}

void press(QWidget& window, const char* name)
{
    QTest::mouseClick(&in(window, name), Qt::LeftButton);
}

void tickIn(QWidget& window, const char* name)
{
    QWidget& box = in(window, name);
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
}

class PreferencesTest : public MainWindowTest
{
protected:
    template <typename Act>
    void preferences(Act act)
    {
        whenOpened<FmPreferences>(act);
        click("CdParam");
    }
};

} // namespace

TEST_F(PreferencesTest, EveryOptionIsShownHoldsAndIsSaved)
{
    open();
    const ProgramSettings before = window->settings();
    preferences([&before](FmPreferences& options) {
        const std::array<const char*, panelCount> boxes = {"CkFctW", "CkFctP", "CkFctM", "CkFctE",
                                                           "CkWADS", "CkLETO", "CkSAMP", "CkPlus"};
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            EXPECT_EQ(in<QAbstractButton>(options, boxes[i]).isChecked(), before.panels[i]) << boxes[i];
            tickIn(options, boxes[i]);
        }
        EXPECT_TRUE(in<QAbstractButton>(options, "OpNotPad0").isChecked());
        tickIn(options, "OpNotPad1");
        tickIn(options, "CkEmpty");
        tickIn(options, "CkLoadSAM");
        press(options, "CdOK");
    });
    ProgramSettings expected = before;
    for (bool& shown : expected.panels) {
        shown = !shown;
    }
    expected.notepadMode = WindowMode::Maximised;
    expected.protectedLinesEditable = true;
    expected.loadWadAfterChanges = false;
    EXPECT_EQ(window->settings(), expected);
    EXPECT_FALSE(control("CdStats").isVisible() == before.panel(Panel::ProgramFunctions));

    dialogs.prepareAnswer(Answer::No);
    click("CdEdit");
    EXPECT_EQ(programs.edited.back().second, WindowMode::Maximised);
    window->close();
    EXPECT_EQ(LoadSettings(folders.program).settings, expected);
}

TEST_F(PreferencesTest, TheProtectedLinesFollowAtOnceWhenNothingIsPending)
{
    open();
    clickRow(5);
    const auto toggle = [this] {
        preferences([](FmPreferences& options) {
            tickIn(options, "CkEmpty");
            QTest::keyClick(&options, Qt::Key_Escape); // holds like "Close"
        });
    };
    toggle();
    EXPECT_EQ(row(), 5);
    EXPECT_FALSE(window->catalogue().isProtected(protectedSound));

    type("TxVOL", "50");
    click("CdValidW");
    toggle();
    EXPECT_FALSE(window->settings().protectedLinesEditable);
    EXPECT_FALSE(window->catalogue().isProtected(protectedSound)) << "only at the next load";
    EXPECT_TRUE(window->session().pending());
    ASSERT_EQ(dialogs.said().size(), 1U);
    EXPECT_TRUE(dialogs.said().back().text.english.ends_with("is loaded the next time."));
    toggle();
    EXPECT_EQ(dialogs.said().size(), 1U) << "as it was loaded";
}

TEST_F(PreferencesTest, WhatIsLoadedStaysWhenItCannotBeReadAgain)
{
    open();
    const std::string sounds = readBytes(folders.sounds);
    std::filesystem::remove(folders.sounds);
    const auto toggle = [](FmPreferences& options) {
        tickIn(options, "CkEmpty");
        press(options, "CdOK");
    };
    preferences(toggle);
    EXPECT_EQ(dialogs.said().back().kind, "critical");
    EXPECT_EQ(window->catalogue().size(), stockLines().size());
    EXPECT_TRUE(enabled("CdApply"));

    writeBytes(folders.sounds, sounds);
    preferences([](FmPreferences& options) { press(options, "CdOK"); });
    EXPECT_TRUE(window->catalogue().isProtected(protectedSound)) << "not at every closing";
    window->load();
    EXPECT_FALSE(window->catalogue().isProtected(protectedSound)) << "made up for at the next load";
}

TEST_F(PreferencesTest, ANewColourReachesTheShownLists)
{
    open();
    const auto expectGround = [this](const char* colour) {
        QCoreApplication::processEvents();
        for (const char* area : {"LiSFX", "LiWAD", "LiSamp", "TxOrig", "TxModif"}) {
            QWidget& view = *control<QAbstractScrollArea>(area).viewport();
            const QPoint corner(view.width() - 2, view.height() - 2);
            EXPECT_EQ(view.grab().toImage().pixelColor(corner).name().toStdString(), colour) << area;
        }
    };
    window->grab();
    expectGround("#404040");
    dialogs.prepareColour(0xC0E0F0);
    preferences([&expectGround](FmPreferences& options) {
        whenOpened<FmColors>([&expectGround](FmColors& colours) {
            press(colours, "PbColB0");
            press(colours, "CdVoir");
            expectGround("#f0e0c0");
            press(colours, "CdClose");
        });
        press(options, "CdColor");
    });
    expectGround("#404040");
}

TEST_F(PreferencesTest, ADamagedSettingsFileIsKeptOnce)
{
    std::string settings = readBytes(folders.program / "Tavrel.par");
    settings.replace(settings.find("\"E\""), 3, "\"X\"");
    writeBytes(folders.program / "Tavrel.par", settings);
    open();
    for (int i = 0; i < 2; ++i) {
        dialogs.prepareFile(folders.levelEditor / "winroomedit.exe");
        preferences([](FmPreferences& options) { press(options, "CdSelLE"); });
    }
    window->close();
    EXPECT_EQ(readBytes(folders.program / "Tavrel_copy1.par"), settings);
    EXPECT_FALSE(std::filesystem::exists(folders.program / "Tavrel_copy2.par"));
}

TEST_F(PreferencesTest, TheLanguageOptionsSwitchTheOpenWindowsAtOnce)
{
    open();
    preferences([this](FmPreferences& options) {
        tickIn(options, "OpLang1");
        EXPECT_EQ(in<QAbstractButton>(options, "CdOK").text().remove('&'), "Fermer");
        EXPECT_EQ(control<QAbstractButton>("CdQuit").text().remove('&'), "Quitter Tavrel");
        EXPECT_TRUE(ticked("OpLangF"));
        tickIn(options, "OpLang0");
        EXPECT_EQ(in<QAbstractButton>(options, "CdOK").text().remove('&'), "Close");
        EXPECT_EQ(control<QAbstractButton>("CdQuit").text().remove('&'), "Quit Tavrel");
        tickIn(options, "OpLang1");
    });
    EXPECT_EQ(window->settings().language, Language::French);
}

TEST_F(PreferencesTest, AnotherLevelEditorIsLoadedFromAtOnce)
{
    open();
    const std::filesystem::path other = folders.root / "other";
    std::vector<std::string> lines = stockLines();
    lines[0] = "OTHER_FEET:\tfoot01\t\t\t\tVOL77\t#g";
    writeBytes(other / "sound" / "LevelSFX Creator" / "sounds.txt", textOf(lines));
    const std::filesystem::path broken = folders.root / "broken";
    std::filesystem::create_directories(broken / "sound" / "LevelSFX Creator");
    const std::string otherFolder = (other / "").string();

    type("TxVOL", "50");
    click("CdValidW");
    const auto choose = [this](std::initializer_list<Answer> answers,
                               std::optional<std::filesystem::path> program) {
        for (const Answer answer : answers) {
            dialogs.prepareAnswer(answer);
        }
        if (program) {
            dialogs.prepareFile(program);
        }
        std::string shown;
        preferences([&shown](FmPreferences& options) {
            press(options, "CdSelLE");
            shown = in<QLabel>(options, "LbPath").text().toStdString();
        });
        return shown;
    };
    const std::string before = utf8FromCodePage(window->settings().LevelEditorFolder);
    EXPECT_EQ(choose({Answer::No}, {}), before);
    EXPECT_TRUE(window->session().pending());

    EXPECT_EQ(choose({Answer::Yes}, broken / "winroomedit.exe"), before);
    EXPECT_EQ(dialogs.said().back().kind, "critical");
    EXPECT_TRUE(window->session().pending()) << "a load that fails leaves everything as it was";

    EXPECT_EQ(choose({Answer::Yes}, other / "NGLE.exe"), otherFolder);
    EXPECT_EQ(window->catalogue().currentLine(0), lines[0]);
    EXPECT_EQ(utf8FromCodePage(LoadSettings(folders.program).settings.LevelEditorFolder), otherFolder);
    EXPECT_EQ(control<QLabel>("LbPath").text().toStdString(), otherFolder);

    dialogs.prepareFile(std::nullopt);
    EXPECT_EQ(choose({}, {}), otherFolder) << "cancelled";
    EXPECT_EQ(dialogs.fileQuestions().back().folder, other / "");
}

TEST_F(PreferencesTest, LeadToTheColoursAndTheDoubles)
{
    open();
    type("TxVOL", "50");
    click("CdValidW");
    std::string left;
    preferences([&left](FmPreferences& options) {
        whenOpened<FmColors>([](FmColors& colours) { press(colours, "CdClose"); });
        press(options, "CdColor");
        whenOpened<FmDoub>([&left](FmDoub& doubles) {
            auto& list = in<TickList>(doubles, "LiDoub");
            left = list.model()->index(0, 0).data().toString().toStdString();
            list.tick({0}, false);
            press(doubles, "CdOK");
        });
        press(options, "CdDoub");
    });
    const std::size_t number = std::stoul(left);
    EXPECT_EQ(window->catalogue().doubles().of(number), DoublesStatus::leftOut) << left;
    EXPECT_TRUE(window->session().pending()) << "only the doubles are read again";
}

TEST_F(PreferencesTest, PendingChangesMakeSoundsTxtAFileToRead)
{
    open();
    type("TxVOL", "50");
    click("CdValidW");
    const auto lara = [](const FmSounds& view) {
        return view.findChild<QPlainTextEdit*>("TxSound")->textCursor().selectionStart();
    };
    whenOpened<FmSounds>([&lara](FmSounds& view) {
        QApplication::setActiveWindow(&view);
        auto& text = in<QPlainTextEdit>(view, "TxSound");
        const QString shown = text.toPlainText();
        const qsizetype first = shown.indexOf("LARA", 0, Qt::CaseInsensitive);
        const qsizetype second = shown.indexOf("LARA", first + 1, Qt::CaseInsensitive);
        EXPECT_FALSE(shown.contains("foot01\t\t\t\tVOL50"));
        EXPECT_FALSE(in<QPushButton>(view, "CdLook").isEnabled());
        QTest::keyClicks(&in(view, "TxSearch"), "lArA");
        QTest::keyClick(&in(view, "TxSearch"), Qt::Key_Return);
        EXPECT_EQ(lara(view), first);
        EXPECT_EQ(text.textCursor().selectedText().size(), 4);
        QTest::keyClick(&view, Qt::Key_F3);
        EXPECT_EQ(lara(view), second);

        tickIn(view, "CkUL");
        press(view, "CdLook");
        EXPECT_EQ(lara(view), second) << "not in these letters";
        press(view, "CdDebut");
        EXPECT_TRUE(text.hasFocus());
        EXPECT_FALSE(text.textCursor().hasSelection());
        tickIn(view, "CkUL");
        press(view, "CdLook");
        EXPECT_EQ(lara(view), first);

        // The search goes on where the user clicks.
        text.moveCursor(QTextCursor::Start);
        const QTextCursor clicked(text.document()->findBlockByNumber(7));
        QTest::mouseClick(text.viewport(), Qt::LeftButton, {}, text.cursorRect(clicked).center());
        QCoreApplication::processEvents();
        press(view, "CdLook");
        EXPECT_EQ(lara(view), shown.indexOf("LARA", clicked.position(), Qt::CaseInsensitive));
    });
    click("CdEdit");
    EXPECT_TRUE(programs.edited.empty());

    std::filesystem::remove(folders.sounds);
    click("CdEdit");
    EXPECT_EQ(dialogs.said().back().kind, "exclamation") << "no window without a file";
}

TEST_F(PreferencesTest, TheHelpFollowsTheLanguageAndOpensOnce)
{
    writeBytes(folders.program / "SFX_Fra1.txt", "L'aide\r\n");
    open();
    tick("OpLangF");
    whenOpened<FmHelp>([](FmHelp& help) {
        EXPECT_EQ(in<QPlainTextEdit>(help, "TxHlp").toPlainText(), "L'aide\n");
        QTest::keyClick(&help, Qt::Key_F1); // no second one
        press(help, "CdClose");
    });
    click("CdHlp");

    std::filesystem::remove(folders.program / "SFX_Fra1.txt");
    click("CdHlp");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "no window and no message without its file";
}
