#!/usr/bin/env bash
# Merging: overlapping and disjoint files in any order, equal stamps, lines without a stamp, ways to write a stamp.
# shellcheck disable=SC1091
. "$(dirname "$0")/support.bash"

cat >a <<'X'
2026-11-22 10:00:00 a1
2026-11-22 10:00:02 a2
2026-11-22 10:00:02 a3
X
cat >b <<'X'
2026-11-22T10:00:01Z b1
2026-11-22T10:00:02Z b2
2026-11-22T10:00:03Z b3
X
printf '2026-11-23 00:00:00 c1\n' >c
sed 's/10:00/11:00/;s/b/g/' b >gap

last_words() { logwindow "$@" | sed 's/.* //' | tr '\n' ' '; }
same 'overlapping' 'a1 b1 a2 a3 b2 b3 ' "$(last_words a b)"
same 'overlapping, other order of files' 'a1 b1 b2 a2 a3 b3 ' "$(last_words b a)"
same 'disjoint' 'a1 a2 a3 c1 ' "$(last_words a c)"
same 'disjoint, later file first' 'a1 a2 a3 c1 ' "$(last_words c a)"
same 'into a gap' 'a1 a2 a3 g1 g2 g3 c1 ' "$(last_words a c gap)"
same 'a file twice' 'a1 a1 a2 a3 a2 a3 ' "$(last_words a a)"
same 'standard input' 'a1 b1 a2 a3 b2 b3 ' "$(last_words a - <b)"

# Thousands of turns, and files that are not in order themselves, against a stable sort by the same two fields.
lines() {
    awk -v n="$1" -v step="$2" -v seed="$3" 'BEGIN { srand(seed); for (i = 0; i < n; i++) {
        s = step ? i * step % 86400 : int(rand() * 400)
        printf "2026-01-01 %02d:%02d:%02d %s.%d\n", s / 3600, s / 60 % 60, s % 60, seed, i } }'
}
lines 3000 7 1 >x
lines 3000 7 2 >y
lines 2000 0 3 >z
lines 2000 0 4 >w
LC_ALL=C sort -s -k1,2 x z y w >wanted
logwindow x z - w < <(cat y) >got # a pipe: its size is not known beforehand
same 'against sort' '' "$(cmp wanted got 2>&1)"

printf 'header\n\n2026-11-22 10:00:02 d1\n\tat x\n\n\tat y\n2026-11-22 10:00:01 d2\nCaused by: z' >traces
printf '2026-11-22 10:00:01 d2\nCaused by: z\nheader\n\n2026-11-22 10:00:02 d1\n\tat x\n\n\tat y\n%s\n%s\n' \
    '2026-11-22 10:00:02 a2' '2026-11-22 10:00:02 a3' >wanted
same 'lines without a stamp, no newline at the end' "$(cat wanted)" \
    "$(logwindow --from 2026-11-22T10:00:01 traces a --keep 4)"

cat >forms <<'X'
2026-11-22 10:00:00.10 4
2026-11-22T10:00:00.099999999Z 3
2026-11-22 10:00:00,5 6
2026-11-22T10:00:00.1000000001 5
2026-11-22 10:00 1
2026-11-22 10:00:01 8
2026-11-22T12:30:00.6+02:30 7
2026-11-22T04:00:00-0600: 2
1969-12-31 23:59:59.9 0
X
same 'fractions, separators, zones' '0 1 2 3 4 5 6 7 8 ' "$(last_words forms)"
printf '2026-11-22 10:00:00 real\n2026-02-30 10:00:00 no such day\n2026-11-22 8:00:00 one digit\n%s\n%s\n' \
    '2026-11-21 is a date alone' '2026-11-21 10:00:001 too many digits' >unreal
same 'no stamps' "$(cat unreal)" "$(logwindow unreal)"
finish
