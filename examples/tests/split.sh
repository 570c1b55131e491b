#!/usr/bin/env bash
# --split-by: one file for each day or hour, and nothing overwritten unasked.
# shellcheck disable=SC1091
. "$(dirname "$0")/support.bash"

cat >log <<'X'
2026-02-28 22:00:00 a
2026-02-28 23:59:59.9 b
2026-03-01 00:00:00 c
  more of c
2026-03-03 10:20:30 d
X
contents() { for file in "$1"/*; do printf '%s: %s\n' "${file##*/}" "$(sed 's/.* //' "$file" | tr '\n' ' ')"; done; }
days='2026-02-28.log: a b 
2026-03-01.log: c c 
2026-03-03.log: d '

same 'writes nothing to standard output' '' "$(logwindow --split-by day --into new/folder log)"
same 'days' "$days" "$(contents new/folder)"
same 'nothing is lost' '' "$(cat new/folder/* | cmp - log 2>&1)"
logwindow --split-by=hour --into=hours --from 2026-03 log
same 'hours of a window' $'2026-03-01T00.log: c c \n2026-03-03T10.log: d ' "$(contents hours)"

mkdir some && printf 'mine\n' >some/2026-03-03.log
refuses 1 'some/2026-03-03.log: exists' --split-by day --into some log
same 'all are checked before one is written' '2026-03-03.log: mine ' "$(contents some)"
logwindow --split-by day --into some --force log
same 'force' "$days" "$(contents some)"

refuses 1 'log: ' --split-by day --into log log
mkdir -p blocked/2026-03-01.log
refuses 1 'blocked/2026-03-01.log: ' --split-by day --into blocked --force log
same 'nothing half written stays' 'blocked/2026-02-28.log blocked/2026-03-01.log' "$(echo blocked/*)"
refuses 2 '--split-by: needs --into' --split-by day log
refuses 2 '--into: needs --split-by' --into some log
refuses 2 '--force: needs --split-by' --force log
refuses 2 '--tree: ' --tree --split-by day --into some log
refuses 2 "--split-by: 'week'" --split-by week --into some log
finish
