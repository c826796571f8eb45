# Shared by ./run and ./test (bash, sourced): what has to be installed, and how to build.

here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

say() { printf 'airlume: %s\n' "$*"; }
fail() {
    printf 'airlume: %s\n' "$*" >&2
    exit 1
}

build_packages=(g++ cmake ninja-build pkg-config qtbase5-dev libqwt-qt5-dev libnl-3-dev
    libnl-genl-3-dev)

# install_packages REASON PACKAGE...: installs those that are missing, on Debian and its kin.
install_packages() {
    local reason=$1 package
    shift
    local -a missing=() as_root=()
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        if [ ! -e "$here/build/.packages-named" ]; then
            say "this is not a Debian or Ubuntu machine. Install yourself what corresponds to these"
            say "Debian packages ($reason), then start this again: $*"
            mkdir -p "$here/build"
            touch "$here/build/.packages-named"
            exit 1
        fi
        return 0
    fi
    for package; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null ||
            fail "please have an administrator install ($reason): ${missing[*]}"
        as_root=(sudo)
    fi
    say "installing $reason: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq || say "the package lists could not be refreshed; trying anyway"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
        fail "apt-get could not install: ${missing[*]}"
}

# build_preset PRESET [TARGET...]: configures when needed, and builds.
build_preset() {
    local preset=$1
    shift
    [ -e "$here/build/$preset/build.ninja" ] ||
        (cd "$here" && cmake --preset "$preset" >/dev/null) || fail "configuring $preset failed"
    # Quiet when there is nothing to do.
    ninja -C "$here/build/$preset" -n "$@" | grep -q 'no work to do' ||
        (cd "$here" && cmake --build --preset "$preset" ${1:+--target "$@"}) ||
        fail "building $preset failed"
}
