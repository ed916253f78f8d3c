// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Files.h"
#include "ui/Text.h"
#include "versions/DifferenceView.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>

using namespace tavrel;

namespace {

const DifferenceSides sides{{"In the file", "Dans le fichier"},
                            {"Now", "Maintenant"},
                            {"not in the file", "absent du fichier"},
                            {"only in the file", "dans le fichier seulement"}};

std::vector<DifferenceRow> someRows()
{
    const auto line = [](const char* text) { return withTabs(text); };
    return {
        {3, {}, line("FEET:>a>VOL44>P>>>>#g"), line("FEET:>a>VOL60>P>>>>#g #oa")},
        {7,
         8,
         line("DOOR:>b>VOL10>"),
         line("DOOR:>b caf\xE9>VOL10>"),
         {"both changed", "modifié des deux côtés"},
         false},
        {{}, 9, std::nullopt, line("NEW:>c>VOL10>")},
    };
}

struct ShownView
{
    explicit ShownView(Language language = Language::English) : view(sides, {0x001020, 0xDFFFFF}, language)
    {
        view.useTicks();
        view.useRowButton({"Put back", "Remettre"});
        view.setRows(someRows());
        view.resize(900, 320);
        view.show();
        list = view.findChild<QTableView*>("LiDifferences");
        list->setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
    }
    std::vector<std::string> texts(int column) const
    {
        std::vector<std::string> result;
        for (int row = 0; row < list->model()->rowCount(); ++row) {
            result.push_back(list->model()->index(row, column).data().toString().toStdString());
        }
        return result;
    }
    // The marked words of the two lines.
    std::vector<std::string> marked() const
    {
        std::vector<std::string> words;
        for (const QTextEdit::ExtraSelection& mark :
             view.findChild<QPlainTextEdit*>("TxDifferingLines")->extraSelections()) {
            words.push_back(mark.cursor.selectedText().toStdString());
        }
        return words;
    }

    DifferenceView view;
    QTableView* list;
};

using Texts = std::vector<std::string>;

TEST(DifferenceView, SaysWhatDiffersAndMarksIt)
{
    const ShownView shown;
    EXPECT_EQ(shown.texts(0), Texts({"  3", "  7 / 8", "  – / 9"}));
    EXPECT_EQ(shown.texts(1), Texts({"FEET", "DOOR", "NEW"}));
    EXPECT_EQ(shown.texts(2),
              Texts({"VOL 44 → 60, #oa added", "both changed: sample café added", "not in the file"}));
    EXPECT_EQ(shown.marked(), Texts({"VOL44", "VOL60", "#oa"}));
    QTest::keyClick(shown.list, Qt::Key_Down);
    EXPECT_EQ(shown.marked(), Texts({"café"}));
    const ShownView french(Language::French);
    EXPECT_EQ(french.texts(2), Texts({"VOL 44 → 60, #oa ajoutée",
                                      "modifié des deux côtés : sample café ajouté", "absent du fichier"}));
}

TEST(DifferenceView, FiltersByWhatDiffers)
{
    ShownView shown;
    const auto toggle = [&](const char* box) { shown.view.findChild<QCheckBox*>(box)->toggle(); };
    toggle("CkValues");
    EXPECT_EQ(shown.view.shownRows(), 3U) << "the first differs in its letters, too";
    toggle("CkLetters");
    toggle("CkMissing");
    EXPECT_EQ(shown.texts(1), Texts({"DOOR"}));
    EXPECT_EQ(shown.view.selectedRow(), 1U);
    EXPECT_EQ(shown.view.findChild<QLabel*>("LbDifferences")->text(), "1 of 3 differing sounds");
    toggle("CkSamples");
    EXPECT_FALSE(shown.view.selectedRow());
    EXPECT_TRUE(shown.marked().empty());
}

TEST(DifferenceView, IsWorkedByKeysAndMouse)
{
    ShownView shown;
    std::vector<std::size_t> chosen;
    std::vector<std::size_t> pressed;
    QObject::connect(&shown.view, &DifferenceView::chosen, [&](std::size_t row) { chosen.push_back(row); });
    QObject::connect(&shown.view, &DifferenceView::buttonPressed,
                     [&](std::size_t row) { pressed.push_back(row); });
    QTest::keyClick(shown.list, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(shown.list, Qt::Key_Space);
    EXPECT_EQ(shown.view.tickedRows(), std::vector<std::size_t>({0, 2})) << "the second cannot be ticked";
    QTest::keyClick(shown.list, Qt::Key_Space);
    EXPECT_TRUE(shown.view.tickedRows().empty());
    QTest::keyClick(shown.list, Qt::Key_End);
    QTest::keyClick(shown.list, Qt::Key_Return);
    QTest::keyClick(shown.list, Qt::Key_Delete);
    const QRect tick = shown.list->visualRect(shown.list->model()->index(2, 0));
    QTest::mouseClick(shown.list->viewport(), Qt::LeftButton, {},
                      tick.topLeft() + QPoint(10, tick.height() / 2));
    EXPECT_EQ(shown.view.tickedRows(), std::vector<std::size_t>({2}));
    const QRect button = shown.list->visualRect(shown.list->model()->index(1, 3));
    QTest::mouseClick(shown.list->viewport(), Qt::LeftButton, {}, button.center());
    EXPECT_EQ(chosen, std::vector<std::size_t>({2}));
    EXPECT_EQ(pressed, std::vector<std::size_t>({2, 1}));
    std::vector<DifferenceRow> rows = someRows();
    rows.erase(rows.begin() + 1);
    shown.view.setRows(rows);
    EXPECT_EQ(shown.view.selectedRow(), 1U) << "the next row stands where the one put back was";
}

} // namespace
