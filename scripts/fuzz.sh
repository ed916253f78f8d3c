#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Feeds every reader with inputs of its own making: scripts/fuzz.sh SECONDS, all targets together. What breaks one
# is left in build/fuzz/found/; once it is mended, it belongs into tests/fuzz/corpus/.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

seconds=${1:?Usage: scripts/fuzz.sh SECONDS}
need_packages $build_packages $fuzz_packages
configure fuzz
cmake --build build/fuzz --target fuzz_targets

mapfile -t targets < <(ls tests/fuzz/corpus)
each=$((seconds / ${#targets[@]} > 0 ? seconds / ${#targets[@]} : 1))
broken=()
for target in "${targets[@]}"; do
    mkdir -p "build/fuzz/corpus/$target" "build/fuzz/found/$target"
    log=build/fuzz/$target.log
    build/fuzz/bin/fuzz_"$target" -max_total_time="$each" -max_len=4096 -rss_limit_mb=4096 -timeout=10 \
        -artifact_prefix="build/fuzz/found/$target/" -print_final_stats=1 \
        "build/fuzz/corpus/$target" "tests/fuzz/corpus/$target" >"$log" 2>&1 || broken+=("$target")
    echo "$target: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") runs"
done
if [ ${#broken[@]} -gt 0 ]; then
    echo "Broken: ${broken[*]}; see build/fuzz/*.log" >&2
    exit 1
fi
