#!/bin/sh
# Runs a test in a home, runtime and temporary folder of its own, without a display or a session
# bus, so that tests running at the same time never meet. The folder is short: the path of a local
# socket may have no more than 107 characters.
dir=$(mktemp -d /tmp/airlume-test.XXXXXX) || exit 1
trap 'rm -rf "$dir"' EXIT
mkdir -m 700 "$dir/home" "$dir/run" "$dir/tmp"
export HOME="$dir/home" XDG_RUNTIME_DIR="$dir/run" TMPDIR="$dir/tmp" LC_ALL=C.UTF-8
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME DISPLAY WAYLAND_DISPLAY
unset DBUS_SESSION_BUS_ADDRESS AIRLUME_SCENARIO QT_SCALE_FACTOR
"$@"
