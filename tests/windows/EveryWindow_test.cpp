// SPDX-License-Identifier: GPL-3.0-or-later
// Opens every window in both languages: no caption is clipped, every control says what it is for, and no
// mnemonic stands twice. With TAVREL_SCREENSHOTS set to a folder, a picture of each is left there.
#include "MainWindow.h"
#include "app/FmLanguage.h"
#include "app/SoundListModel.h"
#include "catalogue/PastedLines.h"
#include "checks/FindingQuestions.h"
#include "checks/SessionChecks.h"
#include "demo/DemoFolder.h"
#include "samples/FmSplInc.h"
#include "session/FmRecover.h"
#include "ui/FmHelp.h"
#include "ui/MessageWindow.h"
#include "ui/QtDialogs.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextBlock>
#include <QToolButton>

#include <set>

using namespace tavrel;

namespace {

struct Door
{
    const char* window; // object name
    std::vector<const char*>
        controls; // buttons or actions on the way from the main window, one after another
};

const Door doors[] = {
    {"FmPreferences", {"CdParam"}},
    {"FmColors", {"CdParam", "CdColor"}},
    {"FmDoub", {"CdParam", "CdDoub"}},
    {"FmDefault", {"CdParam", "CdDefaut"}},
    {"FmHelp", {"CdHlp"}},
    {"FmRefW", {"CdRefW"}},
    {"FmObject", {"CdObj"}},
    {"FmView", {"CdViewWAD"}},
    {"FmSounds", {"CdEdit"}},
    {"FmStats", {"CdStats"}},
    {"FmCheck", {"CdSmpCheck"}},
    {"FmSamp", {"CdChSamp"}},
    {"FmExport", {"CdExport"}},
    {"FmImport", {"CdImport"}},
    {"FmReview", {"AcReview"}},
    {"FmCompare", {"AcCompare"}},
    {"FmVersions", {"AcVersions"}},
    {"FmChecks", {"AcChecks"}},
    {"FmLevels", {"AcLevels"}},
};

// Left without one on purpose.
const std::set<QString> withoutToolTip = {"CkN", "TxPIT", "TxRAD"};

class EveryWindowTest : public MainWindowTest, public testing::WithParamInterface<Language>
{
protected:
    EveryWindowTest()
    {
        makeLevelEditorFolder(folders.levelEditor, dataFolder(), DemoSamples::All);
        ProgramSettings chosen = LoadSettings(folders.program).settings;
        chosen.language = GetParam();
        EXPECT_FALSE(SaveSettings(folders.program, chosen));
    }

    // The picture's name is the window's own where no other is given.
    void lookAt(QWidget& shown, const QString& picture = {})
    {
        SCOPED_TRACE(shown.objectName().toStdString());
        QCoreApplication::processEvents();
        seen.insert(shown.objectName());
        takePicture(shown, picture.isEmpty() ? shown.objectName() : picture);
        std::map<QChar, QString> mnemonics;
        for (const QWidget* const found : shown.findChildren<QWidget*>()) {
            if (!found->isVisible() || found->window() != &shown || found->objectName().startsWith("qt_")) {
                continue;
            }
            lookForClipping(*found);
            lookForWords(*found);
            if (const auto* const button = qobject_cast<const QAbstractButton*>(found)) {
                const QString text = button->text();
                const auto mark = text.indexOf('&');
                if (mark >= 0 && mark + 1 < text.size() && text[mark + 1] != '&') {
                    const auto [other, isNew] = mnemonics.emplace(text[mark + 1].toUpper(), text);
                    EXPECT_TRUE(isNew) << text.toStdString() << " and " << other->second.toStdString();
                }
            }
        }
    }

    // The help opens at a section that names the window.
    void askForHelp(QWidget& shown)
    {
        if (shown.objectName() == "FmHelp") {
            return;
        }
        QString section;
        whenOpened<FmHelp>([&section](FmHelp& help) {
            QTest::qWait(20);
            section = help.findChild<QPlainTextEdit*>("TxHlp")->cursorForPosition({2, 2}).block().text();
        });
        QApplication::setActiveWindow(&shown);
        QTest::keyClick(&shown, Qt::Key_F1);
        const QString keys = GetParam() == Language::English ? "8. KEYS" : "8. LES TOUCHES";
        const QString title = &shown == window.get() ? keys : shown.windowTitle();
        const bool isNamed = section.contains(title) || (!section.isEmpty() && title.startsWith(section));
        EXPECT_TRUE(isNamed) << section.toStdString() << " for " << title.toStdString();
    }

    static void lookForClipping(const QWidget& found)
    {
        const auto* const label = qobject_cast<const QLabel*>(&found);
        const auto* const button = qobject_cast<const QAbstractButton*>(&found);
        const bool mayWrap = label != nullptr && (label->wordWrap() || !label->pixmap().isNull());
        if ((label == nullptr && button == nullptr) || mayWrap) {
            return;
        }
        EXPECT_GE(found.width(), found.minimumSizeHint().width()) << found.objectName().toStdString();
        EXPECT_GE(found.height(), found.minimumSizeHint().height()) << found.objectName().toStdString();
        if (button != nullptr) {
            EXPECT_GE(found.width(), found.sizeHint().width()) << found.objectName().toStdString();
        }
    }

    static void lookForWords(const QWidget& found)
    {
        const bool isControl = !found.objectName().isEmpty() && found.focusPolicy() != Qt::NoFocus &&
                               !qobject_cast<const QLabel*>(&found) &&
                               found.window()->objectName() != "FmMessage";
        if (!isControl || withoutToolTip.contains(found.objectName())) {
            return;
        }
        EXPECT_FALSE(found.toolTip().isEmpty()) << found.objectName().toStdString() << " has no tool tip";
        const auto* const button = qobject_cast<const QAbstractButton*>(&found);
        const bool isNamed =
            (button != nullptr && !button->text().isEmpty()) || !found.accessibleName().isEmpty();
        EXPECT_TRUE(isNamed) << found.objectName().toStdString() << " has no name for who cannot see it";
    }

    static void takePicture(QWidget& shown, const QString& picture)
    {
        const QString folder = qEnvironmentVariable("TAVREL_SCREENSHOTS");
        if (!folder.isEmpty()) {
            const QString name =
                QString("%1/%2-%3.png").arg(folder, picture, GetParam() == Language::English ? "en" : "fr");
            EXPECT_TRUE(shown.grab().save(name)) << name.toStdString();
        }
    }

    // Presses the controls on the way, each in the window that the last one opened.
    void goThrough(QWidget& from, std::span<const char* const> controls, const char* wanted)
    {
        if (auto* const action = from.findChild<QAction*>(controls[0])) {
            wait(controls, wanted);
            action->trigger();
        } else if (auto* const button = from.findChild<QAbstractButton*>(controls[0])) {
            wait(controls, wanted);
            button->click();
        } else {
            ADD_FAILURE() << "no control " << controls[0];
        }
    }
    void wait(std::span<const char* const> controls, const char* wanted)
    {
        const bool staysOpen =
            wanted == std::string_view("FmChecks") || wanted == std::string_view("FmLevels");
        if (staysOpen) {
            return;
        }
        whenOpened<QDialog>([this, controls, wanted](QDialog& opened) {
            if (controls.size() > 1) {
                goThrough(opened, controls.subspan(1), wanted);
            } else {
                EXPECT_EQ(opened.objectName().toStdString(), wanted);
                lookAt(opened);
                askForHelp(opened);
            }
        });
    }

    std::set<QString> seen;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(InBothLanguages, EveryWindowTest,
                         testing::Values(Language::English, Language::French), [](const auto& language) {
                             return language.param == Language::English ? "English" : "French";
                         });

TEST_P(EveryWindowTest, IsWholeAndExplainsItself)
{
    open();
    clickRow(1);
    type("TxVOL", "31");
    click("CdValidW"); // something to review, and to be told of before sounds.txt is shown
    lookAt(*window);
    askForHelp(*window);
    for (const Door& door : doors) {
        SCOPED_TRACE(door.window);
        goThrough(*window, door.controls, door.window);
        QCoreApplication::processEvents();
        if (auto* const open = window->findChild<QDialog*>(door.window)) {
            lookAt(*open); // it stays beside the main window
            askForHelp(*open);
            open->close();
        }
        EXPECT_TRUE(seen.contains(door.window));
    }
}

TEST_P(EveryWindowTest, MessagesAreWhole)
{
    FmLanguage language([](QWidget&, const HelpTopic&, Language) {});
    language.show();
    lookAt(language);
    for (const Buttons buttons : {Buttons::Ok, Buttons::OkCancel, Buttons::YesNo, Buttons::YesNoCancel}) {
        MessageWindow message(nullptr, MessageIcon::Question, "Tavrel", QString("Text %1").arg(int(buttons)));
        const Answer answers[] = {Answer::Other, Answer::Yes, Answer::No, Answer::Cancel};
        message.offer(answers, Answer::Yes, GetParam(),
                      {{Answer::Other, {"Show changes", "Voir les modifications"}}});
        message.show();
        lookAt(message);
    }
}

// What comes up only where something is wrong, or is about to be.
TEST_P(EveryWindowTest, WarningsAndPreviewsAreWhole)
{
    std::vector<std::string> lines = stockLines();
    lines[1] = "LARA_FEET:\t\tfoot01 lost\t\tVOL150\tP V\tPIT15\t\t#g";
    lines[360].erase(lines[360].find(':'), 1);
    lines[8] = "LARA_FIRE:\t\tlara_fir\t\tVOL00\t\t\t\t#oa";
    writeBytes(folders.sounds, textOf(lines));
    open();
    clickRow(1);
    EXPECT_TRUE(control("TxVOL").property("wrong").toBool());
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return sounds().model()->index(1, 0).data(SoundListModel::MarkRole).isValid(); }));
    lookAt(*window, "FmSFX-marks");

    QtDialogs boxes;
    boxes.setLanguage(GetParam());
    const auto lookAtBox = [this](const char* picture) {
        whenOpened<MessageWindow>([this, picture](MessageWindow& box) { lookAt(box, picture); });
    };
    const auto pointers = [](const CheckReport& report) {
        std::vector<const Finding*> findings;
        std::ranges::transform(report.findings, std::back_inserter(findings),
                               [](const Finding& f) { return &f; });
        return findings;
    };
    const CheckReport ofFile = checkFileOf(window->session());
    ASSERT_FALSE(ofFile.findings.empty());
    lookAtBox("FmMessage-file-errors");
    boxes.ask(fileErrorsNotice(pointers(ofFile)));

    SilentProgress progress;
    const CurrentWad wad{"oasis", "oa", "Oasis"};
    const CheckReport all = checkSession(window->session(), wad, progress);
    SoundCatalogue& catalogue = window->session().catalogue();
    lookAtBox("FmMessage-errors-before-generation");
    boxes.ask(carriedErrorsQuestion(errorsBeforeGeneration(all, catalogue, wad), catalogue));

    lookAtBox("FmMessage-paste-preview");
    const std::size_t selected[] = {8};
    EXPECT_FALSE(pasteLines(catalogue, "LARA_FIRE:\t\tlara_fir\t\tVOL80\t\t\t\t#oa\r\n", selected, boxes));

    QApplication::setActiveWindow(window.get());
    QTest::keyClick(&sounds(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    clickRow(12);
    whenOpened<QDialog>([this](QDialog& paste) {
        EXPECT_EQ(paste.objectName(), "FmPaste");
        lookAt(paste);
        askForHelp(paste);
    });
    QTest::keyClick(&sounds(), Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
}

// What comes up by itself.
TEST_P(EveryWindowTest, ListsOfWhatWasLeftAreWhole)
{
    open();
    const auto lookAtWindow = [this](TitledWindow& shown) {
        shown.show();
        lookAt(shown);
        askForHelp(shown);
        shown.close();
    };
    const std::string& line = stockLines()[8];
    FoundRecovery found;
    found.content.values = UnacceptedValues{8, line};
    FmRecover recover(window.get(), found, false, true, {}, GetParam());
    lookAtWindow(recover);
    FmMissed missed(window.get(), {{8, line, line}}, {}, GetParam());
    lookAtWindow(missed);
    FmSplInc unknown(window.get(), {"my_thunder"}, {}, GetParam());
    lookAtWindow(unknown);
}
