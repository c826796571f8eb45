#!/usr/bin/env bash
# Runs the fuzz targets for a long time: tests/fuzz/long.sh [--minutes N] [--jobs J] [TARGET...]
#
# Each target (default: all) gets N minutes of CPU time (default 30), J targets at a time (default
# 1), at low priority. The corpus grows in build/fuzz/corpus/<target>, findings lie in
# build/fuzz/findings, what the fuzzers say in build/fuzz/logs. Ends with a table, and with 1 when
# anything was found. Ctrl-C ends the running targets early and still prints the table.
set -euo pipefail

root=$(cd "$(dirname "$0")/../.." && pwd)
build=$root/build/fuzz
minutes=30
jobs=1
targets=()

usage() {
    sed -n '2,7s/^# \{0,1\}//p' "$0"
    exit "$1"
}

number() { # OPTION VALUE
    [[ ${2:-} =~ ^[1-9][0-9]*$ ]] || { echo "$1 needs a number from 1" >&2; exit 2; }
    echo "$2"
}

while (($#)); do
    case $1 in
    --minutes) minutes=$(number "$1" "${2:-}"); shift ;;
    --jobs) jobs=$(number "$1" "${2:-}"); shift ;;
    --help) usage 0 ;;
    -*) echo "unknown option $1" >&2; usage 2 >&2 ;;
    *) targets+=("$1") ;;
    esac
    shift
done

# The fuzz targets alone, in a folder of their own.
build_targets() {
    rm -f "$build/fuzztargets"
    cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug >"$build/logs/configure.log"
    if [[ ! -s $build/fuzztargets ]]; then
        echo "clang or its fuzzer runtime is missing" >&2
        exit 2
    fi
    ((${#targets[@]})) || mapfile -t targets <"$build/fuzztargets"
    local target
    for target in "${targets[@]}"; do
        grep -qx "$target" "$build/fuzztargets" ||
            { echo "no such fuzz target: $target" >&2; exit 2; }
    done
    cmake --build "$build" --parallel "$jobs" --target "${targets[@]}"
}

cpu_seconds() { # PID
    local stat
    stat=$(cat "/proc/$1/stat" 2>/dev/null) || return 1
    read -ra stat <<<"${stat##*) }"
    echo $(((stat[11] + stat[12]) / ticks))
}

files_in() { # FOLDER NAME_PATTERN
    find "$1" -maxdepth 1 -type f -name "$2" | wc -l
}

last_number() { # LOG EXPRESSION
    grep -aoE "$2[: ]+[0-9]+" "$1" | tail -n 1 | grep -aoE '[0-9]+$' || echo -
}

# One target from start to end; leaves its row of the table in logs/<target>.row.
run_target() { # TARGET
    local target=$1 log=$build/logs/$1.log corpus=$build/corpus/$1 pidfile=$build/logs/$1.pid
    local program before scratch pid wrapper seconds=0 now stopped=no status=0
    program=$(find "$build" -path "*/$target.d/$target" -type f | head -n 1)
    mkdir -p "$corpus"
    before=$(files_in "$corpus" '*')
    # In memory where possible: a target may write a file for every input.
    scratch=$(mktemp -d -p "$([[ -w /dev/shm ]] && echo /dev/shm || echo "${TMPDIR:-/tmp}")")
    rm -f "$pidfile" "$build/logs/$target.row"
    touch "$build/logs/$target.start"

    mapfile -t options <"$program.options"
    # The wrapper's own shell becomes the fuzzer, so that its id is known.
    # shellcheck disable=SC2016
    "$root/tests/isolated.sh" bash -c 'echo $$ >"$1"; TMPDIR=$2; shift 2; exec nice -n 19 "$@"' \
        - "$pidfile" "$scratch" "$program" "${options[@]}" \
        -timeout=20 -rss_limit_mb=2048 -print_final_stats=1 \
        "-artifact_prefix=$build/findings/$target-" "$corpus" >"$log" 2>&1 &
    wrapper=$!
    trap 'stopped=yes' INT TERM
    while [[ ! -s $pidfile ]] && kill -0 "$wrapper" 2>/dev/null; do sleep 0.1; done
    pid=$(cat "$pidfile")
    while now=$(cpu_seconds "$pid"); do
        seconds=$now
        if ((seconds >= minutes * 60)) || [[ $stopped == yes ]]; then
            kill -INT "$pid" 2>/dev/null || true
            break
        fi
        sleep 2 || true
    done
    wait "$wrapper" || status=$?
    rm -rf "$scratch" "$pidfile"

    find "$build/findings" -type f -newer "$build/logs/$target.start" -name "$target-*" \
        ! -name "$target-slow-unit-*" >"$build/logs/$target.found"
    # 72 is the fuzzer's own code for an interruption.
    if [[ $stopped == no && ! -s $build/logs/$target.found ]] &&
        ((status != 0 && status != 72)); then
        echo "$log (ended with $status)" >"$build/logs/$target.found"
    fi
    printf '%-18s %6s %12s %8s %13s %7s %9s\n' "$target" \
        "$((seconds / 60)):$(printf %02d $((seconds % 60)))" \
        "$(last_number "$log" stat::number_of_executed_units)" \
        "$(last_number "$log" stat::average_exec_per_sec)" \
        "$(last_number "$log" ' cov')/$(last_number "$log" ' ft')" \
        "$(($(files_in "$corpus" '*') - before))" \
        "$(wc -l <"$build/logs/$target.found")" >"$build/logs/$target.row"
}

print_table() {
    local target code=0
    printf '\n%-18s %6s %12s %8s %13s %7s %9s\n' \
        target "CPU" executions "per s" "cov/features" corpus findings
    for target in "${targets[@]}"; do
        [[ -e $build/logs/$target.row ]] || continue
        cat "$build/logs/$target.row"
        if [[ -s $build/logs/$target.found ]]; then
            code=1
            sed 's/^/    /' "$build/logs/$target.found"
        fi
    done
    return "$code"
}

mkdir -p "$build/logs" "$build/corpus" "$build/findings"
ticks=$(getconf CLK_TCK)
build_targets

stopping=no
running=()
trap 'stopping=yes; kill -TERM "${running[@]}" 2>/dev/null || true' INT TERM
for target in "${targets[@]}"; do
    rm -f "$build/logs/$target.row"
done
for target in "${targets[@]}"; do
    while (($(jobs -rp | wc -l) >= jobs)); do wait -n || true; done
    [[ $stopping == no ]] || break
    echo "$(date +%T) $target"
    run_target "$target" &
    running+=($!)
done
while [[ -n $(jobs -rp) ]]; do wait || true; done
print_table
