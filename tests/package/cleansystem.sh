#!/bin/bash
# A Debian system that has nothing else than what Airlume's package asks for.
#
#   cleansystem.sh make FOLDER
#       makes the system in FOLDER/root, from the mirror that this machine uses itself
#   cleansystem.sh test FOLDER RELEASE-FOLDER BUILD-FOLDER TEST
#       installs the package of release.sh there, runs TEST with AIRLUME_ROOT, removes the package
#   cleansystem.sh remove FOLDER
#
# Where that cannot be had, "make" notes why and "test" is skipped. Packages are kept in
# FOLDER/cache. Mounts are made in a name space of their own and end with it. The mirror is named
# nowhere.
set -euo pipefail
task=$1 folder=$2
root=$folder/root
# The system does not have to outlive a loss of power.
export DPKG_FORCE=unsafe-io
without_addresses() { sed -E 's#[a-z+]+://[^ ]+#(mirror)#g'; }

# in_chroot COMMAND...: quiet, unless it fails
in_chroot() {
    chroot "$root" env HOME=/root TMPDIR=/tmp DEBIAN_FRONTEND=noninteractive "$@" \
        >"$TMPDIR/log" 2>&1 || {
        tail -n 20 "$TMPDIR/log" | without_addresses
        return 1
    }
}

cannot() {
    echo "$*" | without_addresses | tee "$folder/missing"
    exit 0
}

make_system() {
    local tool architecture codename sources mirror
    rm -rf "$root" "$folder/missing"
    mkdir -p "$folder/cache"
    [ "$(id -u)" = 0 ] || cannot "only root may make a system"
    for tool in debootstrap unshare apt-get; do
        command -v "$tool" >/dev/null || cannot "$tool is not installed"
    done
    [ "${AIRLUME_OWN_MOUNTS:-}" = yes ] || {
        unshare --mount true 2>/dev/null || cannot "this machine does not allow mounts"
        exec env AIRLUME_OWN_MOUNTS=yes unshare --mount "$0" make "$folder"
    }

    # shellcheck disable=SC1091
    codename=$(. /etc/os-release && echo "${VERSION_CODENAME:-none}")
    architecture=$(dpkg --print-architecture)
    sources=$(apt-get update --print-uris | sed -nE \
        "s#^'(.*)/dists/($codename(-.*)?)/(main|universe)/binary-$architecture/.*#deb \1 \2 \4#p")
    mirror=$(awk -v suite="$codename" '$3 == suite && !found++ { print $2 }' <<<"$sources")
    [ -n "$mirror" ] || cannot "apt knows no mirror of this system"
    debootstrap --variant=minbase --cache-dir="$(realpath "$folder/cache")" "$codename" "$root" \
        "$mirror" >"$TMPDIR/log" 2>&1 || cannot "debootstrap failed: $(tail -n 1 "$TMPDIR/log")"

    echo "$sources" >"$root/etc/apt/sources.list"
    apt-config dump | grep '^Acquire::' >"$root/etc/apt/apt.conf.d/99acquire" || true
    printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d"
    chmod +x "$root/usr/sbin/policy-rc.d"
    in_chroot useradd --create-home tester
    in_chroot apt-get update || cannot "apt-get update failed in the new system"
}

test_package() {
    local release=$1 build=$2 test=$3 package install
    [ ! -e "$folder/missing" ] || {
        echo "skipped: $(cat "$folder/missing")"
        exit 77
    }
    package=$(echo "$release"/build/airlume_*.deb)
    [ -f "$package" ] || {
        echo "skipped: the package was not made (dpkg-dev, file)"
        exit 77
    }
    [ "${AIRLUME_OWN_MOUNTS:-}" = yes ] ||
        exec env AIRLUME_OWN_MOUNTS=yes unshare --mount "$0" test "$folder" "$@"
    mount -t proc proc "$root/proc"
    mount --bind "$folder/cache" "$root/var/cache/apt/archives"

    cp "$package" "$root/tmp/airlume.deb"
    install=(apt-get -y --no-install-recommends install /tmp/airlume.deb)
    in_chroot "${install[@]}" --simulate
    in_chroot "${install[@]}" --download-only || {
        echo "skipped: the packages could not be downloaded"
        exit 77
    }
    in_chroot "${install[@]}"

    # At the same place in both systems, and by a path that is short enough for a socket.
    mkdir -p "$root/$build/tests"
    cp -a "$build/tests/driver" "$root/$build/tests/"
    ln -s "$root" "$TMPDIR/root"
    AIRLUME_ROOT=$TMPDIR/root "$test"

    in_chroot dpkg --purge airlume
    if [ -e "$root/usr/libexec/airlume" ]; then
        echo "the package left behind:"
        find "$root/usr/libexec/airlume"
        exit 1
    fi
}

case $task in
make) make_system ;;
test) test_package "${@:3}" ;;
remove) rm -rf --one-file-system "$root" ;;
esac
