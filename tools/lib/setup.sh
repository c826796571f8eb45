# Shared by ./run and ./test (bash, sourced): what has to be installed, and how to build.

here=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

say() { printf 'airlume: %s\n' "$*"; }
fail() {
    printf 'airlume: %s\n' "$*" >&2
    exit 1
}

build_packages=(g++ cmake ninja-build pkg-config qtbase5-dev libqwt-qt5-dev libnl-3-dev
    libnl-genl-3-dev)

# install_packages REASON PACKAGE... [-- PACKAGE...]: installs those that are missing, on Debian and
# its kin. Without the first ones nothing works; those after "--" only make more tests possible.
install_packages() {
    local reason=$1 package needed=yes
    shift
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        name_packages "$reason" "$@"
        return 0
    fi
    # What is not offered here is not looked for again in each run.
    local not_offered=$here/build/.packages-not-offered
    local -a required=() optional=() without=()
    for package; do
        if [ "$package" = -- ]; then
            needed=
        elif is_installed "$package"; then
            continue
        elif [ $needed ]; then
            required+=("$package")
        elif grep -qsxF "$package" "$not_offered"; then
            without+=("$package")
        else
            optional+=("$package")
        fi
    done
    if [ ${#required[@]} -gt 0 ] || [ ${#optional[@]} -gt 0 ]; then
        install_missing
    fi
    [ ${#without[@]} = 0 ] || say "without ${without[*]}: the tests that need them are skipped"
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

is_offered() {
    grep -q '^ *Candidate: [^(]' <<<"$(LC_ALL=C apt-cache policy "$1" 2>/dev/null)"
}

# name_packages REASON PACKAGE... [-- PACKAGE...]: stops once for each list, where it is the user who
# installs.
name_packages() {
    local reason=$1 marker
    shift
    marker=$here/build/.packages-named-$(cksum <<<"$*" | cut -d ' ' -f 1)
    [ ! -e "$marker" ] || return 0
    say "this is not a Debian or Ubuntu machine. Install yourself what corresponds to these"
    say "Debian packages ($reason), then start this again: ${*/#--/and, for more tests,}"
    mkdir -p "$here/build"
    touch "$marker"
    exit 1
}

# install_missing: installs what install_packages found missing; "without" is what it could not.
install_missing() {
    local -a as_root=() offered=() both=("${required[@]}" "${optional[@]}")
    if [ "$(id -u)" != 0 ]; then
        as_root=(sudo)
        if ! command -v sudo >/dev/null || ! sudo true; then
            [ ${#required[@]} = 0 ] ||
                fail "please have an administrator install ($reason): ${both[*]}"
            without+=("${optional[@]}")
            return 0
        fi
    fi
    say "installing $reason: ${both[*]}"
    [ "${lists_refreshed:-}" ] || refresh_lists
    for package in "${optional[@]}"; do
        if is_offered "$package"; then
            offered+=("$package")
        else
            without+=("$package")
            [ "$lists_refreshed" = no ] || remember_not_offered "$package"
        fi
    done
    if [ ${#offered[@]} -gt 0 ]; then
        ! apt_install "${required[@]}" "${offered[@]}" || return 0
        say "apt-get does not install all of them together; trying one by one"
    fi
    [ ${#required[@]} = 0 ] || apt_install "${required[@]}" ||
        fail "apt-get could not install: ${required[*]}"
    for package in "${offered[@]}"; do
        apt_install "$package" || without+=("$package")
    done
}

refresh_lists() {
    lists_refreshed=yes
    "${as_root[@]}" apt-get update -qq -o APT::Update::Error-Mode=any || {
        lists_refreshed=no
        say "the package lists could not be refreshed; trying anyway"
    }
}

remember_not_offered() {
    mkdir -p "$here/build"
    echo "$1" >>"$not_offered"
}

apt_install() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "$@" >/dev/null
}

# fuzzer_package: where Debian keeps clang's fuzzer, whose package has clang's version in its name.
fuzzer_package() {
    ! command -v apt-cache >/dev/null ||
        apt-cache depends clang | sed -n 's/^ *Depends: clang-\([0-9]*\)$/libclang-rt-\1-dev/p'
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
