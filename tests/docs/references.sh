#!/bin/bash
# Whether what the documents name is there: linked files, paths of this repository, and tests; whether
# manual pages refer to each other by their right sections, and the checker's codes are all described.
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

for page in packaging/*.[1-9] packaging/*.[1-9].in; do
    while read -r name section; do
        [ -e "packaging/$name.$section" ] || [ -e "packaging/$name.$section.in" ] ||
            complain "$page" "$name($section)"
    done < <(grep -oP '^\.Xr \Kairlume\S* \d' "$page" | sort -u)
done

# "bad-" is put together from its two halves in a place of its own.
described=$(grep -oP '^\| `\K[a-z]+-[\w-]*` \| (broken|odd)(?= \|)' docs/plugins.md |
    sed 's/` | / /' | grep -v '^bad- ' | sort -u)
known=$(grep -hPzo 'Weight::\w+,\s*QStringLiteral\("[a-z]+-[\w-]*' tools/plugincheck/*.cpp |
    tr '\n\0' ' \n' | sed -E 's/Weight::(\w+), *QStringLiteral\("(.*)/\2 \L\1/; s/^odd-\S*/odd-/' |
    sort -u)
diff <(echo "$described") <(echo "$known") || {
    echo "docs/plugins.md has other codes or kinds (<) than the checker (>)"
    missing=1
}
exit $missing
