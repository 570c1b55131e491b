#!/usr/bin/env bash
# prints.sh PROGRAM [FILE]: the program succeeds and prints what the file holds.  Without a file success is enough.
set -euo pipefail
# shellcheck disable=SC2086 # an emulator may bring arguments
printed=$(${OVANT_EMULATOR:-} "$1")
[ $# = 1 ] || diff "$2" - <<<"$printed"
