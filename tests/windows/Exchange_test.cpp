// SPDX-License-Identifier: GPL-3.0-or-later
// The windows for exchange files and backups, opened from the main window.
#include "MainWindow.h"
#include "backup/FmExport.h"
#include "backup/FmImport.h"
#include "ui/Colours.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

template <typename Control>
Control& in(const QWidget& window, const char* name)
{
    auto* const found = window.findChild<Control*>(name);
    if (found == nullptr) {
        throw std::runtime_error(std::string("no control ") + name);
    }
    return *found;
}

void press(const QWidget& window, const char* button)
{
    QTest::mouseClick(&in<QAbstractButton>(window, button), Qt::LeftButton);
}

void mark(const QWidget& window, const char* option)
{
    auto& box = in<QAbstractButton>(window, option);
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
}

std::string labelOf(const QWidget& window, const char* name)
{
    return in<QLabel>(window, name).text().toStdString();
}

void selectRow(TickList& list, int row)
{
    list.setFocus();
    list.selectRow(static_cast<std::size_t>(row));
}

QModelIndex indexOf(const TickList& list, int row)
{
    return list.model()->index(row, 0);
}

class ExchangeWindows : public MainWindowTest
{
protected:
    ExchangeWindows()
    {
        fs::create_directory(backups);
        for (const char* name : {"foot01", "other", "third"}) {
            writeBytes(levelEditorSamples / (std::string(name) + ".wav"), "old");
        }
    }

    void writeExchange(const char* name, const Names& records) const
    {
        writeBytes(backups / name, withTabs(textOf(records)));
    }

    template <typename Act>
    void inImport(const fs::path& file, Act act)
    {
        whenOpened<FmImport>([this, file, act](FmImport& import) {
            dialogs.prepareFile(file);
            press(import, "CdFile");
            act(import);
        });
        click("CdImport");
    }

    void closeWithoutApplying()
    {
        dialogs.prepareAnswer(Answer::Yes);
        window->close();
    }

    fs::path backups = folders.program / "Backups";
    fs::path levelEditorSamples = folders.levelEditor / "sound" / "Samples";
};

TEST_F(ExchangeWindows, TheExportTicksAndSaves)
{
    open();
    whenOpened<FmExport>([this](FmExport& window) {
        auto& lines = in<TickList>(window, "LiLine");
        EXPECT_TRUE(in<QAbstractButton>(window, "OpExport2").isChecked());
        EXPECT_EQ(labelOf(window, "LbIndic"), "370 lines listed - 370 lines selected");
        EXPECT_EQ(labelOf(window, "Label4"), "      ID    Line");
        EXPECT_TRUE(indexOf(lines, 117).data().toString().startsWith("117  "));
        EXPECT_FALSE(lines.selectedRow());

        mark(window, "OpExport1");
        EXPECT_EQ(labelOf(window, "Label4"), "      ID    Modified/Added line");
        EXPECT_LT(lines.rows(), 370U);
        mark(window, "OpExport2");

        press(window, "CdEfface");
        EXPECT_EQ(labelOf(window, "LbIndic"), "370 lines listed - 0 lines selected");
        selectRow(lines, 4);
        QTest::keyClick(&lines, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(&lines, Qt::Key_Space);
        EXPECT_EQ(lines.tickedRows(), (std::vector<std::size_t>{4, 5}));
        selectRow(lines, 5);
        QTest::keyClick(&lines, Qt::Key_Space);
        EXPECT_EQ(lines.tickedRows(), std::vector<std::size_t>{4});

        press(window, "CdOBJ");
        auto& objects = in<QListWidget>(window, "LiOBJ");
        EXPECT_TRUE(objects.isVisible());
        EXPECT_EQ(in<QComboBox>(window, "CbType").count(), 10);
        ASSERT_EQ(objects.item(0)->text(), "CROCODILE");
        QTest::mouseClick(objects.viewport(), Qt::LeftButton, {},
                          objects.visualItemRect(objects.item(0)).center());
        EXPECT_EQ(lines.tickedRows(), (std::vector<std::size_t>{4, 73, 80, 81}));

        selectRow(lines, 0);
        QTest::keyClick(&lines, Qt::Key_Return);
        EXPECT_EQ(player.played, std::vector<fs::path>{levelEditorSamples / "foot01.wav"});
        const int stopsBefore = player.stops;
        press(window, "CdStopS2");
        EXPECT_EQ(player.stops, stopsBefore + 1);

        dialogs.prepareFile(std::nullopt);
        press(window, "CdSave");
        EXPECT_TRUE(window.isVisible());
        dialogs.prepareFile(backups / "none" / "croc.tob");
        press(window, "CdSave");
        EXPECT_TRUE(dialogs.said().back().text.english.starts_with("Cannot write"));
        EXPECT_TRUE(window.isVisible());
        dialogs.prepareFile(backups.parent_path() / "Tavrel.par");
        press(window, "CdSave");
        EXPECT_TRUE(dialogs.said().back().text.english.find("Choose another name") != std::string::npos);
        EXPECT_TRUE(window.isVisible());
        dialogs.prepareFile(backups / "croc.tob");
        press(window, "CdSave");
        EXPECT_EQ(window.result(), QDialog::Accepted);
    });
    click("CdExport");
    const std::string saved = readBytes(backups / "croc.tob");
    EXPECT_EQ(std::ranges::count(saved, '\n'), 4);
    EXPECT_TRUE(saved.starts_with("\"4\",\"LARA_LAND:"));
}

TEST_F(ExchangeWindows, TheExportReplacesAFileAndItsSamplesOrNothing)
{
    const fs::path file = backups / "city.tob";
    const fs::path samples = backups / "city_Samples";
    writeBytes(file, "old");
    open();
    whenOpened<FmExport>([&](FmExport& window) {
        const auto expectNothingSaved = [&] {
            EXPECT_TRUE(window.isVisible());
            EXPECT_EQ(readBytes(file), "old");
            EXPECT_FALSE(fs::exists(samples));
        };
        auto& lines = in<TickList>(window, "LiLine");
        press(window, "CdEfface");
        selectRow(lines, 0);
        QTest::keyClick(&lines, Qt::Key_Space);
        mark(window, "CkSamp");
        dialogs.prepareFile(file);
        dialogs.prepareAnswer(Answer::No);
        press(window, "CdSave");
        EXPECT_TRUE(dialogs.said().back().text.english.ends_with("Replace it."));
        expectNothingSaved();

        QTimer::singleShot(0, &window, [&window] { press(window, "CdCancelCopy"); });
        dialogs.prepareFile(file);
        dialogs.prepareAnswer(Answer::Yes);
        press(window, "CdSave");
        EXPECT_TRUE(dialogs.said().back().text.english.starts_with("Cancelled."));
        expectNothingSaved();

        dialogs.prepareFile(file);
        dialogs.prepareAnswer(Answer::Yes);
        press(window, "CdSave");
        EXPECT_EQ(window.result(), QDialog::Accepted);
    });
    click("CdExport");
    EXPECT_EQ(readBytes(file), "\"0\",\"" + stockLines()[0] + "\"\r\n");
    EXPECT_EQ(namesIn(samples), Names{"foot01.wav"});
}

TEST_F(ExchangeWindows, EachListHasItsColours)
{
    open();
    const auto expectSlot = [](const QWidget& window, const char* list, std::size_t slot) {
        EXPECT_EQ(in<QWidget>(window, list).palette().color(QPalette::Base),
                  colourFrom(ColourScheme().slots.at(slot).back))
            << list;
    };
    whenOpened<FmExport>([&](FmExport& window) {
        expectSlot(window, "LiLine", 2);
        expectSlot(window, "LiOBJ", 3);
    });
    click("CdExport");
    whenOpened<FmImport>([&](FmImport& window) {
        expectSlot(window, "LiLine", 4);
        expectSlot(window, "LiIncluS", 0);
    });
    click("CdImport");
}

TEST_F(ExchangeWindows, ARestoredLineComesBackIntoTheMainWindow)
{
    writeExchange("all.tob",
                  {"\"1\",\"LARA_CLIMB2:>other>VOL11>#zz\"", "\"0\",\"LARA_FEET:>foot01>VOL22>\""});
    open();
    type("TxVOL", "33");
    click("CdValidW");
    inImport(backups / "all.tob", [this](FmImport& import) {
        EXPECT_EQ(labelOf(import, "Label5"), "RESTORE");
        EXPECT_EQ(in<QPushButton>(import, "CdOpen").text(), "Restore");
        EXPECT_FALSE(in<QWidget>(import, "CkSamp").isVisible());
        dialogs.prepareAnswer(Answer::No);
        press(import, "CdOpen");
        EXPECT_FALSE(import.importDone());
        dialogs.prepareAnswer(Answer::Yes);
        press(import, "CdOpen");
        EXPECT_EQ(import.result(), QDialog::Accepted);
    });
    EXPECT_EQ(window->catalogue().currentLine(1), withTabs("LARA_CLIMB2:>other>VOL11>#zz"));
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(text("TxVOL"), "22") << "the selected line is shown as it is now";
    closeWithoutApplying();
}

TEST_F(ExchangeWindows, MarkedRowsSayWhy)
{
    writeExchange("odd.tox", {"\"999\",\"OTHER:>x>VOL10>\"", "\"1\",\"SOMETHING:>other>VOL11>\"",
                              "\"2\",\"LARA_NO:>lara_no>VOL50>\""});
    open();
    inImport(backups / "odd.tox", [](FmImport& import) {
        auto& lines = in<TickList>(import, "LiLine");
        EXPECT_EQ(labelOf(import, "Label5"), "IMPORT");
        EXPECT_EQ(labelOf(import, "LbIndic"), "3 lines listed - 2 lines selected");
        EXPECT_EQ(labelOf(import, "LbRemark"), "1 line cannot be applied. 1 line should be checked.");
        const QPoint box(10, lines.visualRect(indexOf(lines, 0)).center().y());
        QTest::mouseClick(lines.viewport(), Qt::LeftButton, {}, box);
        QTest::keyClick(&lines, Qt::Key_Space);
        press(import, "CdSelect");
        EXPECT_EQ(lines.tickedRows(), (std::vector<std::size_t>{1, 2}));
        EXPECT_TRUE(labelOf(import, "LbRemark").starts_with("The catalogue has no line 999"));
        EXPECT_TRUE(
            indexOf(lines, 0).data(Qt::ToolTipRole).toString().startsWith("The catalogue has no line 999"));

        press(import, "ImPlus");
        selectRow(lines, 1);
        EXPECT_TRUE(labelOf(import, "LbRemark").starts_with("The catalogue has [LARA_CLIMB2] here"));
        EXPECT_TRUE(in<QWidget>(import, "CdStopS2").isEnabled());
        const auto& table = in<QTableWidget>(import, "TbCompare");
        EXPECT_EQ(table.horizontalHeaderItem(0)->text(), "Name *");
        EXPECT_EQ(table.horizontalHeaderItem(3)->text(), "P");
        EXPECT_EQ(table.item(0, 2)->text(), "VOL11");
        EXPECT_EQ(table.item(1, 2)->text(), "VOL70");
        EXPECT_EQ(table.item(2, 10)->text(), "#g #oa");
        EXPECT_NE(table.item(0, 2)->foreground(), table.item(0, 3)->foreground());
    });
}

TEST_F(ExchangeWindows, TheFirstTwoModesSaveExchangeFiles)
{
    open();
    clickRow(9); // "oa", the WAD's letter, stands in its sample
    type("TxVOL", "33");
    click("CdValidW");
    for (const auto& [option, name] : {std::pair{"OpExport0", "m.tox"}, {"OpExport1", "a.tox"}}) {
        whenOpened<FmExport>([&](FmExport& window) {
            mark(window, option);
            dialogs.prepareFile(backups / name);
            press(window, "CdSave");
            EXPECT_EQ(window.result(), QDialog::Accepted);
        });
        click("CdExport");
        EXPECT_TRUE(fs::exists(backups / name)) << name;
    }
    const std::string modified = readBytes(backups / "m.tox");
    const std::string added = readBytes(backups / "a.tox");
    EXPECT_EQ(modified, withTabs("\"9\",\"LARA_RELOAD:>>reload>>>>VOL33>>>PIT20>RAD13>#g\"\r\n"));
    EXPECT_GT(std::ranges::count(added, '\n'), std::ranges::count(modified, '\n'));
    EXPECT_TRUE(added.find(modified) != std::string::npos);
    closeWithoutApplying();
}

TEST_F(ExchangeWindows, MarkupInAFileIsShownAsItStands)
{
    writeBytes(backups / "odd.tox", "\"0\",\"<b>x</b>:\tone\t\"\r\n");
    open();
    inImport(backups / "odd.tox", [](FmImport& import) {
        press(import, "ImPlus");
        selectRow(in<TickList>(import, "LiLine"), 0);
        const QString tip = in<QTableWidget>(import, "TbCompare").item(0, 0)->toolTip();
        EXPECT_TRUE(tip.contains("&lt;b&gt;x&lt;/b&gt;")) << tip.toStdString();
    });
}

TEST_F(ExchangeWindows, ADamagedFileListsNothing)
{
    writeExchange("good.tox", {"\"1\",\"LARA_CLIMB2:>other>VOL11>\""});
    writeExchange("bad.tox", {"\"1\",\"LARA_CLIMB2:>other>VOL11>\"", "\"2\",\"never closed"});
    fs::create_directory(backups / "good_Samples");
    open();
    inImport(backups / "good.tox", [this](FmImport& import) {
        mark(import, "CkSamp");
        EXPECT_TRUE(in<QWidget>(import, "LiIncluS").isVisible());
        dialogs.prepareFile(backups / "bad.tox");
        press(import, "CdFile");
        EXPECT_TRUE(dialogs.said().back().text.english.find("bad.tox], line 2\n") != std::string::npos);
        EXPECT_EQ(labelOf(import, "LbIndic"), "0 lines listed - 0 lines selected");
        for (const char* hidden : {"CkSamp", "LiIncluS"}) {
            EXPECT_FALSE(in<QWidget>(import, hidden).isVisible());
        }
        EXPECT_FALSE(in<QWidget>(import, "CdOpen").isEnabled());
    });
}

TEST_F(ExchangeWindows, SamplesComeAlongAndCanBeStopped)
{
    writeExchange("city.tox", {"\"1\",\"LARA_CLIMB2:>other third ../foot01>VOL11>\"",
                               "\"11\",\"PUSH_BLOCK_END:>foot01 third>VOL11>\""});
    for (const char* name : {"other.wav", "third.wav"}) {
        writeBytes(backups / "CITY_samples" / name, "new");
    }
    open();
    inImport(backups / "city.tox", [this](FmImport& import) {
        auto& lines = in<TickList>(import, "LiLine");
        auto& samples = in<TickList>(import, "LiIncluS");
        EXPECT_FALSE(samples.isVisible());
        mark(import, "CkSamp");
        EXPECT_EQ(labelOf(import, "LbIncluS"), "4 / 5 samples"); // one leads out of the folder
        selectRow(samples, 1);
        QTest::keyClick(&samples, Qt::Key_Space);
        selectRow(lines, 1);
        QTest::keyClick(&lines, Qt::Key_Space);
        EXPECT_EQ(labelOf(import, "LbIncluS"), "1 / 3 samples");
        QTest::keyClick(&lines, Qt::Key_Space);
        EXPECT_EQ(samples.tickedRows(), (std::vector<std::size_t>{0, 3, 4})) << "what was unticked stays so";

        player.played.clear();
        QTest::keyClick(&lines, Qt::Key_Return);
        selectRow(lines, 0);
        press(import, "CdPlay2");
        ASSERT_EQ(player.played.size(), 2U);
        EXPECT_EQ(player.played[0], levelEditorSamples / "foot01.wav");
        EXPECT_TRUE(fs::equivalent(player.played[1], backups / "CITY_samples" / "other.wav"));

        auto& cancel = in<QPushButton>(import, "CdCancelCopy");
        QTimer::singleShot(0, &cancel, [&import, &cancel] {
            EXPECT_TRUE(cancel.isVisible() && in<QWidget>(import, "PbCopy").isVisible());
            EXPECT_FALSE(in<QWidget>(import, "CdOpen").isEnabled());
            QTest::keyClick(&import, Qt::Key_Escape);
        });
        dialogs.prepareAnswer(Answer::Yes);
        press(import, "CdOpen");
        EXPECT_TRUE(import.isVisible() && import.importDone());
        EXPECT_TRUE(dialogs.said().back().text.english.ends_with("No sample was copied."));
        EXPECT_EQ(readBytes(levelEditorSamples / "other.wav"), "old");

        dialogs.prepareAnswer(Answer::Yes);
        press(import, "CdOpen");
        EXPECT_FALSE(import.isVisible());
    });
    EXPECT_EQ(readBytes(levelEditorSamples / "other.wav"), "new");
    EXPECT_EQ(readBytes(levelEditorSamples / "third.wav"), "new");
    EXPECT_EQ(window->catalogue().currentLine(11), withTabs("PUSH_BLOCK_END:>foot01 third>VOL11> #oa"))
        << "once";
    closeWithoutApplying();
}

TEST_F(ExchangeWindows, NothingIsClippedAndEverythingHasAToolTip)
{
    writeExchange("city.tox", {"\"1\",\"LARA_CLIMB2:>other>VOL11>\""});
    fs::create_directory(backups / "city_Samples");
    open();
    const auto look = [](const QWidget& shown) {
        QCoreApplication::processEvents();
        EXPECT_LE(shown.width(), 1280);
        EXPECT_LE(shown.height(), 720);
        for (const QWidget* const found : shown.findChildren<QWidget*>()) {
            const bool isOurs = !found->objectName().isEmpty() && !found->objectName().startsWith("qt_");
            const auto* const label = qobject_cast<const QLabel*>(found);
            const bool hasCaption =
                (label != nullptr && !label->wordWrap()) || qobject_cast<const QAbstractButton*>(found);
            if (isOurs && hasCaption && found->isVisible() &&
                found->sizePolicy().horizontalPolicy() != QSizePolicy::Ignored) {
                EXPECT_GE(found->width(), found->minimumSizeHint().width())
                    << found->objectName().toStdString();
                EXPECT_TRUE(shown.rect().contains(QRect(found->mapTo(&shown, QPoint()), found->size())))
                    << found->objectName().toStdString();
            }
            if (isOurs && label == nullptr && found->focusPolicy() != Qt::NoFocus) {
                EXPECT_FALSE(found->toolTip().isEmpty()) << found->objectName().toStdString();
            }
        }
    };
    for (const char* language : {"OpLangE", "OpLangF"}) {
        tick(language);
        whenOpened<FmExport>([&look](FmExport& shown) {
            press(shown, "CdOBJ");
            look(shown);
        });
        click("CdExport");
        inImport(backups / "city.tox", [&look](FmImport& shown) {
            mark(shown, "CkSamp");
            press(shown, "ImPlus");
            look(shown);
        });
    }
}

} // namespace
