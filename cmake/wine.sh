#!/usr/bin/env bash
# wine.sh BUILD_FOLDER PROGRAM ARGUMENT...: runs a Windows program in a Wine prefix of the build folder's own, where it
# finds ovantlib.dll and the compiler's libraries.  Its standard output comes with plain line ends.
set -o pipefail
export WINEPREFIX=$1/wine WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='
WINEPATH=$1$(printf ';%s' /usr/lib/gcc/x86_64-w64-mingw32/*-posix /usr/x86_64-w64-mingw32/lib)
export WINEPATH
PATH=$PATH:/usr/lib/wine
program=$2
[ -e "$program" ] || program+=.exe
# One server stays for all programs, and a minute longer: where it ends with the last of them, it turns away the one
# that comes just then.  A second server finds the first and leaves at once, with an exit status.
mkdir -p "$WINEPREFIX"
wineserver -p60 &>/dev/null
# Wine leaves services behind that hold on to what the first program writes to, so that is no pipe that somebody reads
# to its end.
written=$(mktemp -d)
trap 'cat "$written/err" >&2; tr -d "\r" <"$written/out"; rm -rf "$written"' EXIT
wine64 "$program" "${@:3}" >"$written/out" 2>"$written/err"
