#!/bin/bash
# Looks into the Debian package of the Release build, and has lintian look.
#
#   debianpackage.sh FOLDER     what release.sh made
set -euo pipefail
missing=()
for tool in dpkg-deb dpkg-shlibdeps file lintian; do
    command -v "$tool" >/dev/null || missing+=("$tool")
done
[ ${#missing[@]} = 0 ] || {
    echo "skipped: not installed: ${missing[*]}"
    exit 77
}

fail() {
    echo "$*"
    exit 1
}
packages=("$1"/build/airlume_*.deb)
if [ ${#packages[@]} != 1 ] || [ ! -f "${packages[0]}" ]; then
    fail "not one package: ${packages[*]}"
fi
package=${packages[0]}
dpkg-deb --info "$package"

# Exactly what is installed, in /usr, with compressed documents.
(
    cd "$1/installed"
    find . ! -type d | sed -e 's|^\./|usr/|' -e '/\/man[0-9]\//s/$/.gz/'
    printf 'usr/share/doc/airlume/%s\n' changelog.gz changelog.Debian.gz
) | sort >"$TMPDIR/expected"
dpkg-deb --fsys-tarfile "$package" | tar -t | sed -e 's|^\./||' -e '/\/$/d' -e '/^$/d' | sort \
    >"$TMPDIR/packaged"
diff "$TMPDIR/expected" "$TMPDIR/packaged"

# Some of the names end differently in later systems.
depends=$(dpkg-deb --field "$package" Depends)
for library in libc6 libqt5core5 libqt5dbus5 libqt5gui5 libqt5network5 libqt5widgets5 \
    libqwt-qt5-6 libnl-3-200 libnl-genl-3-200; do
    grep -qE "(^|, )$library(a|t64)?( |,|$)" <<<"$depends" || fail "does not depend on $library: $depends"
done

dpkg-deb --extract "$package" "$TMPDIR/extracted"
find "$TMPDIR/extracted/usr/libexec" -type f | while read -r file; do
    file "$file" | grep -q ', stripped$' || fail "not stripped: $file"
done
gzip -dc "$TMPDIR/extracted/usr/share/man/man1/airlume.1.gz" |
    grep -q '^\.Dl QT_PLUGIN_PATH=/usr/libexec/airlume/simulated airlume$' ||
    fail "the manual page does not name the package's folder"
gzip -dc "$TMPDIR/extracted/usr/share/man/man5/airlume-scenario.5.gz" |
    grep -oP '^\.It Pa \K/usr/.*' >"$TMPDIR/named"
while read -r named; do
    [ -e "$TMPDIR/extracted$named" ] || fail "airlume-scenario(5) names $named, which is not there"
done <"$TMPDIR/named"
[ -s "$TMPDIR/named" ] || fail "airlume-scenario(5) names no files"

# lintian does not run as root without being told so. What newer versions of it have from
# appstreamcli, metadata.sh looks at.
options=(--fail-on none --tag-display-limit 0)
[ "$(id -u)" != 0 ] || options+=(--allow-root)
lintian "${options[@]}" "$package" | tee "$TMPDIR/lintian"
! grep -E '^[EW]: ' "$TMPDIR/lintian" | grep -v ': appstream-metadata-validation-failed '
