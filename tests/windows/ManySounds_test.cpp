// SPDX-License-Identifier: GPL-3.0-or-later
// Many sounds at once in the main window, with the actions that it takes counted.
#include "MainWindow.h"
#include "app/FmPaste.h"
#include "app/SoundListPanel.h"
#include "references/FmObject.h"
#include "settings/Options.h"
#include "ui/Text.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QWheelEvent>

#include <set>

using namespace tavrel;

namespace {

class ManySoundsTest : public MainWindowTest, public testing::WithParamInterface<Language>
{
protected:
    void openInLanguage()
    {
        open();
        if (GetParam() == Language::French) {
            tick("OpLangF");
        }
    }

    QString said() { return control<QLabel>("LbInfo").text(); }
    QString in(const char* english, const char* french)
    {
        return QString::fromUtf8(GetParam() == Language::French ? french : english);
    }
    std::string line(std::size_t number) const { return window->catalogue().currentLine(number); }
    SoundLine record(std::size_t number) const { return ParseSoundLine(line(number)); }
    int rows() { return sounds().model()->rowCount(); }
    std::vector<int> selectedRows()
    {
        std::vector<int> result;
        for (const QModelIndex& index : sounds().selectionModel()->selectedRows()) {
            result.push_back(index.row());
        }
        std::ranges::sort(result);
        return result;
    }
    void clickRow(int row, Qt::KeyboardModifiers keys = {})
    {
        const QModelIndex index = sounds().model()->index(row, 0);
        sounds().scrollTo(index);
        QTest::mouseClick(sounds().viewport(), Qt::LeftButton, keys, sounds().visualRect(index).center());
        QCoreApplication::processEvents();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers keys = {})
    {
        QApplication::setActiveWindow(window.get());
        QWidget* const focused = window->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : window.get(), key, keys);
        QCoreApplication::processEvents();
    }
    void keys(const char* text)
    {
        QTest::keyClicks(QApplication::focusWidget(), text);
        QCoreApplication::processEvents();
    }
    void filterBy(const char* words)
    {
        type("TxFilter", words);
        QCoreApplication::processEvents();
    }

    // One thing that the user does: a click, a key, a typed value.
    template <typename Act>
    void act(Act what)
    {
        ++actions;
        what();
    }
    int actions = 0;
};

INSTANTIATE_TEST_SUITE_P(InBothLanguages, ManySoundsTest,
                         testing::Values(Language::English, Language::French));

TEST_P(ManySoundsTest, AVolumeForTenSoundsAndApplyIsFiveActions)
{
    openInLanguage();
    window->session().options().setFlag(options::keepComments, true);
    clickRow(4);
    clickRow(13, Qt::ShiftModifier);
    EXPECT_EQ(said(), in("10 sounds selected", "10 sons sélectionnés"));
    EXPECT_EQ(text("TxVOL"), "") << "they differ";
    EXPECT_EQ(control("TxVOL").toolTip(), in("Volume: varies", "Volume : varie"));
    dialogs.prepareAnswer(Answer::Yes);
    act([&] { click("TxVOL"); });
    act([&] { keys("50"); });
    act([&] { press(Qt::Key_Return); });
    EXPECT_TRUE(said().startsWith(in("10 lines changed", "10 lignes modifiées"))) << said().toStdString();
    act([&] { press(Qt::Key_S, Qt::ControlModifier); });
    ++actions; // the answer
    EXPECT_LE(actions, 5);
    for (std::size_t k = 4; k <= 13; ++k) {
        EXPECT_EQ(record(k).Vol.trimmed(), "VOL50") << k;
    }
    EXPECT_FALSE(window->session().pending());
    EXPECT_EQ(window->session().history().steps.size(), 1U);
}

TEST_P(ManySoundsTest, ALetterForTwentyFiveSoundsIsThreeActions)
{
    openInLanguage();
    window->session().chooseWad("oasis");
    act([&] { clickRow(63); });
    act([&] { clickRow(87, Qt::ShiftModifier); });
    act([&] { click("CdAddWAD"); });
    EXPECT_LE(actions, 3);
    int carrying = 0;
    for (std::size_t k = 63; k <= 87; ++k) {
        const bool carries = line(k).find("#oa") != std::string::npos;
        carrying += carries ? 1 : 0;
        EXPECT_TRUE(carries || window->catalogue().isGlobal(k) || window->catalogue().isProtected(k)) << k;
    }
    EXPECT_GT(carrying, 10);
    EXPECT_EQ(window->session().history().steps.size(), 1U);

    // By the keyboard it goes again.
    auto& letters = control<QListWidget>("LiWAD");
    const auto oasis = letters.findItems("#oa", Qt::MatchStartsWith);
    ASSERT_EQ(oasis.size(), 1);
    letters.setFocus();
    letters.setCurrentItem(oasis.front());
    press(Qt::Key_Delete);
    for (std::size_t k = 63; k <= 87; ++k) {
        EXPECT_EQ(line(k).find("#oa"), std::string::npos) << k;
    }
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(selectedRows().size(), 25U) << "what came back is still selected";
    clickRow(73);
    letters.setFocus();
    press(Qt::Key_Delete); // the chosen one of none
    press(Qt::Key_Insert);
    EXPECT_NE(line(73).find("#oa"), std::string::npos);
}

TEST_P(ManySoundsTest, ALetterForThreeObjectsIsSixActions)
{
    openInLanguage();
    window->session().chooseWad("oasis");
    clickRow(73);
    const auto choose = [this](int row, Qt::KeyboardModifiers keys) {
        auto* const list = QApplication::activeModalWidget()->findChild<QListWidget*>("LiOBJ");
        const QRect place = list->visualItemRect(list->item(row));
        act([&] { QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, place.center()); });
    };
    whenOpened<FmObject>([&](FmObject& objects) {
        choose(0, {});
        choose(1, Qt::ControlModifier);
        choose(2, Qt::ControlModifier);
        act([&] { QTest::mouseClick(objects.findChild<QPushButton*>("CdOK"), Qt::LeftButton); });
    });
    act([&] { click("CdObj"); });
    EXPECT_EQ(text("TxObj").count(','), 2);
    act([&] { click("CdAddWAD"); });
    EXPECT_LE(actions, 6);
    EXPECT_EQ(dialogs.said().size(), 0U);
    EXPECT_EQ(window->session().history().steps.size(), 1U);
    EXPECT_TRUE(said().contains(in("changed", "modifiée"))) << said().toStdString();
}

TEST_P(ManySoundsTest, TheSameByKeysAlone)
{
    openInLanguage();
    press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "TxFilter");
    keys("lara_ vol<100");
    const int listed = rows();
    ASSERT_GT(listed, 5);
    press(Qt::Key_Down);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(static_cast<int>(selectedRows().size()), listed);
    press(Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "TxVOL");
    keys("33");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(window->session().history().steps.size(), 1U);
    EXPECT_EQ(static_cast<int>(window->session().history().steps[0].lines.size()), listed);
    press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "LiSFX");
    press(Qt::Key_Escape);
    EXPECT_EQ(rows(), 370);
}

TEST_P(ManySoundsTest, TheFilterShowsWhatMatchesAndSaysHowMany)
{
    openInLanguage();
    clickRow(20);
    EXPECT_EQ(control<QLabel>("LbCount").text(), "");
    filterBy("lara_f");
    EXPECT_LT(rows(), 10);
    EXPECT_EQ(control<QLabel>("LbCount").text(), in("%1 of 370", "%1 sur 370").arg(rows()));
    EXPECT_TRUE(control("TxFilter").property("attention").toBool());
    EXPECT_EQ(window->session().catalogue().listEntry(0),
              sounds().currentIndex().data().toString().toStdString())
        << "the hidden one is no longer selected";
    filterBy("nothing of this kind");
    EXPECT_EQ(rows(), 0);
    EXPECT_FALSE(enabled("TxVOL"));
    press(Qt::Key_Escape);
    EXPECT_EQ(rows(), 370);
    EXPECT_TRUE(enabled("TxVOL"));

    // Values that were not accepted stay in sight, and are not asked about.
    clickRow(2);
    type("TxVOL", "31");
    filterBy("lara_f");
    EXPECT_EQ(text("TxVOL"), "31");
    EXPECT_EQ(sounds().currentIndex().data(Qt::UserRole).toULongLong(), 2U);
    QTest::keyClick(&control("TxVOL"), Qt::Key_Return);
    EXPECT_EQ(record(2).Vol.trimmed(), "VOL31");
    EXPECT_EQ(selectedRows().size(), 1U);

    // A protected line that comes first is not gone to by the user, and raises no message.
    filterBy("27");
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(dialogs.said().size(), 0U);
    press(Qt::Key_Escape);
    auto& ready = control<QComboBox>("CbFilter");
    ready.setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(ready.currentText(), in("Modified", "Modifiés"));
    EXPECT_EQ(rows(), 1);
    press(Qt::Key_Down);
    EXPECT_EQ(rows(), 1) << "not yet applied";
    click("CdShowG");
    EXPECT_TRUE(control("CdShowG").property("attention").toBool());
    EXPECT_EQ(rows(), 0) << "2 is one of every level";
}

TEST_P(ManySoundsTest, SearchWrapsAndTellsWhatIsHidden)
{
    openInLanguage();
    clickRow(100);
    type("TxSearch", "LARA_LAND");
    press(Qt::Key_Return);
    EXPECT_EQ(row(), 4);
    EXPECT_EQ(said(),
              in("The search continued from the first line", "La recherche a repris à la première ligne"));
    tick("OpUp");
    click("CdSearch");
    EXPECT_EQ(said(), in("No other line contains [LARA_LAND]", "Aucune autre ligne ne contient [LARA_LAND]"));
    filterBy("door");
    click("CdSearch");
    EXPECT_EQ(said(), in("[LARA_LAND] is only in lines that are hidden now",
                         "[LARA_LAND] n'est que dans des lignes actuellement cachées"));
}

TEST_P(ManySoundsTest, ASelectionTakesTheProtectedLineInWithoutAWord)
{
    openInLanguage();
    clickRow(26);
    clickRow(28, Qt::ShiftModifier);
    EXPECT_EQ(dialogs.said().size(), 0U);
    const std::string before = line(27);
    control("TxVOL").setFocus();
    keys("44");
    press(Qt::Key_Return);
    EXPECT_EQ(line(27), before);
    EXPECT_EQ(record(28).Vol.trimmed(), "VOL44");
    EXPECT_EQ(said(), in("2 lines changed; left out: 27 (protected)",
                         "2 lignes modifiées ; laissées : 27 (protégées)"));
    clickRow(27);
    EXPECT_EQ(dialogs.said().size(), 1U) << "alone it is refused";
}

TEST_P(ManySoundsTest, SelectingMoreAsksAboutValuesFirst)
{
    openInLanguage();
    clickRow(2);
    type("TxVOL", "31");
    dialogs.prepareAnswer(Answer::Cancel);
    clickRow(5, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), (std::vector{2}));
    EXPECT_EQ(text("TxVOL"), "31");
    dialogs.prepareAnswer(Answer::No);
    clickRow(5, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), (std::vector{2, 5}));
    EXPECT_EQ(control<QPlainTextEdit>("TxModif").toPlainText(), fromCodePage(line(5)))
        << "the one that was clicked";
    clickRow(5, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), (std::vector{2}));
    clickRow(2, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), (std::vector{2})) << "the last one stays";
}

TEST_P(ManySoundsTest, BoxesStepAndRefuseWithAWord)
{
    openInLanguage();
    clickRow(4);
    type("TxVOL", "99");
    press(Qt::Key_Up);
    EXPECT_EQ(text("TxVOL"), "") << "100 is no value at all";
    press(Qt::Key_Up);
    EXPECT_EQ(text("TxVOL"), "");
    press(Qt::Key_Down);
    EXPECT_EQ(text("TxVOL"), "99");
    press(Qt::Key_PageDown);
    EXPECT_EQ(text("TxVOL"), "89");
    QWheelEvent turned(QPointF(5, 5), control("TxVOL").mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {},
                       Qt::NoScrollPhase, false);
    QApplication::sendEvent(&control("TxVOL"), &turned);
    EXPECT_EQ(text("TxVOL"), "90");
    keys("10");
    EXPECT_EQ(text("TxVOL"), "10") << "steps leave the value selected";
    keys("0");
    EXPECT_EQ(text("TxVOL"), "10");
    EXPECT_EQ(said(), in("VOL takes two digits, 1 to 99; an empty box means 100",
                         "VOL prend deux chiffres, de 1 à 99 ; une case vide vaut 100"));
    control("TxPIT").setFocus();
    keys("x");
    EXPECT_EQ(said(), in("PIT goes from -99 to 99", "PIT va de -99 à 99"));
    // A click and typing replace what is there; a second click sets the cursor.
    click("TxVOL");
    keys("7");
    EXPECT_EQ(text("TxVOL"), "7");
    click("TxVOL");
    keys("8");
    EXPECT_EQ(text("TxVOL"), "78");
    QTest::keyClick(&control("TxVOL"), Qt::Key_Return);
    EXPECT_EQ(record(4).Vol.trimmed(), "VOL78");
}

TEST_P(ManySoundsTest, FlagsShowAThirdStateAndStepsGoForEach)
{
    openInLanguage();
    const auto set = [this](int row, bool flag, const char* volume) {
        clickRow(row);
        if (ticked("CkP") != flag) {
            tick("CkP");
        }
        type("TxVOL", volume);
        press(Qt::Key_Return);
    };
    set(4, true, "40");
    set(5, false, "50");
    clickRow(4, Qt::ControlModifier);
    EXPECT_EQ(control<QCheckBox>("CkP").checkState(), Qt::PartiallyChecked);
    control("TxVOL").setFocus();
    press(Qt::Key_Up);
    press(Qt::Key_PageUp);
    EXPECT_EQ(text("TxVOL"), "");
    EXPECT_EQ(said(), "VOL +11");
    press(Qt::Key_Return);
    EXPECT_EQ(record(4).Vol.trimmed(), "VOL51");
    EXPECT_EQ(record(5).Vol.trimmed(), "VOL61");
    EXPECT_EQ(control<QCheckBox>("CkP").checkState(), Qt::PartiallyChecked) << "nobody touched it";
    tick("CkP");
    EXPECT_EQ(control<QCheckBox>("CkP").checkState(), Qt::Checked);
    tick("CkP");
    EXPECT_EQ(control<QCheckBox>("CkP").checkState(), Qt::Unchecked);
    control("TxCH").setFocus();
    keys("5");
    press(Qt::Key_Backspace);
    press(Qt::Key_Return);
    for (const std::size_t k : {4U, 5U}) {
        EXPECT_TRUE(record(k).FlagP.empty()) << k;
        EXPECT_TRUE(record(k).Ch.empty()) << k;
    }
    dialogs.prepareAnswer(Answer::Yes);
    click("CdRestore");
    EXPECT_EQ(line(4), stockLines()[4]);
    EXPECT_EQ(line(5), stockLines()[5]);
}

TEST_P(ManySoundsTest, ValuesOfSeveralAreAStepOnTheWayBack)
{
    openInLanguage();
    clickRow(4);
    clickRow(6, Qt::ShiftModifier);
    type("TxVOL", "50");
    click("CdUndo");
    EXPECT_EQ(text("TxVOL"), "");
    clickRow(60);
    click("CdRedo");
    EXPECT_EQ(selectedRows(), (std::vector{4, 5, 6}));
    EXPECT_EQ(text("TxVOL"), "50");
    EXPECT_FALSE(window->session().pending());
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(row(), 7) << "behind the last of them";
    EXPECT_EQ(record(6).Vol.trimmed(), "VOL50");
}

TEST_P(ManySoundsTest, ValuesAndLinesGoOverTheClipboard)
{
    openInLanguage();
    clickRow(4);
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    clickRow(8);
    clickRow(9, Qt::ShiftModifier);
    const SoundLine before = record(8);
    whenOpened<FmPaste>([](FmPaste& paste) {
        auto* const flags = paste.findChild<QCheckBox*>("CkFlags");
        QTest::mouseClick(flags, Qt::LeftButton, {}, QPoint(8, flags->height() / 2)); // without them
        QTest::keyClick(paste.focusWidget(), Qt::Key_Return);
    });
    press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    for (const std::size_t k : {8U, 9U}) {
        EXPECT_EQ(record(k).Vol, record(4).Vol) << k;
        EXPECT_EQ(record(k).Rad, record(4).Rad) << k;
    }
    EXPECT_EQ(record(8).FlagP, before.FlagP);
    EXPECT_EQ(record(8).Samples, before.Samples);
    EXPECT_EQ(window->session().history().steps.size(), 1U);

    sounds().setFocus();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(toCodePage(QApplication::clipboard()->text()), line(8) + "\n" + line(9));
    const std::string pasted = line(8);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(line(8), pasted);
    dialogs.prepareAnswer(Answer::Yes);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(line(8), pasted);
    ASSERT_EQ(dialogs.said().size(), 1U);
    EXPECT_TRUE(dialogs.said().back().details.english.starts_with("8\n- LARA_FIRE: "));
}

TEST_P(ManySoundsTest, KeysGoFromSoundToSound)
{
    openInLanguage();
    clickRow(4);
    type("TxVOL", "8");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(row(), 5);
    EXPECT_EQ(record(4).Vol.trimmed(), "VOL08");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(row(), 6);
    EXPECT_EQ(line(5), stockLines()[5]) << "what nobody edited stays as it is";
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(row(), 4);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(said(), in("No modified sound below", "Pas de son modifié plus bas"));
    filterBy("door");
    press(Qt::Key_G, Qt::ControlModifier);
    keys("73");
    press(Qt::Key_Return);
    EXPECT_EQ(row(), 73);
    EXPECT_EQ(text("TxFilter"), "") << "nothing hides it";
    press(Qt::Key_G, Qt::ControlModifier);
    keys("999");
    press(Qt::Key_Return);
    EXPECT_EQ(row(), 73);
    EXPECT_EQ(said(), in("There is no sound 999", "Il n'y a pas de son 999"));
}

TEST_P(ManySoundsTest, EverythingIsReachedByKeys)
{
    openInLanguage();
    clickRow(73);
    // TAB goes round through what can be used, and nothing else.
    std::set<QString> reached;
    sounds().setFocus();
    do {
        QWidget* const focused = QApplication::focusWidget();
        reached.insert(focused->objectName());
        const auto* const box = qobject_cast<QLineEdit*>(focused);
        EXPECT_FALSE(box != nullptr && box->isReadOnly()) << box->objectName().toStdString();
        EXPECT_FALSE(qobject_cast<QLabel*>(focused));
        press(Qt::Key_Tab);
    } while (QApplication::focusWidget() != &sounds() && reached.size() < 200);
    for (const char* name : {"TxFilter", "CbFilter", "LiSFX", "TxVOL", "TxCH", "CkL", "LiSamp", "TxSamp",
                             "LiWAD", "CbTWad", "CdAddWAD", "CdValidW", "CdApply", "CdQuit", "CdColumns"}) {
        EXPECT_TRUE(reached.contains(name)) << name;
    }
    EXPECT_FALSE(reached.contains("ImPanelM"));

    std::set<QString> homes;
    sounds().setFocus();
    do {
        press(Qt::Key_F6);
        homes.insert(QApplication::focusWidget()->objectName());
    } while (QApplication::focusWidget() != &sounds() && homes.size() < 20);
    EXPECT_EQ(homes.size(), 8U) << "one place in each panel";
    EXPECT_TRUE(homes.contains("LiSamp") && homes.contains("LiWAD")) << "where Insert and Delete work";

    for (const QAbstractButton* const button : window->findChildren<QAbstractButton*>()) {
        const QString text = button->text();
        const bool isButton = button->inherits("QPushButton") || button->inherits("QToolButton");
        if (isButton && button->isVisible() && !text.isEmpty()) {
            EXPECT_TRUE(text.contains('&')) << text.toStdString();
        }
    }
}

TEST_P(ManySoundsTest, ColumnsAreRememberedAndMarksAreShown)
{
    openInLanguage();
    auto& panel = dynamic_cast<SoundListPanel&>(*sounds().parentWidget()->parentWidget());
    window->resize(1800, 700);
    const int before = panel.width();
    const int widest = window->minimumSizeHint().width();
    auto* const menu = control<QToolButton>("CdColumns").menu();
    menu->actions().at(0)->trigger();
    menu->actions().at(3)->trigger();
    EXPECT_EQ(window->session().options().text(options::listColumns), "samples,letters");
    QCoreApplication::processEvents();
    EXPECT_GT(panel.width(), before + 100);
    EXPECT_LE(window->minimumSizeHint().width(), widest) << "a small screen has room for them, too";
    EXPECT_TRUE(sounds().model()->index(73, 0).data().toString().contains("croc_f1"));
    menu->actions().at(0)->trigger();
    menu->actions().at(3)->trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(panel.width(), before);

    panel.showMarks(
        {{{5, {Severity::Error, {"wrong", "faux"}}}, {9, {Severity::Note, {"odd", "curieux"}}}}, {}});
    EXPECT_EQ(sounds().model()->index(5, 0).data(Qt::ToolTipRole).toString(), in("wrong", "faux"));
    control<QComboBox>("CbFilter").setCurrentIndex(6);
    EXPECT_EQ(rows(), 2);
    panel.showMarks({});
    EXPECT_EQ(rows(), 0);
}

} // namespace

TEST_F(MainWindowTest, ABoxThatCannotShowItsWordSaysSo)
{
    std::vector<std::string> lines = stockLines();
    lines[2] = "LARA_NO:\t\tlara_no\t\tVOL150\t\t\t\t\t#g";
    writeBytes(folders.sounds, textOf(lines));
    open();
    clickRow(1);
    auto& box = control<QLineEdit>("TxVOL");
    EXPECT_FALSE(box.property("wrong").toBool());
    EXPECT_EQ(box.toolTip(), "Volume");
    clickRow(2);
    EXPECT_EQ(box.text(), "15");
    EXPECT_TRUE(box.property("wrong").toBool());
    EXPECT_TRUE(box.toolTip().contains("VOL150")) << box.toolTip().toStdString();
    type("TxVOL", "50");
    EXPECT_FALSE(box.property("wrong").toBool()) << "what will be written is what stands there";
}

TEST_F(MainWindowTest, TheLevelsWindowLeavesTheSoundsOfALevelInTheList)
{
    std::vector<std::string> lines = stockLines();
    lines[40] += " #tw";
    lines[41] += " #tw";
    writeBytes(folders.sounds, textOf(lines));
    open();
    window->findChild<QAction*>("AcLevels")->trigger();
    auto* const levels = window->findChild<QDialog*>("FmLevels");
    ASSERT_NE(levels, nullptr);
    auto& list = *levels->findChild<QTreeWidget*>("LiLevels");
    ASSERT_TRUE(QTest::qWaitFor([&list] { return list.topLevelItemCount() == 2; }));
    list.setCurrentItem(list.findItems("tomb_of_wind", Qt::MatchExactly).value(0));
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(control<QComboBox>("CbTWad").currentText(), "tomb_of_wind");
    EXPECT_EQ(sounds().model()->rowCount(), 2);
}
