#!/usr/bin/env bash
# Refused memory: wherever it happens, one clear line, exit status 1, and no file is left half written.
# shellcheck disable=SC1091,SC2154 # build comes with the support
. "$(dirname "$0")/support.bash"
[ -z "${OVANT_EMULATOR:-}" ] || finish # the limit would be the emulator's

# within KILOBYTES PROGRAM ARGUMENT...
within() (
    ulimit -v "$1" && shift && program "$@"
)
least=4096
until within $least logwindow --help >/dev/null 2>&1; do
    least=$((least + 256))
    [ $least -lt 100000 ] || finish # built with a sanitizer, which needs far more for itself
done

# refused_within LAST MESSAGE PROGRAM ARGUMENT...: under limits from the least up to the first that suffices.  Right at
# the least one the C++ run-time library has not even the memory that it keeps for exceptions.
refused_within() {
    local last=$1 message=$2 limit refusals=0 got
    shift 2
    for ((limit = least + 256; limit <= last; limit += 256)); do
        rm -rf folder
        within $limit "$@" <input >out 2>err
        got=$?
        [ "$got" != 0 ] || break
        refusals=$((refusals + 1))
        same "$*: within $limit KB" "1 $message" "$got $(cat err)"
        same "$*: within $limit KB, files half written" '' "$(find folder -name '*.part' 2>/dev/null)"
    done
    if [ $refusals -lt 4 ] || [ $limit -gt "$last" ]; then
        same "$*" 'refused by small limits only' "$refusals times up to $limit"
    fi
}

awk 'BEGIN { for (i = 0; i < 20000; ++i)
    printf "2026-01-%02d %02d:00:00 entry-%d is neither long nor short\n", i / 1000 + 1, i / 50 % 20, i }' >input
refused_within $((least + 20480)) 'logwindow: memory: not enough for these files' \
    logwindow --split-by hour --into folder input
refused_within $((least + 20480)) 'counting: out of memory' counting
finish
