#!/usr/bin/env bash
# gdb looks at hosts of both faces, running and as a core dump: what it says of sound trees and of each kind of damage.
#   look.sh SCRIPT FOLDER_OF_THE_HOSTS [--write]
# --write makes what is said now what is expected.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
script=$1 hosts=$2 failed=0
command -v gdb >/dev/null || { echo 'skipped: there is no gdb'; exit 77; }
gdb -nx -batch -ex 'python print(1)' 2>/dev/null | grep -q 1 || { echo 'skipped: this gdb has no Python'; exit 77; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# shellcheck disable=SC2016 # $node is gdb's
commands() { # commands WHAT: WHAT says more of the records, where the tree does not
    local kind
    for kind in 0 1 2 3 4 5; do printf 'ovant check trees[%d] %s\n' $kind "$1"; done
    printf '%s\n' "ovant list trees[0] $1" 'ovant draw trees[0]' 'ovant draw trees[3]' "ovant list trees[4] $1" \
        'ovant find trees[2] 45' 'ovant path trees[2] $node' "ovant path trees[0] &events[0][4] $1" \
        'set print elements 3' 'ovant list trees[5]' 'set print elements 200' 'print trees[0]'
}
{
    commands Event
    printf '%s\n' 'ovant stack trees[0]' 'ovant list root Event time name' 'ovant check trees[0] Event -time' \
        'ovant list trees[0] Evnt' 'ovant list root' 'ovant path root' 'print *trees[0]' 'ovant find'
} >"$work/c"
{
    commands ''
    printf '%s\n' 'ovant list trees[0] time' 'ovant list root time' 'ovant check root' 'ovant path position' \
        'ovant stack position' 'print position' 'ovant list names' 'ovant check names' 'ovant find names "\"b\""' \
        'ovant stack names'
} >"$work/cpp"

said() { # said COMMANDS GDB_ARGUMENT...: what each command says, addresses left out
    local each=() line
    while read -r line; do each+=(-ex "echo \\n(gdb) ${line//\\/\\\\}\\n" -ex "$line"); done <"$1"
    gdb -nx -batch -ex 'set width 0' -ex "source $script" "${@:2}" -ex up "${each[@]}" 2>&1 |
        sed -n '/^(gdb)/,$p' | sed -E 's/0x[0-9a-f]{2,}/ADDRESS/g; s/ADDRESS ("\w+")/\1/'
}
compare() { # compare WHAT EXPECTED FILE
    diff -u "$2" "$3" >"$work/difference" && return
    failed=1
    echo "wrong: $1"
    cat "$work/difference"
}

for face in c cpp; do
    program=$hosts/gdb_host_$face expected=$here/$face.txt
    said "$work/$face" -ex 'break look_here' -ex run -ex "generate-core-file $work/core" "$program" >"$work/live"
    [ -s "$work/core" ] || { echo 'skipped: gdb may not run a program here'; exit 77; }
    [ "${3:-}" != --write ] || cp "$work/live" "$expected"
    compare "the process, $face" "$expected" "$work/live"
    said "$work/$face" "$program" "$work/core" >"$work/dead"
    compare "the core dump, $face" "$expected" "$work/dead"
done
exit $failed
