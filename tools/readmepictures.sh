#!/bin/bash
# Takes the README's pictures anew, into docs/images. See --help.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib/setup.sh"

usage() {
    cat <<'TEXT'
tools/readmepictures.sh [OPTIONS]

Runs Airlume with the simulated neighbourhood and writes docs/images/1-…4-*.png. The first shows the
two access points of the home while somebody walks from the router to the far bedroom and back, as
long as a full graph, so it takes more than twelve minutes; the others show all networks.

  --build DIR     use this build (default: build/release, built first)
  --folder DIR    write the pictures there
TEXT
}

build='' folder=''
while [ $# -gt 0 ]; do
    case $1 in
    --build | --folder)
        [ $# -gt 1 ] || fail "$1 wants a value (see --help)"
        ;;&
    --build) build=$2 && shift ;;
    --folder) folder=$2 && shift ;;
    -h | --help) usage && exit 0 ;;
    *) fail "no option $1 (see --help)" ;;
    esac
    shift
done
install_packages "what the pictures need" "${build_packages[@]}" xvfb xauth fontconfig \
    fonts-noto-core fonts-noto-cjk fonts-noto-color-emoji
if [ -z "$build" ]; then
    build=$here/build/release
    build_preset release
fi
build=$(cd "$build" && pwd)
[ -n "$folder" ] || folder=$here/docs/images
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)

# A folder of our own for the local servers and the room file, so that no running Airlume is met.
work=$(mktemp -d /tmp/airlume-pictures.XXXXXX)
trap 'rm -rf "$work"' EXIT
export TMPDIR=$work HOME=$work QT_QPA_PLATFORM=xcb
export QT_PLUGIN_PATH="$build/plugins/screenshots:$build/plugins/simulated"
export QT_QPA_GENERIC_PLUGINS=airlumescreenshots
cp "$build/bin/airlume" "$work/airlume"
# The same letters on every machine.
cat >"$work/fonts.conf" <<'XML'
<fontconfig>
    <include>/etc/fonts/fonts.conf</include>
    <match target="pattern">
        <edit name="family" mode="prepend" binding="strong"><string>Noto Sans</string></edit>
    </match>
</fontconfig>
XML
export FONTCONFIG_FILE=$work/fonts.conf

# take SECONDS NETWORKS: all four pictures, with curves of the networks whose names begin so.
take() {
    mkdir -p "$work/pictures"
    AIRLUME_SCREENSHOTS=$work/pictures AIRLUME_SCREENSHOTS_AFTER=$1 \
        AIRLUME_SCREENSHOTS_NETWORKS=$2 \
        xvfb-run -a -s '-screen 0 1280x800x24' "$work/airlume" >"$work/log" 2>&1 ||
        { cat "$work/log" >&2 && fail "Airlume failed"; }
}

say "all networks"
take 20 ''
cp "$work"/pictures/*.png "$folder/"
say "a walk of twelve minutes"
# The neighbourhood's walk takes five: slowed down, one walk fills the graph.
sed '0,/{/s//{ "time_scale": 0.4,/' "$here/plugins/simulated/neighbourhood.json" \
    >"$work/walk.json"
export AIRLUME_SCENARIO=$work/walk.json
take 735 'Maple House'
cp "$work"/pictures/1-*.png "$folder/"
say "$folder"
