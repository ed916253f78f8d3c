#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds everything and runs the tests. The name of another preset (debug, sanitize) may follow.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages $build_packages $test_packages
preset=${1:-release}
configure "$preset"
cmake --build "build/$preset"
ctest --preset "$preset" -j "$(nproc)"
