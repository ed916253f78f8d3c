// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the project check and of the levels, by keys.
#include "checks/FmChecks.h"
#include "checks/FmLevels.h"
#include "support/CheckedProject.h"
#include "support/ListedTitles.h"
#include "support/ScriptedDialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <memory>

using namespace tavrel;

namespace {

class ChecksTest : public testing::TestWithParam<Language>
{
protected:
    ChecksTest()
    {
        for (const char* name : {"a", "gong"}) {
            project.addSample(name);
        }
        project.addLine("FIRST:>gang>>VOL50>P>>>>#oa");
        project.addLine("SECOND:>a>>VOL00>P>>>>#oa");
        project.addLine("THIRD:>a gong>>VOL70>P>CH00>>>#tw");
        project.addLine("FOURTH:>a>>VOL50>P>>>>#zz");
        project.references.appendUser({"tomb", "tw", "The tomb"});
        writeBytes(project.folders.wads / "tomb.wad", "");
    }

    bool isEnglish() const { return GetParam() == Language::English; }

    template <typename Window>
    void show(Window& shown)
    {
        shown.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown));
        expectListedWindowTitle(shown.windowTitle().toStdString());
    }

    void open()
    {
        window = std::make_unique<FmChecks>(
            nullptr,
            ChecksContext{
                GetParam(), ColourScheme(), dialogs,
                [this](Progress& progress) { return runChecks(project.subject(), progress); },
                [this](const CheckReport& report) { findings = report.findings.size(); },
                [this]() -> const SoundCatalogue& { return project.catalogue; },
                [this] { return project.wad; }, [this](std::size_t sound) { shownSounds.push_back(sound); },
                [this](std::vector<SoundCatalogue::LineChange> changes, const BilingualText& label) {
                    labels.push_back(label.in(GetParam()));
                    return !project.catalogue.setCurrentLines(std::move(changes));
                },
                [](std::vector<LineReadOtherwise>) { return false; },
                [this](const std::string& letter) { letters.push_back(letter); }});
        show(*window);
        ASSERT_TRUE(QTest::qWaitFor([this] { return tree().topLevelItemCount() > 0; }));
    }

    template <typename Control>
    Control& control(const char* name)
    {
        return *window->findChild<Control*>(name);
    }
    QTreeWidget& tree() { return control<QTreeWidget>("LiFindings"); }
    QString selected(int column) { return tree().currentItem()->text(column); }
    std::vector<std::string> headings()
    {
        std::vector<std::string> texts;
        for (int group = 0; group < tree().topLevelItemCount(); ++group) {
            texts.push_back(tree().topLevelItem(group)->text(0).toStdString());
        }
        return texts;
    }
    void press(const char* name)
    {
        auto& button = control<QPushButton>(name);
        button.setFocus();
        QTest::keyClick(&button, Qt::Key_Return);
    }
    void key(int key) { QTest::keyClick(&tree(), static_cast<Qt::Key>(key)); }

    CheckedProject project;
    ScriptedDialogs dialogs;
    std::unique_ptr<FmChecks> window;
    std::size_t findings = 0; // that the others who show them were told
    std::vector<std::size_t> shownSounds;
    std::vector<std::string> labels;
    std::vector<std::string> letters;
};

using Texts = std::vector<std::string>;

} // namespace

INSTANTIATE_TEST_SUITE_P(InBothLanguages, ChecksTest, testing::Values(Language::English, Language::French),
                         [](const auto& language) {
                             return language.param == Language::English ? "English" : "French";
                         });

TEST_P(ChecksTest, LeadsToEachSoundAndMendsIt)
{
    open();
    EXPECT_EQ(headings(),
              isEnglish() ? Texts({"3 errors", "1 warning"}) : Texts({"3 erreurs", "1 avertissement"}));
    tree().setFocus();
    EXPECT_EQ(selected(0), "0 FIRST");
    key(Qt::Key_Return);
    key(Qt::Key_Down);
    EXPECT_EQ(selected(0), "1 SECOND");
    key(Qt::Key_Return);
    EXPECT_EQ(shownSounds, (std::vector<std::size_t>{0, 1}));
    const QString preview = control<QPlainTextEdit>("TxPreview").toPlainText();
    EXPECT_TRUE(preview.contains("1  SECOND:  a  VOL00") && preview.contains("SECOND:  a  VOL01"))
        << preview.toStdString();

    press("CdFix");
    EXPECT_EQ(project.line(1), withTabs("SECOND:>a>>VOL01>P>>>>#oa"));
    EXPECT_EQ(findings, 3U);
    EXPECT_EQ(labels, isEnglish() ? Texts({"VOL00 becomes VOL01"}) : Texts({"VOL00 devient VOL01"}));
    EXPECT_EQ(selected(0), "2 THIRD") << "the next one, and the mended one has gone";
    EXPECT_FALSE(control<QPushButton>("CdFixAll").isEnabled()) << "it is the only one left";

    key(Qt::Key_End);
    EXPECT_EQ(selected(0), "3 FOURTH");
    press("CdFix");
    EXPECT_EQ(letters, Texts({"zz"}));
}

TEST_P(ChecksTest, MendsAllOfAKindWhenTheUserHasSeenWhatChanges)
{
    open();
    tree().setFocus();
    key(Qt::Key_Down);
    dialogs.prepareAnswer(Answer::No);
    press("CdFixAll");
    EXPECT_TRUE(labels.empty());
    const ScriptedDialogs::Said& asked = dialogs.said().back();
    EXPECT_NE(asked.details.english.find("SECOND:  a  VOL01"), std::string::npos) << asked.details.english;
    EXPECT_EQ(asked.text,
              BilingualText("Mend 2 findings: Value of zero", "Corriger 2 constats : Valeur nulle"));
    dialogs.prepareAnswer(Answer::Yes);
    press("CdFixAll");
    EXPECT_EQ(labels.size(), 1U) << "one step";
    EXPECT_EQ(project.line(1), withTabs("SECOND:>a>>VOL01>P>>>>#oa"));
    EXPECT_EQ(project.line(2), withTabs("THIRD:>a gong>>VOL70>P>>>>#tw"));
}

TEST_P(ChecksTest, FollowsTheProjectAndKeepsToWhatIsAskedFor)
{
    open();
    auto& search = control<QLineEdit>("TxSearch");
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(search.hasFocus());
    QTest::keyClicks(&search, "third");
    EXPECT_EQ(headings(), isEnglish() ? Texts({"1 error"}) : Texts({"1 erreur"}));
    QTest::keyClick(&search, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&search, Qt::Key_Delete);
    auto& scope = control<QComboBox>("CbScope");
    scope.setFocus();
    QTest::keyClick(&scope, Qt::Key_Down);
    EXPECT_EQ(headings(), isEnglish() ? Texts({"2 errors"}) : Texts({"2 erreurs"}));
    press("CdCopyList");
    EXPECT_TRUE(QApplication::clipboard()->text().contains("  0 FIRST  [gang.wav]"));
    EXPECT_FALSE(QApplication::clipboard()->text().contains("THIRD"));
    const std::filesystem::path table = project.root / "list.csv";
    dialogs.prepareFile(table);
    press("CdSave");
    EXPECT_NE(readBytes(table).find("\"error\",\"value-zero\",\"1\",\"SECOND\",\"\",\"\",\"VOL00"),
              std::string::npos)
        << readBytes(table);
    dialogs.prepareFile(project.soundsFile.path);
    press("CdSave");
    EXPECT_EQ(readBytes(project.soundsFile.path), "");
    EXPECT_EQ(dialogs.said().back().kind, "exclamation");

    project.addSample("gang");
    ASSERT_FALSE(project.catalogue.setCurrentLines({{1, withTabs("SECOND:>a>>VOL50>P>>>>#oa")},
                                                    {2, withTabs("THIRD:>gong>>VOL70>P>>>>#tw")},
                                                    {3, withTabs("FOURTH:>gang>>VOL50>P>>>>#oa")}}));
    window->refresh();
    ASSERT_TRUE(QTest::qWaitFor([this] { return tree().topLevelItemCount() == 0; }));
    QTest::keyClick(&scope, Qt::Key_Home);
    EXPECT_TRUE(control<QLabel>("ImEmpty").isVisible());
    EXPECT_EQ(control<QLabel>("LbEmptyTitle").text(), isEnglish() ? "All is well" : "Tout est en ordre");
    EXPECT_FALSE(control<QPushButton>("CdFix").isEnabled());
}

TEST_P(ChecksTest, ShowsTheLevelsInNumbers)
{
    project.addLine("ALL:>a>>VOL50>>>>>#g");
    std::vector<std::string> chosen;
    FmLevels levels(nullptr, {GetParam(), ColourScheme(), dialogs,
                              [this] { return surveyLevels(project.subject(), project.check().findings); },
                              [this] { return project.wad; },
                              [&chosen](const CurrentWad& wad) { chosen.push_back(wad.wadName); }});
    show(levels);
    auto& list = *levels.findChild<QTreeWidget*>("LiLevels");
    ASSERT_TRUE(QTest::qWaitFor([&list] { return list.topLevelItemCount() == 2; }));
    const auto rowOf = [&list](const char* name) {
        const QTreeWidgetItem& row = *list.findItems(name, Qt::MatchExactly).front();
        Texts texts;
        for (int column = 1; column < 8; ++column) {
            texts.push_back(row.text(column).toStdString());
        }
        return texts;
    };
    const std::string size = isEnglish() ? "88 bytes" : "88 octets";
    EXPECT_EQ(rowOf("oasis"), Texts({"#oa", "The oasis", "2", "1", "2", size, "1"}));
    EXPECT_EQ(rowOf("tomb")[3], "1");
    EXPECT_EQ(list.currentItem()->text(0), "oasis") << "the current WAD";
    auto& samples = *levels.findChild<QTreeWidget*>("LiLevelSamples");
    EXPECT_EQ(samples.topLevelItem(0)->text(0), "a");
    EXPECT_EQ(samples.topLevelItem(1)->text(1), isEnglish() ? "missing" : "manquant");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(chosen, Texts({"oasis"}));
    dialogs.prepareFile(project.root / "levels");
    QTest::mouseClick(levels.findChild<QPushButton*>("CdSave"), Qt::LeftButton);
    EXPECT_NE(readBytes(project.root / "levels.csv").find("\"oasis\",\"oa\",\"The oasis\",\"2\",\"1\",\"2\""),
              std::string::npos);
}
