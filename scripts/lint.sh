#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Checks the format of the sources and where their includes point, and runs the static checks over them.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages $build_packages $lint_packages
mapfile -t sources < <(git ls-files '*.h' '*.cpp')
clang-format --dry-run -Werror "${sources[@]}"
scripts/check-arrows.py

configure lint
git ls-files 'src/*.cpp' 'tools/*.cpp' | grep -v _windows.cpp |
    xargs -P "$(nproc)" -n 1 clang-tidy --quiet -p build/lint \
        --extra-arg=-Wno-unknown-warning-option 2>/dev/null
