#!/bin/bash
# Whether what the documents name is there: linked files, paths of this repository, and tests.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
missing=0
complain() {
    echo "$1 names $2, which is not there"
    missing=1
}

for document in *.md docs/*.md; do
    folder=$(dirname "$document")
    while read -r link; do
        [ -e "$folder/$link" ] || complain "$document" "$link"
    done < <(grep -oP '\]\(\K[^)#:]+(?=[)#])' "$document")

    while read -r path; do
        [ -e "$path" ] || complain "$document" "$path"
    done < <(grep -oP '(?<![\w./-])(src|plugins|tests|tools|docs|cmake|packaging)/[\w./-]*\w' "$document" |
        grep -vE '^plugins/(simulated|linux)/lib' | sort -u)

    while IFS=: read -r class _ function; do
        file=$(find tests -name "$class.cpp")
        if [ -z "$file" ] || { [ -n "$function" ] && ! grep -q "void $function()" "$file"; }; then
            complain "$document" "$class${function:+::$function}"
        fi
    done < <(grep -oP '`\Ktst_\w+(::\w+)?(?=`)' "$document" | sort -u)
done
exit $missing
