#!/bin/bash
# Builds Airlume as users run it, with its benchmarks, and prints one table: what Airlume needs, what
# the barest Qt or Qwt code for the same needs, both measured in turns in the same run, and the ratio.
#
#   tests/bench/run.sh [BENCHMARK...]     default: all of them (some minutes)
#
# The options of the longest one, bench_startup, come from BENCH_STARTUP_OPTIONS, for example
# "--runs 5 --seconds 20".
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$here/build/bench

cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=ON >/dev/null
names=("$@")
if [ ${#names[@]} -eq 0 ]; then
    for source in "$here"/tests/bench/bench_*.cpp; do
        names+=("$(basename "$source" .cpp)")
    done
fi
log=$(mktemp)
trap 'rm -f "$log"' EXIT
cmake --build "$build" --target "${names[@]}" >"$log" 2>&1 || { cat "$log" >&2 && exit 1; }

printf 'Processors: %s, load: %s\n' "$(nproc)" "$(cut -d' ' -f1-3 /proc/loadavg)"
printf '%-56s %13s  %13s  %7s\n' '' Airlume bare ratio
for name in "${names[@]}"; do
    options=()
    [ "$name" != bench_startup ] || read -ra options <<<"${BENCH_STARTUP_OPTIONS:-}"
    # A line with two measurements and their ratio is one of the table; other tables follow as they
    # are, and the benchmarks' own headings go.
    "$here/tests/isolated.sh" "$build/bin/$name" "${options[@]}" | awk '
        NF >= 6 && $NF ~ /^[0-9.]+$/ && $(NF - 1) ~ /^[mu]s$/ && $(NF - 3) ~ /^[mu]s$/ {
            what = $1
            for (i = 2; i <= NF - 5; ++i)
                what = what " " $i
            printf "%-56s %10s %s  %10s %s  %7.2f\n", what, $(NF - 4), $(NF - 3), $(NF - 2),
                $(NF - 1), $NF
            fflush()
            next
        }
        $NF != "ratio"'
done
printf 'Load: %s\n' "$(cut -d' ' -f1-3 /proc/loadavg)"
