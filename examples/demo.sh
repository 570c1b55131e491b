#!/usr/bin/env bash
# demo.sh BUILD_FOLDER: the library at work on this machine's package log, on one screen.
set -euo pipefail
build=${1:?usage: $0 BUILD_FOLDER}
program=$build/examples/logwindow
log=/var/log/dpkg.log
[ -s "$log" ] && [ -r "$log" ] && [ "$(wc -l <"$log")" -ge 200 ] || log=$(dirname "$0")/sample.log

show() { printf '\n$ logwindow %s\n' "$*"; }
first=$(head -1 "$log" | cut -c1-19)
last=$(tail -1 "$log" | cut -c1-19)
busiest=$(cut -c1-16 "$log" | sort | uniq -c | sort -rn | awk 'NR == 1 { print $2, $3 }')
day=${busiest% *}

printf 'Each line of %s is a node of one tree, and still stands in the block it was read into:\n' "$log"
printf '%s lines, %s to %s.\n' "$(wc -l <"$log")" "$first" "$last"

show "--from $day --to '$busiest' --keep 4 $log"
"$program" --from "$day" --to "$busiest" --keep 4 "$log" | cut -c1-110

show "--tree --to '$busiest' --keep 12 $log"
"$program" --tree --to "$busiest" --keep 12 "$log" | cut -c1-110

show "--cost --from $day --to $day $log >busy-day.log"
{ "$program" --cost --from "$day" --to "$day" "$log" >/dev/null; } 2>&1

cat <<TEXT

Try next:
  $program --from '$busiest' --to '$busiest' $log
  $program --split-by day --into /tmp/by-day --force $log && ls /tmp/by-day
  tail -50 $log | $program --tree -
  $build/examples/phonebook        # the smallest host: $(dirname "$0")/phonebook.c
  $(dirname "$0")/measure.sh $build    # a million lines beside sort
TEXT
