#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds Tavrel and starts it on a demo level editor folder. With --fresh the demo folder is made anew.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages $build_packages $run_packages
cmake --preset run >/dev/null # each time: it finds what was installed since
cmake --build build/run

demo=$PWD/build/demo
if [ "${1:-}" = --fresh ] || [ ! -f "$demo/program/Tavrel.par" ]; then
    rm -rf "$demo"
    build/run/bin/make_demo data "$demo"
fi
start=(build/run/bin/Tavrel --program-folder "$demo/program")

[ -f "$demo/trle/sound/LevelSFX Creator/pcwadsfx.exe" ] ||
    echo "To generate SFX files in the demo, install $tool_packages, then: scripts/run.sh --fresh"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "${start[@]}"
fi

echo "This machine has no display: Tavrel starts under Xvfb, for a picture of its main window."
need_packages $display_packages
picture=$PWD/build/main-window.png
# shellcheck disable=SC2016 # expanded by the inner shell
xvfb-run -a -s '-screen 0 1280x720x24' bash -c '
    picture=$1
    shift
    "$@" &
    program=$!
    trap "kill $program 2>/dev/null" EXIT
    timeout 60 xdotool search --sync --onlyvisible --name "^Tavrel" >/dev/null
    sleep 2
    import -window root "$picture"
' run "$picture" "${start[@]}"
echo "Picture of the main window: $picture"
