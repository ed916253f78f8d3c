// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Theme.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen"); // the list of tests is read without a display, too
    }
    QApplication application(argc, argv);
    tavrel::applyTheme(application);
    return RUN_ALL_TESTS();
}
