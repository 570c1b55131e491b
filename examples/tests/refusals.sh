#!/usr/bin/env bash
# Bad input: one clear line on standard error, an exit status, and what was good is not lost.
# shellcheck disable=SC1091
. "$(dirname "$0")/support.bash"

printf '2026-01-01 10:00:00 good\n' >good
: >empty
printf 'no stamp in here\n' >plain
mkdir folder

for bad in missing empty plain folder; do
    refuses 1 "$bad: [A-Za-z]" $bad good
    same "$bad: the other file comes through" "$(cat good)" "$(cat out)"
done
refuses 1 'standard input: is empty' - good </dev/null
refuses 1 'standard input: ' - good <&-
for bad in --unknown -x --treeless; do refuses 2 "$bad: unknown option" $bad good; done
for option in --from --to --drop-before --keep --split-by --into; do refuses 2 "$option: needs a value" good $option; done
for bound in '' now 2026-13 2026-02-29 '2026-01-01 24' '2026-01-01 10:60' 2026-01-01T10:00:00x 26-01-01 2026-1-1; do
    refuses 2 "--from: '$bound' is no time" --from "$bound" good
done
refuses 2 "--to: 'x' is no time" --to=x good
refuses 2 "--drop-before: 'x' is no time" --drop-before x good
for number in '' -1 x 1x 99999999999999999999; do refuses 2 "--keep: '$number'" --keep "$number" good; done
refuses 2 '--from: stands after --to' --from 2026-02 --to 2026-01 good
refuses 2 '--svg: does not go with' --svg --keep 3 good
refuses 2 'no file given'
same 'a file whose name looks like an option' "$(cat good)" "$(cp good ./--tree && logwindow -- --tree)"
same 'help' 'usage: logwindow' "$(logwindow --help | head -c 16)"

[[ ${OVANT_EMULATOR:-} != *wine* ]] || finish # what stands behind it takes all it is given

if [ -w /dev/full ]; then
    full=$'logwindow: standard output: No space left on device\n1'
    same 'a full disk' "$full" "$(logwindow good 2>&1 >/dev/full; echo $?)"
    same 'a full disk for a tree' "$full" "$(logwindow --tree good 2>&1 >/dev/full; echo $?)"
fi
awk 'BEGIN { for (i = 0; i < 50000; i++) printf "2026-01-01 10:00:00 line %d\n", i }' >long
same 'a reader that leaves early' '2026-01-01 10:00:00 line 0' "$(logwindow long 2>&1 | head -1)"
same 'the same where nobody dies of it' $'logwindow: standard output: Broken pipe\n1' \
    "$( (trap '' PIPE; (logwindow long 2>&1 >&3; echo $?) 3>&1 >said | true; cat said) )"
finish
