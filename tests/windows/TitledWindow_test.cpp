// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/TitledWindow.h"

#include <QTest>
#include <gtest/gtest.h>

using tavrel::TitledWindow;

namespace {

class TitledWindowTest : public testing::Test
{
protected:
    TitledWindowTest()
    {
        window.resize(300, 200);
        window.move(100, 100);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        image = window.findChild<QWidget*>("Image1");
    }

    void send(QEvent::Type type, QPoint global, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, image->mapFromGlobal(QPointF(global)), QPointF(global), Qt::LeftButton,
                          buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(image, &event);
    }

    TitledWindow window;
    QWidget* image = nullptr;
};

} // namespace

TEST_F(TitledWindowTest, followsTheMouseWhileTheTitleImageIsHeld)
{
    const QPoint grip = image->mapToGlobal(QPoint(0, 0));
    send(QEvent::MouseMove, grip + QPoint(50, 50), Qt::NoButton);
    EXPECT_EQ(window.pos(), QPoint(100, 100)) << "not held yet";

    send(QEvent::MouseButtonPress, grip, Qt::LeftButton);
    send(QEvent::MouseMove, grip + QPoint(10, -5), Qt::LeftButton);
    EXPECT_EQ(window.pos(), QPoint(110, 95));
    send(QEvent::MouseMove, grip + QPoint(30, 40), Qt::LeftButton);
    EXPECT_EQ(window.pos(), QPoint(130, 140));

    send(QEvent::MouseButtonRelease, grip + QPoint(30, 40), Qt::NoButton);
    send(QEvent::MouseMove, grip + QPoint(90, 90), Qt::NoButton);
    EXPECT_EQ(window.pos(), QPoint(130, 140)) << "no longer held";
}

TEST_F(TitledWindowTest, movesAndClosesByTheKeyboard)
{
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
    QTest::keyClick(&window, Qt::Key_Right, Qt::ShiftModifier | Qt::AltModifier);
    QTest::keyClick(&window, Qt::Key_Up, Qt::ShiftModifier | Qt::AltModifier);
    EXPECT_EQ(window.pos(), QPoint(120, 80));
    QTest::keyClick(&window, Qt::Key_F4, Qt::AltModifier);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(TitledWindowTest, onlyTheMainWindowMaximises)
{
    window.toggleMaximised();
    EXPECT_FALSE(window.isMaximized());
}
