#!/bin/bash
# Lets the program as users run it go for hours, under a virtual display, with a neighbourhood, a
# user and a host that never rest, and prints what became of its memory, handles and threads.
#
#   tests/soak/run.sh [--minutes 120] [--seed 1]
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$here/build/soak

cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=ON >/dev/null
cmake --build "$build" --target airlume_soak
exec env QT_QPA_PLATFORM=xcb "$here/tests/isolated.sh" \
    xvfb-run -a -s '-screen 0 1920x1080x24' "$build/bin/airlume_soak" "$@"
