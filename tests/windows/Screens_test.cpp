// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/TitledWindow.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>
#include <gtest/gtest.h>

using tavrel::TitledWindow;

namespace {

class FilledWindow : public TitledWindow
{
public:
    FilledWindow() { content().addStretch(); }
};

// The screens of screens.json: "left", "right" of it and 200 lower, "below" with two pixels to a unit, and
// "scaled" to 200 per cent, whose 800 x 600 units start at 2000, 0.
class Screens : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(QGuiApplication::screens().size(), 4)
            << "QT_QPA_PLATFORM has to be offscreen:configfile=.../screens.json";
        window.resize(300, 200);
        window.move(100, 100);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        image = window.findChild<QWidget*>("Image1");
        ASSERT_EQ(QRect(image->mapTo(&window, QPoint()), image->size()), QRect(1, 1, 298, 38));
    }

    QPoint inWindow(QPoint global) const { return window.mapFromGlobal(global); }
    QPoint windowFor(QPoint pointer) const { return pointer - image->mapTo(&window, grip); }

    void press()
    {
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, image->mapTo(&window, grip));
    }
    void dragTo(QPoint pointer) { QTest::mouseMove(window.windowHandle(), inWindow(pointer)); }
    void release(QPoint pointer)
    {
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, inWindow(pointer));
    }

    const QPoint grip{40, 10};
    FilledWindow window;
    QWidget* image = nullptr;
};

} // namespace

TEST_F(Screens, theTitleStaysUnderThePointerFromOneToTheNext)
{
    const struct
    {
        QPoint pointer;
        const char* screen;
        double pixelsPerUnit;
        // Offsets of a window come in the units of the screen that it leaves, so it takes a few moves.
        int moves;
    } cases[] = {
        {{150, 130}, "left", 1, 1},    {{900, 500}, "right", 1, 1},   {{1300, 720}, "right", 1, 1},
        {{600, 900}, "below", 2, 1},   {{300, 1200}, "below", 2, 1},  {{1400, 300}, "right", 1, 1},
        {{2200, 250}, "scaled", 2, 3}, {{2700, 580}, "scaled", 2, 1}, {{2100, -300}, "scaled", 2, 1},
        {{2300, 300}, "scaled", 2, 1}, {{1500, 300}, "right", 1, 3},  {{100, -5000}, "left", 1, 1},
        {{100, 90}, "left", 1, 1},
    };
    press();
    for (const auto& [pointer, screen, pixelsPerUnit, moves] : cases) {
        SCOPED_TRACE(testing::Message() << pointer.x() << "," << pointer.y());
        for (int left = moves - 1; left >= 0; --left) {
            dragTo(pointer - QPoint(left, 0));
        }
        EXPECT_EQ(window.pos(), windowFor(pointer));
        EXPECT_EQ(window.screen()->name().toStdString(), screen);
        EXPECT_EQ(window.devicePixelRatio(), pixelsPerUnit);
    }
}

TEST_F(Screens, aWindowThatIsDroppedOutOfReachComesBack)
{
    const struct
    {
        const char* where;
        QPoint dropped;
        QPoint back;
    } cases[] = {
        {"left of all", {-1000, 100}, {-235, 100}},
        {"above all", {100, -900}, {100, -23}},
        {"above the lower screen", {1300, 50}, {1300, 177}},
        {"where a bit of the title shows", {-230, 100}, {-230, 100}},
        {"right of the scaled screen", {5000, 300}, {2735, 300}},
        {"below the scaled screen", {2300, 650}, {2300, 583}},
    };
    for (const auto& [where, dropped, back] : cases) {
        SCOPED_TRACE(where);
        const QPoint pointer = dropped + image->mapTo(&window, grip);
        press();
        dragTo(pointer);
        EXPECT_EQ(window.pos(), dropped);
        release(pointer);
        EXPECT_EQ(window.pos(), back);
    }
}
