#!/usr/bin/env bash
# The demonstration fits on a screen, and the commands that it prints do work.
# shellcheck disable=SC2154 # build and work come with the support
here=$(dirname "$(realpath "$0")")
# shellcheck disable=SC1091
. "$here/support.bash"
[ -z "${OVANT_EMULATOR:-}" ] || finish # it is for people, on the machine they sit at

sed "s|/var/log/dpkg.log|$here/../sample.log|;s|/tmp/by-day|$work/by-day|g" "$here/../demo.sh" >demo.sh
bash demo.sh "$build" >shown 2>said || same 'exit status' 0 1
same 'standard error' '' "$(cat said)"
[ "$(wc -l <shown)" -le 40 ] || same 'lines' 'at most 40' "$(wc -l <shown)"
sed -n '/^Try next/,$p' shown | grep '^  ' | grep -v measure.sh >commands
same 'commands to try' 4 "$(wc -l <commands)"
while read -r command; do
    bash -eo pipefail -c "$command" </dev/null >shown 2>said
    same "exit status of $command" 0 $?
    [ -s shown ] || same "$command" 'some output' "$(cat said)"
done <commands
finish
