#!/usr/bin/env bash
# The header, the version script, the built library and the table in docs/where.md hold one set of names, and the
# library asks the system for nothing but the C library.
#   boundary.sh SOURCE_FOLDER LIBRARY NM READELF
set -euo pipefail
source=$1 library=$2 nm=$3 readelf=$4
node=OVANT_1.3 count=126
export LC_ALL=C
failed=0

fail() { echo "boundary: $*" >&2; failed=1; }

same() { # same WHAT NAMES: NAMES are those of the header
    local difference
    difference=$({ diff <(echo "$header") <(echo "$2") || true; } |
        sed -n 's/^</  only in ovant.h:/p; s/^>/  not in ovant.h: /p')
    [ -z "$difference" ] || fail "ovant.h and $1 differ
$difference"
}

# A declaration may run over several lines; its name is the word before the first parenthesis.
header=$(sed 's|^ *#.*||' "$source/include/ovant.h" | tr '\n' ' ' | grep -oE 'OVANT_API [^(;]*\(' |
    grep -oE '[A-Za-z_0-9]+\($' | tr -d '(' | sort)
[ "$(wc -l <<<"$header")" = $count ] || fail "ovant.h declares $(wc -l <<<"$header") names, not $count"
same ovant.map "$(sed -n '/global:/,/local:/p' "$source/c/ovant.map" | grep -oE '^ *[A-Za-z_0-9]+;' |
    tr -d ' ;' | sort)"
# shellcheck disable=SC2016
same docs/where.md "$(sed -nE 's/^\| *`([A-Za-z_0-9]+)` *\|.*/\1/p' "$source/docs/where.md" | sort)"

if [[ $library == *.dll ]]; then # OBJDUMP stands in the place of NM
    table=$("$nm" -p "$library")
    same "the built library" "$(sed -nE 's/^\t\[ *[0-9]+\] (\+base\[ *[0-9]+\] *[0-9a-f]+ )?([A-Za-z_]\w*)$/\2/p' <<<"$table" | sort)"
    needed=$(sed -n 's/.*DLL Name: //p' <<<"$table" | grep -viE '^(kernel32|user32|msvcrt)\.dll$' || true)
    [ -z "$needed" ] || fail "the library needs $needed"
    exit $failed
fi

same "the built library" "$("$nm" -D --defined-only "$library" | awk '{ print $3 }' |
    sed -E "/^$node(@@$node)?\$/d; s/@@$node\$//; t; s/\$/ outside $node/" | sort)"

# Nothing but the C library (and its loader) by name or by symbol: no C++ run-time library, no exceptions, no RTTI.
needed=$("$readelf" -dW "$library" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' |
    sed -E '/^(libc|ld[-.0-9a-z]*)\.so/d')
case $needed in
*san.so*) ;; # an instrumented build, not one for hosts
'') ;;
*) fail "the library needs $needed" ;;
esac
runtime=$("$nm" -D --undefined-only "$library" |
    sed -nE '/ (_Z|__cxa_(throw|begin|end|allocate|rethrow|guard|pure)|__gxx|_Unwind)/p')
[ -z "$runtime" ] || [[ $needed == *san.so* ]] || fail "the library uses the C++ run-time library: $runtime"
exit $failed
