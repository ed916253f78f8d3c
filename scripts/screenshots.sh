#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Pictures of every window on the demo folder, in both languages, and in French on a screen of 200 %:
# build/screenshots/.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages $build_packages $test_packages
configure release
cmake --build build/release --target tavrel_window_tests

take_pictures() { # FOLDER TESTS
    mkdir -p "$1"
    TAVREL_SCREENSHOTS=$1 QT_QPA_PLATFORM=offscreen:configfile=$PWD/tests/windows/large-screen.json \
        build/release/bin/tavrel_window_tests --gtest_filter="$2" --gtest_brief=1
}
take_pictures "$PWD/build/screenshots/100" 'InBothLanguages/EveryWindowTest.*'
QT_SCALE_FACTOR=2 take_pictures "$PWD/build/screenshots/200" 'InBothLanguages/EveryWindowTest.*/French'
echo "Pictures of every window: $PWD/build/screenshots"
