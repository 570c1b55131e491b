#!/usr/bin/env bash
# Refused memory: each request of a program in turn, by itself and with all that follow.  A program ends with one clear
# line and the exit status 1, or does as well without; no file is left half written.
# shellcheck disable=SC1091,SC2154 # build comes with the support
. "$(dirname "$0")/support.bash"
[ -n "${OVANT_REFUSE:-}" ] || finish # built for another machine, or with a sanitizer, which has a malloc of its own

# bears_refusals MESSAGE PROGRAM ARGUMENT...
bears_refusals() {
    local message=$1 number stays got refusals=0
    shift
    rm -rf folder
    program "$@" <input >sound 2>&1
    for ((number = 1; ; number++)); do
        for stays in '' REFUSE_ON=yes; do
            rm -rf folder
            (export LD_PRELOAD="$OVANT_REFUSE" REFUSE=$number ${stays:+"$stays"}; program "$@") \
                <input >out 2>err 9>refused
            got=$?
            [ -s refused ] || break 2
            refusals=$((refusals + 1))
            [ $got = 0 ] || same "$*: request $number refused${stays:+ and all behind it}" "1 $message" "$got $(cat err)"
            [ $got != 0 ] || same "$*: request $number refused, output" "$(cat sound)" "$(cat out err)"
            same "$*: request $number, files half written" '' "$(find folder -name '*.part' 2>/dev/null)"
        done
    done
    [ $refusals -gt 9 ] || same "$*" 'many requests' "$refusals refusals"
}

awk 'BEGIN { for (i = 0; i < 60; ++i) printf "2026-01-01 %02d:00:00 entry-%d\n", i / 20, i }' >input
tired='logwindow: memory: not enough for these files'
bears_refusals "$tired" logwindow --split-by hour --into folder input
bears_refusals "$tired" logwindow --tree --keep 9 --to=2026 input input
bears_refusals 'counting: out of memory' counting
finish
