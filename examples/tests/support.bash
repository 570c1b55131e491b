# What the checks of the examples share.  Each script gets the build folder as its argument.
set -u
build=${1:?usage: $0 BUILD_FOLDER}
build=$(cd "$build" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
failed=0

# Runs a program of the build folder, through an emulator where one is needed.
program() {
    local name=$1
    shift
    # shellcheck disable=SC2086 # the emulator may bring arguments
    ${OVANT_EMULATOR:-} "$build/examples/$name" "$@"
}
logwindow() { program logwindow "$@"; }

finish() { exit "$failed"; }

# same WHAT EXPECTED ACTUAL, whatever a line ends in
same() {
    [ "$2" = "${3//$'\r'/}" ] && return
    failed=1
    printf 'wrong: %s\n' "$1"
    diff <(printf '%s\n' "$2") <(printf '%s\n' "$3") | sed 's/^/    /'
}

# refuses STATUS PATTERN ARGUMENT...: that exit status, and exactly one line on standard error, which matches.
# What logwindow wrote to standard output is in the file out afterwards.
refuses() {
    local status=$1 pattern=$2 got
    shift 2
    logwindow "$@" >out 2>err
    got=$?
    if [ "$got" != "$status" ] || [ "$(wc -l <err)" != 1 ] || ! grep -Eq "^logwindow: $pattern" err; then
        failed=1
        printf 'wrong: logwindow %s: exit status %s, wanted %s and one line: %s\n' "$*" "$got" "$status" "$pattern"
        sed 's/^/    /' err
    fi
}
