#!/bin/bash
# Static analysis of our own sources. Prints what it finds, and ends with 1 then.
#
#   tools/lint.sh [--changed] [format|cppcheck|tidy]... [BUILD]
#
# format:   clang-format leaves every file as it is
# cppcheck: over all sources; settings in tools/lint/
# tidy:     clang-tidy over src, plugins and tools; settings in .clang-tidy
#
# BUILD is a built folder (build/dev) with compile_commands.json. Without a check's name all run.
# --changed looks only at what differs from the last commit, in the tests too. What clang-tidy
# found nothing in is remembered in BUILD/lint until that file, a header of ours or a setting
# changes. Ends with 77 where a tool is missing. Form and findings change with each major version of
# clang: with another one than ours clang-format only tells which files it would change, and
# clang-tidy, which takes long, is left out; then this ends with 77, too.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

readonly our_clang=14

build=build/dev
changed=
checks=()
for argument; do
    case $argument in
    --changed) changed=1 ;;
    format | cppcheck | tidy) checks+=("$argument") ;;
    *) build=$argument ;;
    esac
done
[ -d "$build" ] || {
    echo "lint: $build is no folder" >&2
    exit 1
}
[ ${#checks[@]} -gt 0 ] || checks=(format cppcheck tidy)

skip() {
    printf 'lint: skipped: %s\n' "$*"
    exit 77
}

need() {
    command -v "$1" >/dev/null || skip "$1 is not installed"
}

is_our_clang() {
    grep -q "version $our_clang\." <<<"$("$1" --version)"
}

# sources SUFFIX FOLDER...: our own files, below these folders.
sources() {
    local suffix=$1
    shift
    if [ "$changed" ]; then
        { git diff --name-only --diff-filter=d HEAD && git ls-files --others --exclude-standard; } |
            grep -E "^(src|plugins|tools|tests)/.*\.($suffix)\$" | sort -u || true
    else
        find "$@" -type f -regextype egrep -regex ".*\.($suffix)" | sort
    fi
}

format() {
    need clang-format
    local files
    if is_our_clang clang-format; then
        sources 'cpp|h' src plugins tools tests | xargs -r clang-format --dry-run --Werror
        return
    fi
    files=$(sources 'cpp|h' src plugins tools tests | xargs -r clang-format --dry-run 2>&1 |
        sed -nE 's/^([^ :]+):[0-9]+:[0-9]+: warning: .*/\1/p' | sort -u) || return
    [ -z "$files" ] ||
        skip "this clang-format, which is not version $our_clang, would change:" $files
}

run_cppcheck() {
    need cppcheck
    mkdir -p "$build/lint/cppcheck"
    sources cpp src plugins tools tests >"$build/lint/cppcheck.files"
    [ -s "$build/lint/cppcheck.files" ] || return 0
    cppcheck --file-list="$build/lint/cppcheck.files" --cppcheck-build-dir="$build/lint/cppcheck" \
        --quiet --error-exitcode=1 -j "$(nproc)" --std=c++17 --language=c++ --library=qt \
        --library=tools/lint/airlume.cfg \
        --enable=warning,style,performance,portability --inline-suppr \
        --suppressions-list=tools/lint/cppcheck-suppressions.txt \
        --template='{file}:{line}: {severity}: {message} [{id}]' -I src -I plugins -I tools -I tests
}

tidy() {
    need clang-tidy
    is_our_clang clang-tidy || skip "clang-tidy is not version $our_clang, whose findings count here"
    [ -e "$build/compile_commands.json" ] || skip "$build has no compile_commands.json"
    mkdir -p "$build/lint/tidy"
    local common
    common=$({
        clang-tidy --version
        cat .clang-tidy tools/lint.sh
        find src plugins tools -name '*.h' -print0 | sort -z | xargs -0 cat
    } | sha256sum)
    export common build
    export -f tidy_file
    sources cpp src plugins tools | xargs -r -P "$(nproc)" -n 1 bash -euo pipefail -c 'tidy_file "$1"' _
}

tidy_file() {
    local key found
    # What is no part of this build cannot be looked at.
    grep -qF "\"file\": \"$PWD/$1\"" "$build/compile_commands.json" || return 0
    key=$({ echo "$common $1" && cat "$1"; } | sha256sum | cut -d ' ' -f 1)
    [ ! -e "$build/lint/tidy/$key" ] || return 0
    # The compile commands leave out the standard where GCC's own choice is the same.
    if found=$(clang-tidy --quiet -p "$build" --extra-arg=-std=c++17 "$1" 2>/dev/null); then
        touch "$build/lint/tidy/$key"
    else
        printf '%s\nlint: clang-tidy is not content with %s\n' "$found" "$1"
        return 1
    fi
}

failed=
skipped=
for check in "${checks[@]}"; do
    result=0
    (
        case $check in
        format) format ;;
        cppcheck) run_cppcheck ;;
        tidy) tidy ;;
        esac
    ) || result=$?
    case $result in
    0) ;;
    77) skipped=1 ;;
    *) failed=1 ;;
    esac
done
[ ! "$failed" ] || exit 1
[ ! "$skipped" ] || exit 77
