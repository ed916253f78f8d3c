// SPDX-License-Identifier: GPL-3.0-or-later
// The compare window and the window of earlier versions.
#include "MainWindow.h"
#include "catalogue/CatalogueLoading.h"
#include "demo/WavFile.h"
#include "samples/SampleFormat.h"
#include "versions/DifferenceView.h"
#include "versions/FmCompare.h"
#include "versions/FmVersions.h"
#include "versions/VersionCommands.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

using namespace tavrel;

namespace {

namespace fs = std::filesystem;

struct VersionsTest : testing::Test
{
    VersionsTest()
    {
        Result<LoadedCatalogue> loaded = loadCatalogue({folders.program, folders.creator, false});
        catalogue = std::move(loaded->catalogue);
        fs::remove(folders.creator / "Orig_Sounds.txt");
    }

    VersionsContext context(Language language = Language::English)
    {
        return {language,
                {},
                catalogue,
                dialogs,
                {folders.sounds, folders.levelEditor / "sound" / "Samples",
                 folders.levelEditor / "graphics" / "wads"},
                [this](std::vector<SoundCatalogue::LineChange> changes, const BilingualText& step) {
                    steps.push_back(step.english);
                    return !catalogue.setCurrentLines(std::move(changes));
                },
                [this](std::size_t number) { shownSounds.push_back(number); },
                [this](const KeptVersion& set) {
                    broughtBack.push_back(set.name);
                    return true;
                }};
    }
    // A sounds.txt with other lines for some sounds, in another level editor.
    fs::path friendsFile(const std::vector<std::pair<std::size_t, std::string>>& changes)
    {
        std::vector<std::string> lines = stockLines();
        for (const auto& [number, line] : changes) {
            lines[number] = line;
        }
        const fs::path file = folders.root / "friend" / "sound" / "LevelSFX Creator" / "Sounds.txt";
        writeBytes(file, textOf(lines));
        return file;
    }
    void change(std::size_t number, const std::string& line)
    {
        EXPECT_FALSE(catalogue.setCurrentLine(number, line));
    }

    template <typename Control>
    static Control& control(QWidget& window, const char* name)
    {
        auto* const found = window.findChild<Control*>(name);
        if (found == nullptr) {
            throw std::runtime_error(std::string("no control ") + name);
        }
        return *found;
    }
    static DifferenceView& view(QWidget& window) { return control<DifferenceView>(window, "DifferenceView"); }
    static void click(QWidget& window, const char* name)
    {
        QTest::mouseClick(&control<QPushButton>(window, name), Qt::LeftButton);
    }
    static std::vector<std::string> words(QWidget& window)
    {
        std::vector<std::string> texts;
        const QAbstractItemModel& rows = *control<QTableView>(window, "LiDifferences").model();
        for (int row = 0; row < rows.rowCount(); ++row) {
            texts.push_back(rows.index(row, 2).data().toString().toStdString());
        }
        return texts;
    }

    DemoFolders folders;
    SoundCatalogue catalogue;
    ScriptedDialogs dialogs;
    std::vector<std::string> steps;
    std::vector<std::size_t> shownSounds;
    std::vector<std::string> broughtBack;
};

using Words = std::vector<std::string>;

TEST_F(VersionsTest, TakesOverWhatOnlyTheOtherSideChanged)
{
    const std::string theirs = "LARA_NO:\t\tnew_sample wide\t\tVOL44\t\t\t\t\t#ab";
    change(4, "BOTH:\ta\tVOL08\t");
    change(5, "MINE:\ta\tVOL08\t");
    const fs::path file = friendsFile({{2, theirs}, {4, "BOTH:\ta\tVOL09\t"}, {27, "EMPTY:\tb\t"}});
    writeBytes(folders.root / "friend" / "sound" / "Samples" / "new_sample.wav", "not a sound");
    writeBytes(folders.root / "friend" / "sound" / "Samples" / "wide.wav", wavBytes({.channels = 2}));
    FmCompare window(nullptr, context(), file);
    window.show();
    EXPECT_TRUE(view(window).tickedRows().empty());
    QTest::mouseClick(&control<QCheckBox>(window, "CkThreeWays"), Qt::LeftButton, {}, QPoint(8, 8));
    ASSERT_EQ(view(window).rows().size(), 4U);
    EXPECT_EQ(view(window).tickedRows(), std::vector<std::size_t>({0})) << "sound 27 is protected";
    EXPECT_EQ(words(window)[1], "changed on both sides: VOL 08 → 09");
    EXPECT_TRUE(words(window)[2].starts_with("changed here: "));
    EXPECT_TRUE(words(window)[3].starts_with("changed there, protected: "));
    QTest::keyClick(&control<QTableView>(window, "LiDifferences"), Qt::Key_Return);
    EXPECT_EQ(shownSounds, std::vector<std::size_t>({2}));

    QTest::keyClicks(&control<QLineEdit>(window, "TxLetterMap"), "ab");
    click(window, "CdTake"); // no letter for #ab
    EXPECT_EQ(dialogs.said().size(), 1U);
    QTest::keyClicks(&control<QLineEdit>(window, "TxLetterMap"), "=oa");
    dialogs.prepareAnswer(Answer::Cancel);
    click(window, "CdTake");
    EXPECT_TRUE(steps.empty()) << "cancelled where the samples are listed";
    dialogs.prepareAnswer(Answer::Yes);
    click(window, "CdTake");
    EXPECT_EQ(steps, Words({"Take over 1 line; copied samples stay"}));
    EXPECT_EQ(catalogue.currentLine(2), "LARA_NO:\t\tnew_sample wide\t\tVOL44\t\t\t\t\t#oa");
    EXPECT_TRUE(CheckSampleFormat(folders.levelEditor / "sound" / "Samples", "wide")) << "converted";
    EXPECT_EQ(readBytes(folders.levelEditor / "sound" / "Samples" / "new_sample.wav"), "not a sound");
    EXPECT_NE(dialogs.said().back().text.english.find("not in the format"), std::string::npos);
    EXPECT_TRUE(window.tookOver());
    EXPECT_EQ(words(window)[0], "changed on both sides: #ab added, #oa removed");
}

TEST_F(VersionsTest, TakesOverPartsAlone)
{
    change(2, "LARA_NO:\tmine\tVOL10\tP\t\t\t\t#oa");
    FmCompare window(nullptr, context(), friendsFile({{2, "OTHER:\ttheirs\tVOL44\t\tCH50\t\t\t#ab"}}));
    window.show();
    click(window, "CdSelect");
    QTest::mouseClick(&control<QAbstractButton>(window, "OpParts"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_FALSE(control<QLineEdit>(window, "TxLetterMap").isEnabled());
    control<QCheckBox>(window, "CkTakeValues").click();
    EXPECT_FALSE(control<QPushButton>(window, "CdTake").isEnabled()) << "nothing of the line";
    control<QCheckBox>(window, "CkTakeValues").click();
    click(window, "CdTake");
    EXPECT_TRUE(dialogs.said().empty());
    const SoundLine line = ParseSoundLine(catalogue.currentLine(2));
    EXPECT_EQ(line.Name.trimmed(), "LARA_NO:");
    EXPECT_EQ(line.SampleText.trimmed(), "mine");
    EXPECT_EQ(line.Vol.trimmed(), "VOL44");
    EXPECT_TRUE(line.FlagP.empty());
    EXPECT_EQ(line.Ch.trimmed(), "CH50");
    EXPECT_EQ(line.Letters, "#oa");
}

TEST_F(VersionsTest, ComparesWithWhatIsChosen)
{
    change(2, "LARA_NO:\tmine\tVOL10\t");
    EXPECT_TRUE(keepVersion(folders.sounds, "ONLY:\ta\t\r\n", "oasis"));
    FmCompare window(nullptr, context(Language::French));
    window.show();
    auto& source = control<QComboBox>(window, "CbSource");
    EXPECT_EQ(source.count(), 2);
    EXPECT_EQ(control<QLabel>(window, "LbShift").text(), "Choisissez avec quoi comparer.");
    source.setFocus();
    QTest::keyClick(&source, Qt::Key_Home);
    EXPECT_EQ(view(window).rows().size(), 1U);
    EXPECT_FALSE(control<QCheckBox>(window, "CkThreeWays").isEnabled());
    QTest::keyClick(&source, Qt::Key_Down);
    EXPECT_EQ(view(window).rows().size(), 370U);
    std::vector<std::string> lines = stockLines();
    lines.insert(lines.begin() + 100, "NEW:\ta\t");
    writeBytes(folders.root / "shifted.txt", textOf(lines));
    dialogs.prepareFile(folders.root / "shifted.txt");
    click(window, "CdFile");
    EXPECT_EQ(view(window).rows().size(), 2U);
    EXPECT_EQ(words(window)[1], "absent ici");
    EXPECT_TRUE(control<QLabel>(window, "LbShift")
                    .text()
                    .startsWith("Avant le son 100, l'autre côté a 1 ligne de plus."));
    dialogs.prepareFile(folders.root / "none.txt");
    click(window, "CdFile");
    EXPECT_EQ(dialogs.said().size(), 1U);
    EXPECT_TRUE(view(window).rows().empty());
}

TEST_F(VersionsTest, BringsAVersionBackAsOneStep)
{
    std::vector<std::string> lines = stockLines();
    lines[2] = "LARA_NO:\told\tVOL10\t";
    lines[27] = "EMPTY:\told\t"; // protected, and brought back all the same
    EXPECT_TRUE(keepVersion(folders.sounds, textOf(lines), "oasis",
                            std::chrono::system_clock::now() + std::chrono::hours(48)));
    writeBytes(folders.levelEditor / "sound" / "Samples_replaced" / "a.wav", "");
    FmVersions window(nullptr, context());
    window.show();
    auto& list = control<QTreeWidget>(window, "LiVersions");
    ASSERT_EQ(list.topLevelItemCount(), 2);
    EXPECT_EQ(list.topLevelItem(0)->text(1), "Replaced by an apply for oasis");
    EXPECT_EQ(list.topLevelItem(0)->text(2), "2 lines");
    EXPECT_EQ(list.topLevelItem(1)->text(2), "1 file");
    dialogs.prepareAnswer(Answer::No);
    click(window, "CdBringBack");
    EXPECT_TRUE(steps.empty());
    dialogs.prepareAnswer(Answer::Yes);
    click(window, "CdBringBack");
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_TRUE(steps[0].starts_with("Bring back the version of 20"));
    EXPECT_EQ(catalogue.currentLine(27), lines[27]);
    EXPECT_EQ(list.topLevelItem(0)->text(2), "0 lines");
    whenOpened<FmCompare>([](FmCompare& compare) { EXPECT_TRUE(view(compare).rows().empty()); });
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_FALSE(control<QPushButton>(window, "CdCompare").isEnabled());
    click(window, "CdBringBack");
    EXPECT_EQ(broughtBack, Words({"Samples_replaced"}));
}

} // namespace
