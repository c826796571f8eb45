#!/bin/bash
# Checks that each installed binary of a Release build is hardened, and that the check would notice
# a binary that is not.
#
#   hardening.sh FOLDER     what release.sh made
set -euo pipefail
export LC_ALL=C
installed=$1/installed
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

command -v readelf >/dev/null || {
    echo "skipped: readelf is not installed (binutils)"
    exit 77
}

fail() {
    echo "$*"
    exit 1
}

# weaknesses FILE KIND: one line for each thing that is missing. KIND: program or module
weaknesses() {
    local headers dynamic symbols
    headers=$(readelf -lW "$1") dynamic=$(readelf -dW "$1") symbols=$(readelf -W --dyn-syms "$1")
    grep -q '__stack_chk_fail' <<<"$symbols" || echo "no stack protector"
    grep -q 'GNU_RELRO' <<<"$headers" || echo "no read-only relocations (relro)"
    grep -qE '\(FLAGS_1\).*\bNOW\b' <<<"$dynamic" || echo "late binding (no now)"
    grep -qE 'GNU_STACK .* RW +0x' <<<"$headers" || echo "executable stack"
    ! grep -qE '\((RPATH|RUNPATH)\)' <<<"$dynamic" || echo "a path of its own for libraries"
    ! grep -q 'TEXTREL' <<<"$dynamic" || echo "relocations in the code (TEXTREL)"
    grep -q 'Elf file type is DYN' <<<"$headers" || echo "not position-independent"
    [ "$2" = module ] || grep -qE '\(FLAGS_1\).*\bPIE\b' <<<"$dynamic" || echo "not a PIE"
}

# The check itself: each weakness is found in a program that has all of them.
cat >"$TMPDIR/weak.cpp" <<'CODE'
#include <cstdio>
int main(int argc, char **argv)
{
    char text[16];
    std::sprintf(text, "%s", argv[argc - 1]);
    return text[0];
}
CODE
# The relocation in the code comes from a pointer in a read-only section.
cat >"$TMPDIR/textrel.s" <<'CODE'
.section .rodata
.quad main
CODE
compiler=$(sed -n 's/^CMAKE_CXX_COMPILER:[A-Z]*=//p' "$1/build/CMakeCache.txt")
plain=(-O2 -fno-stack-protector -U_FORTIFY_SOURCE -w '-Wl,-z,norelro' '-Wl,-z,lazy'
    '-Wl,-z,execstack' '-Wl,-z,notext' '-Wl,-rpath,/nowhere')
"$compiler" "${plain[@]}" -no-pie "$TMPDIR/weak.cpp" -o "$TMPDIR/weak"
"$compiler" "${plain[@]}" -fPIE -pie "$TMPDIR/weak.cpp" -x assembler "$TMPDIR/textrel.s" \
    -o "$TMPDIR/textrel"
found=$(weaknesses "$TMPDIR/weak" program && weaknesses "$TMPDIR/textrel" program)
for weakness in 'no stack protector' 'no read-only relocations' 'late binding' 'executable stack' \
    'a path of its own' 'TEXTREL' 'not position-independent' 'not a PIE'; do
    grep -qF "$weakness" <<<"$found" || fail "the check does not notice: $weakness"
done

# Checked calls (FORTIFY) appear only where a buffer's size is known, so not in every binary. Each
# file is compiled for them, and with these flags the program above has one.
commands=$(grep '"command":' "$1/build/compile_commands.json")
unchecked=$(grep -vE -- '-D_FORTIFY_SOURCE=[23]\b.* -o ' <<<"$commands" || true)
[ -z "$unchecked" ] || fail "compiled without FORTIFY: $unchecked"
mapfile -t flags < <(grep 'src/app/main.cpp' <<<"$commands" |
    grep -oE -- '(-O[0-9]|-fstack-[a-z-]+|-[DU]_FORTIFY_SOURCE(=[0-9])?)\b')
"$compiler" "${flags[@]}" -w "$TMPDIR/weak.cpp" -o "$TMPDIR/checked"
has_checked_calls() { readelf -W --dyn-syms "$1" | grep -qE '__[a-z]+_chk@'; }
has_checked_calls "$TMPDIR/checked" || fail "no checked calls with ${flags[*]}"
! has_checked_calls "$TMPDIR/weak" || fail "checked calls without any flags"

failed=0 count=0
while read -r file; do
    [ "$(head -c 4 "$file")" = $'\177ELF' ] || continue
    count=$((count + 1)) kind=program
    case $file in *.dylib) kind=module ;; esac
    while read -r weakness; do
        echo "${file#"$installed/"}: $weakness"
        failed=1
    done < <(weaknesses "$file" $kind)
    ! grep -qaF "$source/" "$file" || fail "${file#"$installed/"}: names the folder of its sources"
done < <(find "$installed" -type f)
echo "$count binaries checked"
[ $count = 5 ] && [ $failed = 0 ]
