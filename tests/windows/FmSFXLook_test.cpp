// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window shows: captions, tool tips, colours, and that everything fits.
#include "MainWindow.h"
#include "samples/FmCheck.h"
#include "ui/Colours.h"

#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>

#include <set>

using namespace tavrel;

namespace {

struct Shown
{
    const char* control;
    BilingualText text;    // empty: the control has no caption of its own
    BilingualText toolTip; // empty: not looked at
};

// A sample of every kind of control, odd spellings included.
const Shown captions[] = {
    {"CdEdit", {"Open Sounds.txt file", "Ouvrir Sounds.txt"}, {"Open Sounds.txt file", "Ouvrir Sounds.txt"}},
    {"CdCopyLine",
     {"Copy line to clipboard", "Copier la ligne dans le presse papiers"},
     {"Copy line to clipboard", "Copier la ligne dans le presse papiers"}},
    {"LbModif", {"Modifyed", "Modifiée"}, {}},
    {"LbReplacL", {"Replace WAD Letter by...............", "Remplacer la Lettre du WAD par"}, {}},
    {"CdErase", {}, {"Remove letter from every lines", "Enlever la lettre de toutes les lignes"}},
    {"CkCase", {"Upper/Lower Case sensitive", "Respecter la casse"}, {}},
    {"TxCH", {}, {"Probability", "Probabilité en % que le son soit entendu"}},
    {"CkR", {}, {"Random Radius", "Rayon d'écoute aléatoire"}},
    {"ImPanelL", {"Line in sounds.txt", "Ligne dans sounds.txt"}, {}},
    {"OpLangE", {"English display", "Affichage en Anglais"}, {}},
};

QString captionOf(const QWidget& control)
{
    if (const auto* const label = qobject_cast<const QLabel*>(&control)) {
        return label->text();
    }
    return dynamic_cast<const QAbstractButton&>(control).text().remove('&'); // of a mnemonic
}

} // namespace

class MainWindowLookTest : public MainWindowTest
{
protected:
    template <typename Check>
    void inBothLanguages(Check check)
    {
        for (const auto& [option, language] :
             {std::pair{"OpLangF", Language::French}, {"OpLangE", Language::English}}) {
            SCOPED_TRACE(option);
            tick(option);
            QCoreApplication::processEvents();
            check(language);
        }
    }
};

TEST_F(MainWindowLookTest, switchesEveryCaptionAtOnce)
{
    open();
    inBothLanguages([this](Language language) {
        for (const Shown& shown : captions) {
            SCOPED_TRACE(shown.control);
            const QWidget& shownControl = control(shown.control);
            if (!shown.text.empty()) {
                EXPECT_EQ(captionOf(shownControl).toStdString(), shown.text.in(language));
            }
            if (!shown.toolTip.empty()) {
                EXPECT_EQ(shownControl.toolTip().toStdString(), shown.toolTip.in(language));
            }
        }
    });
}

TEST_F(MainWindowLookTest, nothingIsClippedAt1280By720)
{
    open();
    ASSERT_LE(window->width(), 1280);
    ASSERT_LE(window->height(), 720);
    inBothLanguages([this](Language) {
        int looked = 0;
        for (const QWidget* const found : window->findChildren<QWidget*>()) {
            const bool hasCaption =
                qobject_cast<const QAbstractButton*>(found) || qobject_cast<const QLabel*>(found);
            if (hasCaption && found->isVisible()) {
                ++looked;
                EXPECT_GE(found->width(), found->sizeHint().width()) << found->objectName().toStdString();
                EXPECT_GE(found->height(), found->sizeHint().height()) << found->objectName().toStdString();
                EXPECT_TRUE(
                    window->rect().contains(QRect(found->mapTo(window.get(), QPoint()), found->size())))
                    << found->objectName().toStdString();
            }
        }
        EXPECT_GT(looked, 60);
    });
}

TEST_F(MainWindowLookTest, ValuesStayTogetherWithTheirFlagsBelow)
{
    open();
    window->resize(1920, 1080);
    QCoreApplication::processEvents();
    const auto left = [this](const char* name) { return control(name).mapTo(window.get(), QPoint()).x(); };
    for (const auto& [label, flag] :
         {std::pair("LbVOL", "CkP"), {"LbPIT", "CkV"}, {"LbRAD", "CkR"}, {"LbCH", "CkN"}}) {
        EXPECT_EQ(left(label), left(flag)) << label;
    }
    EXPECT_LT(left("TxCH") - left("LbVOL"), 420);
    EXPECT_GT(control("LiSamp").width(), control("LiWAD").width()) << "the list that can use the room";
}

TEST_F(MainWindowLookTest, listsTakeTheColoursOfTheirSlot)
{
    ProgramSettings settings = LoadSettings(folders.program).settings;
    settings.colours.slots[0] = {0x102030, 0x0A0B0C}; // 0x00BBGGRR
    ASSERT_FALSE(SaveSettings(folders.program, settings));
    open();
    for (const char* name : {"LiSFX", "LiWAD", "LiSamp", "TxOrig", "TxModif"}) {
        const QPalette palette = control(name).palette();
        EXPECT_EQ(palette.color(QPalette::Base), QColor(0x30, 0x20, 0x10)) << name;
        EXPECT_EQ(palette.color(QPalette::Text), QColor(0x0C, 0x0B, 0x0A)) << name;
    }
    QWidget& list = control("LiSamp");
    const QImage picture = list.grab().toImage();
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, picture.height() - 10), QColor(0x30, 0x20, 0x10))
        << "the colour is really painted";
}

TEST_F(MainWindowLookTest, aModifiedLineIsMarkedInTheList)
{
    open();
    const QModelIndex index = sounds().model()->index(1, 0);
    const auto barColour = [&] {
        const QRect rect = sounds().visualRect(index);
        return sounds().viewport()->grab().toImage().pixelColor(rect.left() + 1, rect.center().y());
    };
    const QColor before = barColour();
    clickRow(1);
    type("TxVOL", "33");
    click("CdValidW");
    clickRow(3);
    EXPECT_NE(barColour(), before);
    EXPECT_EQ(index.data().toString(), "  1: LARA_CLIMB2           ") << "a mark is no text";
}

TEST_F(MainWindowLookTest, panelsFoldByTheirTitleImage)
{
    open();
    EXPECT_TRUE(control("CdCopy").isVisible());
    click("ImPanelW");
    EXPECT_FALSE(control("CdCopy").isVisible());
    EXPECT_TRUE(control("CdQuit").isVisible());
    for (const char* name : {"ImPanelS", "ImPanelD", "ImPanelO"}) {
        QCoreApplication::processEvents();
        const QPoint place = control(name).mapTo(window.get(), QPoint());
        click(name);
        QCoreApplication::processEvents();
        EXPECT_LE(control(name).mapTo(window.get(), QPoint()).y(), place.y())
            << name << " stays under the mouse";
    }
    click("ImPanelW");
    EXPECT_TRUE(control("CdCopy").isVisible());
}

TEST_F(MainWindowLookTest, TheWindowIsMaximisedByItsTitleAndComesBackWhereItWas)
{
    open();
    window->resize(1100, 700);
    window->move(4, 30);
    auto& image = control("Image1");
    QTest::mouseDClick(&image, Qt::LeftButton, {}, QPoint(60, 10));
    EXPECT_TRUE(window->isMaximized());
    const QPoint place = window->pos();
    QTest::mousePress(&image, Qt::LeftButton, {}, QPoint(60, 10));
    QTest::mouseMove(&image, QPoint(120, 60));
    QTest::mouseRelease(&image, Qt::LeftButton, {}, QPoint(120, 60));
    EXPECT_EQ(window->pos(), place) << "a maximised window is not dragged";
    click("CdMaximise");
    EXPECT_FALSE(window->isMaximized());
    const QRect usual = window->geometry();
    EXPECT_TRUE(window->close());

    open();
    EXPECT_EQ(window->geometry(), usual);
    window->showMaximized();
    EXPECT_TRUE(window->close());
    open();
    EXPECT_TRUE(window->isMaximized());
    EXPECT_EQ(control("CdMaximise").toolTip(), "Restore the window's size");
}

TEST_F(MainWindowLookTest, SecondaryWindowsRememberTheirSize)
{
    open();
    whenOpened<FmCheck>([](FmCheck& check) { check.resize(790, 655); });
    click("CdSmpCheck");
    EXPECT_TRUE(window->close());
    open();
    QSize size;
    whenOpened<FmCheck>([&size](FmCheck& check) { size = check.size(); });
    click("CdSmpCheck");
    EXPECT_EQ(size, QSize(790, 655));
}

TEST_F(MainWindowLookTest, GreyedEntriesOfAMenuAreTheFaintestOnes)
{
    QMenu menu;
    menu.addAction("MMMMMMMM");
    menu.addAction("MMMMMMMM")->setEnabled(false);
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    const QImage image = menu.grab().toImage();
    const auto brightest = [&](QAction* action) {
        int most = 0;
        const QRect rect = menu.actionGeometry(action).adjusted(2, 2, -2, -2);
        for (int y = rect.top(); y < rect.bottom(); ++y) {
            for (int x = rect.left(); x < rect.right(); ++x) {
                most = std::max(most, qGray(image.pixel(x, y)));
            }
        }
        return most;
    };
    EXPECT_LT(brightest(menu.actions()[1]) + 40, brightest(menu.actions()[0]));
    EXPECT_GT(brightest(menu.actions()[1]), qGray(image.pixel(3, image.height() - 3)) + 40) << "still there";
}
