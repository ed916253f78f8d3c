// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Theme.h"

#include <QApplication>
#include <benchmark/benchmark.h>

int main(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    tavrel::applyTheme(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
