#!/bin/bash
# What ./run and ./test do about packages, with a package manager of its own that only pretends.
set -euo pipefail
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
world=$TMPDIR/world
failed=0

# The tools setup.sh itself uses, and nothing else of this machine.
mkdir -p "$TMPDIR/tools" "$TMPDIR/debian"
for tool in bash cat cksum cut dirname env grep mkdir sed touch; do
    ln -s "$(command -v "$tool")" "$TMPDIR/tools/$tool"
done
cat >"$TMPDIR/debian/dpkg-query" <<'FAKE'
#!/bin/bash
! grep -qxF "${!#}" "$WORLD/installed" || printf installed
FAKE
cat >"$TMPDIR/debian/apt-cache" <<'FAKE'
#!/bin/bash
case $1 in
policy) # more than fits into a pipe: it must be read to its end
    printf '%s:\n  Candidate: %s\n%100000s\n' "$2" \
        "$(grep -qxF "$2" "$WORLD/offered" && echo 1 || echo '(none)')" '' ;;
depends) printf 'clang\n  Depends: clang-%s\n  Breaks: <clang-3.2>\n' 77 ;;
esac
FAKE
cat >"$TMPDIR/debian/apt-get" <<'FAKE'
#!/bin/bash
echo "$*" >>"$WORLD/calls"
if [ "$1" = update ]; then
    [ ! -e "$WORLD/offline" ]
    exit
fi
shift
for package; do
    case $package in -*) continue ;; esac
    grep -qxF "$package" "$WORLD/offered" || exit 100
    ! grep -qxF "$package" "$WORLD/broken" || exit 100
done
for package; do
    case $package in -*) ;; *) echo "$package" >>"$WORLD/installed" ;; esac
done
FAKE
printf '#!/bin/bash\necho "$USER_ID"\n' >"$TMPDIR/tools/id"
printf '#!/bin/bash\n[ ! -e "$WORLD/nosudo" ] && "$@"\n' >"$TMPDIR/tools/sudo"
chmod +x "$TMPDIR"/debian/* "$TMPDIR/tools/id" "$TMPDIR/tools/sudo"

# A machine that has these packages installed, and these to offer.
machine() {
    rm -rf "$world"
    mkdir -p "$world/tree/tools/lib"
    cp "$source/tools/lib/setup.sh" "$world/tree/tools/lib/"
    touch "$world/calls" "$world/broken"
    printf '%s\n' $1 >"$world/installed"
    printf '%s\n' $2 >"$world/offered"
    path=$TMPDIR/debian:$TMPDIR/tools user=0
}

# does COMMAND...: runs a function of setup.sh there; "result" and "said" are what came of it.
does() {
    : >"$world/calls"
    result=0
    said=$(env -i PATH="$path" WORLD="$world" USER_ID="$user" bash -euo pipefail -c \
        '. "$WORLD/tree/tools/lib/setup.sh"; "$@"' _ "$@" 2>&1) || result=$?
}

expect() {
    local what=$1
    shift
    "$@" || {
        printf 'not so: %s (result %s)\nsaid: %s\ncalls: %s\n' \
            "$what" "$result" "$said" "$(cat "$world/calls")"
        failed=1
    }
}
said() { [[ $said == *"$1"* ]]; }
has() { grep -qxF "$1" "$world/installed"; }
hasnt() { ! has "$1"; }
calls() { [ "$(wc -l <"$world/calls")" = "$1" ]; }

machine 'compiler' 'compiler library viewer'
does install_packages 'a test' compiler library -- viewer
expect 'what is missing is installed at once' calls 2
expect 'a required package is installed' has library
expect 'an optional package is installed' has viewer
does install_packages 'a test' compiler library -- viewer
expect 'nothing happens where nothing is missing' calls 0
expect 'nothing is said where nothing is missing' [ -z "$said" ]

machine '' 'compiler viewer'
does install_packages 'a test' compiler -- viewer rarity
expect 'a package that is not offered stops nothing' [ $result = 0 ]
expect 'the others are installed with it' has compiler
expect 'the other optional ones are installed, too' has viewer
expect 'it is named' said 'without rarity'
does install_packages 'a test' compiler -- viewer rarity
expect 'it is not looked for again' calls 0
expect 'it is named again' said 'without rarity'

machine 'compiler' 'compiler viewer wreck'
echo wreck >"$world/broken"
does install_packages 'a test' compiler -- wreck viewer
expect 'a package that cannot be installed stops nothing' [ $result = 0 ]
expect 'those beside it are installed' has viewer
expect 'it is named, too' said 'without wreck'
does install_packages 'a test' compiler -- wreck viewer
expect 'it is tried again' calls 3

machine '' 'viewer'
does install_packages 'a test' compiler -- viewer
expect 'a required package that is not offered is fatal' [ $result = 1 ]
expect 'the required package is named' said 'could not install: compiler'

machine 'compiler' 'compiler'
touch "$world/offline"
does install_packages 'a test' compiler -- viewer
expect 'without fresh lists it goes on' [ $result = 0 ]
rm "$world/offline"
echo viewer >>"$world/offered"
does install_packages 'a test' compiler -- viewer
expect 'what old lists did not know is looked for again' has viewer

machine '' 'compiler viewer'
user=1000
does install_packages 'a test' compiler -- viewer
expect 'a user with sudo installs' has viewer
machine '' 'compiler viewer'
user=1000
touch "$world/nosudo"
does install_packages 'a test' compiler -- viewer
expect 'a user without rights is told what is missing' said 'administrator install (a test): compiler viewer'
expect 'a user without rights cannot go on' [ $result = 1 ]
echo compiler >"$world/installed"
does install_packages 'a test' compiler -- viewer
expect 'a user without rights needs only the required ones' [ $result = 0 ]
expect 'a user without rights is told what is left out' said 'without viewer'
expect 'nothing is tried without rights' hasnt viewer

machine '' ''
path=$TMPDIR/tools
does install_packages 'to build' compiler
expect 'elsewhere the packages are named, and it stops' [ $result = 1 ]
expect 'elsewhere the packages are named' said '(to build), then start this again: compiler'
does install_packages 'to build' compiler
expect 'the second time it goes on' [ $result = 0 ]
does install_packages 'to test' compiler -- viewer
expect 'another list is named, too' said '(to test), then start this again: compiler and, for more tests, viewer'
expect 'another list stops it, too' [ $result = 1 ]
does install_packages 'to test' compiler -- viewer
expect 'the other list is named once' [ -z "$said" ]
does fuzzer_package
expect 'elsewhere no package is derived' [ "$result$said" = 0 ]

machine '' ''
does fuzzer_package
expect "the fuzzer's package has the version of clang" [ "$said" = libclang-rt-77-dev ]
exit $failed
