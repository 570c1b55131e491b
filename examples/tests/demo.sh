#!/usr/bin/env bash
# The demonstration fits on a screen, on whatever log it finds, and the commands that it prints do work.
# shellcheck disable=SC2154 # build and work come with the support
here=$(dirname "$(realpath "$0")")
# shellcheck disable=SC1091
. "$here/support.bash"
[ -z "${OVANT_EMULATOR:-}" ] || finish # it is for people, on the machine they sit at

# demo LOG: as if LOG were the log of this machine
demo() {
    sed "s|/var/log/dpkg.log|$1|;s|\$(dirname \"\$0\")|$here/..|;s|/tmp/by-day|$work/by-day|g" "$here/../demo.sh" >demo.sh
    bash demo.sh "$build" >shown 2>said || same "$1: exit status" 0 1
    same "$1: standard error" '' "$(cat said)"
    [ "$(wc -l <shown)" -le 40 ] || same "$1: lines" 'at most 40' "$(wc -l <shown)"
}
comparisons() { sed -n "s/^ *$1  *\\([0-9]*\\) comparisons.*/\\1/p" shown; }

# A fresh machine: packages were installed once, in four seconds.
awk 'BEGIN { for (i = 0; i < 300; ++i) printf "2026-11-22 10:00:0%d status installed p%d\n", i / 80, i }' >burst
for log in "$work/burst" "$work/missing"; do
    demo "$log"
    same "$log: twelve lines of the tree" 12 "$(grep -c '^[ |]*\([\\/]--\)* *o  *[+-]* *2026' shown)"
    [ "$(comparisons 'by one cut')" -lt $(($(comparisons 'one by one') / 4)) ] ||
        same "$log: cost" 'one cut is far cheaper' "$(cat shown)"
done

sed -n '/^Try next/,$p' shown | grep '^  ' | grep -v measure.sh >commands
same 'commands to try' 5 "$(wc -l <commands)"
while read -r command; do
    bash -eo pipefail -c "$command" </dev/null >shown 2>said
    same "exit status of $command" 0 $?
    [ -s shown ] || same "$command" 'some output' "$(cat said)"
done <commands
finish
