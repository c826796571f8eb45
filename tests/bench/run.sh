#!/bin/bash
# Builds Airlume as users run it, with its benchmarks, and prints one table. See --help.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=${BENCH_BUILD:-$here/build/bench}

usage() {
    cat <<'TEXT'
tests/bench/run.sh [--quick] [BENCHMARK...]

Prints what Airlume needs, what the barest Qt or Qwt code for the same needs, both measured in turns
in the same run, their ratio, and how Airlume's value grows with the networks: its growth since the
line above divided by theirs, so that more than 1 is superlinear.

  --quick     few networks and few rounds: to try, in about three minutes
  BENCHMARK   bench_startup, bench_running, bench_list, ... (default: all, in about ten minutes)

Times are medians of processor time, except that of the first painted window, which a user waits for.
Lines with "(no OpenGL)" have the bare window do without it, as Airlume does. In lines about rooms the
number is that of the rooms.
The build lies in build/bench, or in the folder that BENCH_BUILD names.
TEXT
}

quick=() names=()
for argument; do
    case $argument in
    -h | --help) usage && exit 0 ;;
    --quick) quick=(--quick) ;;
    bench_*) names+=("$argument") ;;
    *) printf 'no such option: %s\n' "$argument" >&2 && usage >&2 && exit 2 ;;
    esac
done
if [ ${#names[@]} -eq 0 ]; then
    names=(bench_startup bench_running bench_list bench_graphs bench_channels bench_rooms bench_scan)
fi

[ -e "$build/build.ninja" ] ||
    cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=ON >/dev/null
log=$(mktemp)
trap 'rm -f "$log"' EXIT
cmake --build "$build" --target "${names[@]}" >"$log" 2>&1 || { cat "$log" >&2 && exit 1; }

# A window system makes a window cost what it costs users; without one it costs next to nothing.
display=() platform=offscreen
if command -v xvfb-run >/dev/null; then
    display=(env QT_QPA_PLATFORM=xcb xvfb-run -a -s '-dpi 96 -screen 0 1400x900x24')
    platform='xcb, under a virtual display'
fi
printf 'Platform: %s. Processors: %s. Load before: %s\n' \
    "$platform" "$(nproc)" "$(cut -d' ' -f1-3 /proc/loadavg)"
printf '%-48s %8s  %13s %13s %8s %7s\n' what networks Airlume bare ratio growth
for name in "${names[@]}"; do
    # Lines of the same kind stand together, whatever was measured in between.
    "$here/tests/isolated.sh" "${display[@]}" "$build/bin/$name" "${quick[@]}" | awk '
        {
            kind = substr($0, 1, 48)
            if (!(kind in lines))
                kinds[++count] = kind
            lines[kind] = lines[kind] $0 "\n"
        }
        END {
            for (i = 1; i <= count; ++i)
                printf "%s", lines[kinds[i]]
        }'
done
printf 'Load after: %s. Time: %d s\n' "$(cut -d' ' -f1-3 /proc/loadavg)" "$SECONDS"
