#!/bin/bash
# Makes a contact sheet: the four tabs in all languages, one language a row. See --help.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib/setup.sh"

usage() {
    cat <<'TEXT'
tools/contactsheet.sh [OPTIONS] FOLDER

Runs Airlume with the simulated neighbourhood once for each language, told by airlume-host, and
writes FOLDER/contactsheet.jpg. The single pictures stay in FOLDER/<code>/.

  --build DIR        use this build (default: build/release, built first)
  --languages CODES  only these languages
  --after SECONDS    how long to wait before the pictures (default: 5)
  --width PIXELS     width of each picture in the sheet (default: 220)
TEXT
}

build='' languages='' after=5 width=220 folder=''
while [ $# -gt 0 ]; do
    case $1 in
    --build | --languages | --after | --width)
        [ $# -gt 1 ] || fail "$1 wants a value (see --help)"
        ;;&
    --build) build=$2 && shift ;;
    --languages) languages=$2 && shift ;;
    --after) after=$2 && shift ;;
    --width) width=$2 && shift ;;
    -h | --help) usage && exit 0 ;;
    -*) fail "no option $1 (see --help)" ;;
    *) folder=$1 ;;
    esac
    shift
done
[ -n "$folder" ] || fail "which folder? (see --help)"
install_packages "what the contact sheet needs" "${build_packages[@]}" imagemagick fontconfig fonts-noto-core \
    fonts-noto-cjk fonts-noto-color-emoji
if [ -z "$build" ]; then
    build=$here/build/release
    build_preset release
fi
build=$(cd "$build" && pwd)
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)
[ -n "$languages" ] || languages=$(cd "$here/src/resources/i18n" && echo *)

# A folder of our own for the local servers and the room file, so that no running Airlume is met.
work=$(mktemp -d /tmp/airlume-sheet.XXXXXX)
trap 'rm -rf "$work"' EXIT
export TMPDIR=$work HOME=$work QT_QPA_PLATFORM=offscreen
export QT_PLUGIN_PATH="$build/plugins/screenshots:$build/plugins/simulated"
export QT_QPA_GENERIC_PLUGINS=airlumescreenshots AIRLUME_SCREENSHOTS_AFTER=$after
cp "$build/bin/airlume" "$work/airlume"

for language in $languages; do
    say "$language"
    mkdir -p "$folder/$language"
    coproc HOST { "$build/bin/airlume-host" --language "$language"; }
    read -r -u "${HOST[0]}" answer
    [ "$answer" = listening ] || fail "airlume-host says: $answer"
    AIRLUME_SCREENSHOTS=$folder/$language "$work/airlume" >"$work/log" 2>&1 ||
        { cat "$work/log" >&2 && fail "Airlume failed in $language"; }
    host_pid=$HOST_PID
    echo quit >&"${HOST[1]}"
    wait "$host_pid"
done

pictures=()
for language in $languages; do
    for picture in "$folder/$language"/*.png; do
        pictures+=(-label "$language" "$picture")
    done
done
montage -font "$(fc-match --format '%{file}' 'Noto Sans')" "${pictures[@]}" -tile 4x \
    -geometry "${width}x+4+2" -pointsize 10 -sampling-factor 4:2:0 -quality 40 \
    "$folder/contactsheet.jpg"
say "$folder/contactsheet.jpg: $(du -k "$folder/contactsheet.jpg" | cut -f1) KB"
