#!/usr/bin/env bash
# demo.sh BUILD_FOLDER: the library at work on this machine's package log and on the sample, on one screen.
set -euo pipefail
here=$(dirname "$0")
build=${1:?usage: $0 BUILD_FOLDER}
program=$build/examples/logwindow
sample=$here/sample.log
log=/var/log/dpkg.log
[ -s "$log" ] && [ -r "$log" ] && [ "$(wc -l <"$log")" -ge 200 ] || log=$sample

# The log of a fresh machine may be one burst of some seconds, so what we look at is no longer than that.
lines=$(wc -l <"$log")
busiest=$(cut -c1-19 "$log" | uniq -c | sort -rn | awk 'NR == 1 { print $2, $3 }')
from=$(sed -n "$((lines / 4))p" "$log" | cut -c1-19)
to=$(sed -n "$((lines * 3 / 4))p" "$log" | cut -c1-19)

show() { printf '\n$ logwindow %s\n' "$*"; }
printf 'Each line of %s is a record in a tree, and still stands in the block it was read into:\n' "$log"
printf '%s lines, %s to %s. The busiest second, its last lines:\n' \
    "$lines" "$(head -1 "$log" | cut -c1-19)" "$(tail -1 "$log" | cut -c1-19)"
show "--from '$busiest' --to '$busiest' --keep 4 $log"
"$program" --from "$busiest" --to "$busiest" --keep 4 "$log" | cut -c1-110

printf '\nThe middle half of the log leaves the tree, and comes back, and leaves again:\n'
show "--cost --from '$from' --to '$to' $log >middle.log"
{ "$program" --cost --from "$from" --to "$to" "$log" >/dev/null; } 2>&1

printf '\nTwelve lines and the tree that holds them, on its side:\n'
show "--tree --to '2026-11-22 14:09:41' --keep 12 $sample"
"$program" --tree --to '2026-11-22 14:09:41' --keep 12 "$sample" | cut -c1-110

cat <<TEXT

Try next:
  $program --from '2026-11-22 14:08:58' --to '2026-11-22 14:09' $sample
  $program --split-by day --into /tmp/by-day --force $log && ls /tmp/by-day
  $build/examples/orderbook        # prices, queues, a cut at a price: $here/orderbook.cpp
  $build/examples/expiry           # one record in two trees: $here/expiry.cpp
  $build/examples/phonebook        # the smallest host in C: $here/phonebook.c
  $here/measure.sh $build    # a million lines beside sort
TEXT
