#!/bin/sh
# Renders every picture of the program from the drawings in this folder, at 1x and 2x, and the
# application icon in all its sizes, as files and as one macOS icon. Needs rsvg-convert (Debian: librsvg2-bin); with optipng the
# files become smaller. The pictures are committed: run this only after changing a drawing.
set -eu
cd "$(dirname "$0")"
images=../../src/resources/images
icons=../icons/hicolor

# Without the two filters that take longest to undo (-f0-2): on flat drawings they save little, and
# the program would need longer for them, at each start, than for all other decoding.
shrink() {
    if command -v optipng >/dev/null; then
        optipng -quiet -clobber -strip all -zc9 -zm8-9 -zs0-3 -f0-2 "$1"
    fi
}

# picture <drawing> <name> [<style sheet>]
picture() {
    rsvg-convert ${3:+--stylesheet="$3"} --zoom=1 --output="$images/$2.png" "$1.svg"
    rsvg-convert ${3:+--stylesheet="$3"} --zoom=2 --output="$images/$2@2x.png" "$1.svg"
    shrink "$images/$2.png"
    shrink "$images/$2@2x.png"
}

# icon <drawing> <size>
icon() {
    folder="$icons/$2x$2/apps"
    mkdir -p "$folder"
    rsvg-convert --width="$2" --height="$2" --output="$folder/airlume.png" "$1.svg"
    shrink "$folder/airlume.png"
}

mkdir -p "$images" "$icons/scalable/apps"
for name in logo topbar_bg bottom_bg button_normal button_press but_scroll_up but_scroll_down \
    HomeTesting HomeTestLstBK; do
    picture "$name" "$name"
done
for button in min maximize restore close; do
    for state in normal hover press; do
        picture "$button" "${button}_$state" "caption-$state.css"
    done
done
for state in normal hover select; do
    picture checkbox "checkbox_$state" "checkbox-$state.css"
done

for size in 16 22 24; do
    icon airlume-small "$size"
done
for size in 32 48 64 128 256 512; do
    icon airlume "$size"
done
cp airlume.svg "$icons/scalable/apps/airlume.svg"

# A macOS icon is a list of blocks, each a type, its length with these eight bytes, and a PNG.
big_endian() {
    printf '%b' "$(printf '\\0%03o\\0%03o\\0%03o\\0%03o' \
        $(($1 >> 24 & 255)) $(($1 >> 16 & 255)) $(($1 >> 8 & 255)) $(($1 & 255)))"
}

blocks=$(mktemp)
trap 'rm -f "$blocks"' EXIT
for block in icp4:16 icp5:32 ic11:32 ic12:64 ic07:128 ic13:256 ic08:256 ic14:512 ic09:512; do
    file="$icons/${block#*:}x${block#*:}/apps/airlume.png"
    printf '%s' "${block%:*}"
    big_endian $(($(wc -c <"$file") + 8))
    cat "$file"
done >"$blocks"
{
    printf 'icns'
    big_endian $(($(wc -c <"$blocks") + 8))
    cat "$blocks"
} >../icons/airlume.icns
