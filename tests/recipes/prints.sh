#!/usr/bin/env bash
# prints.sh PROGRAM SOURCE: the program succeeds and prints what the comment "prints" of its source holds.  Without such
# a comment success is enough.
set -euo pipefail
# shellcheck disable=SC2086 # an emulator may bring arguments
printed=$(${OVANT_EMULATOR:-} "$1")
! grep -qx '/\* prints' "$2" || diff <(sed -n '\:^/\* prints$:,\:^\*/$:{//!p}' "$2") - <<<"$printed"
