#!/bin/bash
# Checks what desktops and shops read about Airlume, with their own validators.
#
#   metadata.sh PACKAGING-FOLDER INFO-PLIST VERSION
set -euo pipefail
packaging=$1 plist=$2 version=$3

missing=()
for tool in desktop-file-validate appstreamcli python3; do
    command -v "$tool" >/dev/null || missing+=("$tool")
done
[ ${#missing[@]} = 0 ] || {
    echo "skipped: not installed: ${missing[*]}"
    exit 77
}

complaints=$(desktop-file-validate "$packaging/airlume.desktop")
[ -z "$complaints" ] || {
    echo "$complaints"
    exit 1
}
appstreamcli validate --no-net "$packaging/app.airlume.Airlume.metainfo.xml" >"$TMPDIR/report" || {
    # Newer versions warn that there is no public address, which is so.
    complaints=$(grep -E '^[EW]: ' "$TMPDIR/report" || true)
    [[ $complaints == 'W: '*': url-homepage-missing' && $complaints != *$'\n'* ]] || {
        cat "$TMPDIR/report"
        exit 1
    }
}

python3 - "$packaging" "$plist" "$version" <<'CODE'
import configparser, plistlib, sys
import xml.etree.ElementTree as tree

packaging, plist, version = sys.argv[1:]
desktop = configparser.ConfigParser(interpolation=None, delimiters="=")
desktop.optionxform = str
desktop.read(packaging + "/airlume.desktop", encoding="utf-8")
entry = desktop["Desktop Entry"]
component = tree.parse(packaging + "/app.airlume.Airlume.metainfo.xml").getroot()
with open(plist, "rb") as file:
    bundle = plistlib.load(file)

def same(what, one, other):
    if one != other:
        sys.exit(f"{what}: {one!r} is not {other!r}")

languages = {key[8:-1] for key in entry if key.startswith("Comment[")}
same("languages beside English", len(languages), 24)
for key in ("GenericName", "Keywords"):
    same(key, {k[len(key) + 1:-1] for k in entry if k.startswith(key + "[")}, languages)
same("summary", component.findtext("summary"), entry["Comment"])
for summary in component.findall("summary")[1:]:
    language = summary.get("{http://www.w3.org/XML/1998/namespace}lang").replace("-", "_")
    same(f"summary in {language}", summary.text, entry.get(f"Comment[{language}]"))
    languages.remove(language)
same("languages without a summary", languages, set())
same("latest release", component.find("releases/release").get("version"), version)
same("version of the bundle", bundle["CFBundleShortVersionString"], version)
same("identifier of the bundle", bundle["CFBundleIdentifier"], component.findtext("id"))
same("program of the bundle", bundle["CFBundleExecutable"], entry["Exec"])
CODE
