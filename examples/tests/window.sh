#!/usr/bin/env bash
# The window: bounds of every length, --drop-before, --keep, --cost, --tree.
# shellcheck disable=SC1091
. "$(dirname "$0")/support.bash"

cat >log <<'X'
2025-12-31 23:59:59.999999999 a
2026-01-01 00:00:00 b
2026-01-31 23:59:59.5 c
2026-02-01 00:00:00 d
2026-02-28 12:00:00 e
2026-02-28 12:59:59.9 f
2026-02-28 13:00:00 g
2026-02-28 13:00:59,25 h
2026-02-28 13:00:59,26 i
2026-02-28 13:01:00 j
2026-02-28 23:59:59 k
2026-03-01 00:00:00 l
2027-01-01 00:00:00 m
2027-01-01 00:00:00 n
2027-01-01 00:00:00 o
X
letters() { logwindow "$@" log | sed 's/.* //' | tr -d '\n'; }
same 'all' abcdefghijklmno "$(letters)"
same 'a year' bcdefghijkl "$(letters --from 2026 --to 2026)"
same 'a month' defghijk "$(letters --from 2026-02 --to 2026-02)"
same 'a day' efghijk "$(letters --from=2026-02-28 --to=2026-02-28)"
same 'an hour' ef "$(letters --from '2026-02-28 12' --to 2026-02-28T12)"
same 'a minute' ghi "$(letters --from '2026-02-28 13:00' --to '2026-02-28 13:00')"
same 'a second' hi "$(letters --from '2026-02-28 13:00:59' --to '2026-02-28T13:00:59Z')"
same 'part of a second' hi "$(letters --from '2026-02-28 13:00:59.2' --to '2026-02-28 13:00:59.2')"
same 'a hundredth' h "$(letters --from '2026-02-28 13:00:59.25' --to '2026-02-28 13:00:59.25')"
same 'another zone' ef "$(letters --from '2026-02-28T14+02:00' --to '2026-02-28T14+02:00')"
same 'both bounds belong to it' bc "$(letters --from '2026-01-01 00:00:00' --to '2026-01-31 23:59:59.5')"
same 'from only' lmno "$(letters --from 2026-03)"
same 'to only' abc "$(letters --to 2026-01)"
same 'nothing there' '' "$(letters --from 2026-01-02 --to 2026-01-30)"
same 'drop' klmno "$(letters --drop-before '2026-02-28 23:59:59')"
same 'drop, then a window' k "$(letters --drop-before '2026-02-28 23:59:59' --to 2026-02)"
same 'drop all' '' "$(letters --drop-before 2028)"
same 'keep divides equal stamps' no "$(letters --keep 2)"
same 'keep in a window' jk "$(letters --to 2026-02 --keep 2)"
same 'keep none' '' "$(letters --keep 0)"
same 'keep all there is' abcdefghijklmno "$(letters --keep 15)"
same 'keep more than there is' lmno "$(letters --keep 99 --from 2026-03)"

same 'the cost does not change the window' defghijk "$(letters --cost --from 2026-02 --to 2026-02 2>err)"
comparisons() { sed -n "s/^ *$1  *\\([0-9]*\\) comparisons.*/\\1/p" err; }
[ "$(comparisons 'by one cut')" -lt "$(comparisons 'one by one')" ] || same 'cost' 'a cut is cheaper' "$(cat err)"

printf '2026-01-01 00:00:0%d line %d\n' 1 1 2 2 3 3 4 4 5 5 >five
logwindow --tree five >tree
same 'the tree shows all entries in order' "$(cat five)" "$(sed 's/^[^0-9]*//' tree)"
same 'one of them is the root' 1 "$(grep -c '^o' tree)"
same 'nothing hangs lower than it must' 0 "$(grep -c '^.\{8\}[/\\]' tree)"
printf '%s\n' '/-- o  2026-01-01 00:00:01 line 1' 'o      2026-01-01 00:00:02 line 2' \
    '\-- o  2026-01-01 00:00:03 line 3' >picture
same 'the tree of a window' "$(cat picture)" "$(logwindow --tree --to 2026-01-01T00:00:03 five)"
printf '2026-01-01 00:00:00 %059dä\n' 0 >umlaut
same 'no half character' "o  2026-01-01 00:00:00 $(printf %059d 0)" "$(logwindow --tree umlaut)"

logwindow --svg --from 2026-02 --to 2026-02 log >picture
same 'a box for each entry' 15 "$(grep -c '<rect x' picture)"
same 'those of the window in another colour' 8 "$(grep -c ffc078 picture)"
same 'a line to each but the root' 14 "$(grep -c 'path d="M.*L' picture)"
logwindow --dot log >picture
same 'the same as a graph' '15 14' "$(grep -c 'shape=box' picture) $(grep -c -- '-> n' picture)"
awk 'BEGIN { for (i = 0; i < 300; ++i) printf "2026-01-01 10:%02d:%02d x\n", i / 60, i % 60 }' >many
logwindow --svg --from '2026-01-01 10:01' --to '2026-01-01 10:01' many >picture
[ "$(grep -c '<rect x\|<title' picture)" -le 40 ] || same 'a wide tree' 'folds away' "$(wc -l picture)"
same 'and none is lost' 300 \
    "$(sed -n 's/.*<\/title>.*>\([0-9]*\)<\/text>/\1/p; s/^<rect x.*/1/p' picture | awk '{ n += $1 } END { print n }')"
same 'no tree' '' "$(logwindow --tree --from 2030 five)"
finish
