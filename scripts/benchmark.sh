#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds and runs the benchmarks.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages $build_packages $benchmark_packages
configure benchmark
cmake --build build/benchmark
build/benchmark/bin/tavrel_benchmark "$@"
