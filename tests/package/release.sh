#!/bin/bash
# Makes the Release build that the tests of the package look at, in FOLDER/build, installs it with
# and without a back end, in FOLDER/installed and FOLDER/without, and packages it.
#
#   release.sh FOLDER CMAKE-ARGUMENT...
set -euo pipefail
folder=$1
shift
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$folder/build

rm -rf "$folder/installed" "$folder/without" "$build"/*.deb
cmake -S "$source" -B "$build" -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF \
    -DAIRLUME_BACKEND=linux "$@"
cmake --build "$build" --parallel 2
cmake --install "$build" --prefix "$folder/installed"

cmake "$build" -DAIRLUME_BACKEND=none
cmake --install "$build" --prefix "$folder/without"
cmake "$build" -DAIRLUME_BACKEND=linux

if command -v dpkg-shlibdeps file >/dev/null; then
    (cd "$build" && cpack)
fi
