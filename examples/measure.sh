#!/usr/bin/env bash
# measure.sh BUILD_FOLDER [LOG]: times logwindow beside sort on a million lines, made of LOG repeated every four years.
# Both run in turn, five rounds, the shortest counts; their outputs must be the same.
set -euo pipefail
program=$(realpath "${1:?usage: $0 BUILD_FOLDER [LOG]}")/examples/logwindow
log=${2:-/var/log/dpkg.log}
[ -r "$log" ] || log=$(dirname "$0")/sample.log
log=$(realpath "$log")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

awk '{ line[NR] = $0 } END { for (i = 0; i < 1000000; ++i) {
    text = line[i % NR + 1]; print (substr(text, 1, 4) + 4 * int(i / NR)) substr(text, 5) } }' "$log" >whole
split -n l/4 whole quarter.
split -n r/4 whole turns.
printf 'a million lines of %s, %s MB; shortest of 5 in seconds: elapsed, and processor time in brackets\n' \
    "$log" "$(($(stat -c %s whole) / 1000000))"

export LC_ALL=C TIMEFORMAT='%R %U %S'
shortest() { sort -n "$1" | awk 'NR == 1 { printf "%6.2f (%.2f)", $1, $2 + $3 }'; }
compare() {
    local title=$1
    shift
    local -a sort=(sort -s "-k1,2")
    [ "$1" != -m ] || { sort+=(-m); shift; }
    : >times.sort
    : >times.ours
    for _ in 1 2 3 4 5; do
        { time "${sort[@]}" "$@" >out.sort; } 2>>times.sort
        { time "$program" "$@" >out.ours; } 2>>times.ours
    done
    cmp out.sort out.ours
    printf '  %-38s logwindow %s   %-14s %s\n' "$title" "$(shortest times.ours)" "${sort[*]}" "$(shortest times.sort)"
}
compare 'one file in order' whole
compare 'four files, one after the other' quarter.ad quarter.ac quarter.ab quarter.aa
compare 'four files that take turns' turns.*
compare 'the same, told that they are in order' -m turns.*
