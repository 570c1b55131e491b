#!/usr/bin/env bash
# Builds and runs hosts against an installed library and against the sources, in every way that a host may find it.
#   check.sh PREFIX WORK_FOLDER
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
prefix=$(realpath "$1") work=$(realpath -m "$2")

by_cmake() { # by_cmake NAME CMAKE_ARGUMENTS
    echo "-- a CMake host: $1"
    cmake -G Ninja -S "$here" -B "$work/$1" "${@:2}" >"$work/$1.log" || { cat "$work/$1.log"; return 1; }
    cmake --build "$work/$1" >>"$work/$1.log" || { cat "$work/$1.log"; return 1; }
    ctest --test-dir "$work/$1" --output-on-failure | tail -n 4
}

mkdir -p "$work"
by_cmake installed "-DCMAKE_PREFIX_PATH=$prefix"
by_cmake installed-c "-DCMAKE_PREFIX_PATH=$prefix" -DHOST_LANGUAGES=C
by_cmake subfolder "-DOVANT_SOURCE=$here/../.."
by_cmake subfolder-c "-DOVANT_SOURCE=$here/../.." -DHOST_LANGUAGES=C

echo "-- pkg-config"
pc=$(find "$prefix" -name ovant.pc)
PKG_CONFIG_PATH=$(dirname "$pc")
export PKG_CONFIG_PATH LD_LIBRARY_PATH
LD_LIBRARY_PATH=$(pkg-config --variable=libdir ovant)
[ "$(pkg-config --modversion ovant)" = 1.3.0 ]

by_pkgconfig() { # by_pkgconfig PACKAGE SOURCE COMPILER...
    local flags
    read -ra flags <<<"$(pkg-config --cflags --libs "$1")"
    "${@:3}" -Wall -Wextra -Wpedantic -Werror "$here/../../examples/$2" "${flags[@]}" -o "$work/$1-$2.program"
}
by_pkgconfig ovant phonebook.c cc -std=c99
by_pkgconfig ovant counting.cpp c++ -std=c++20
by_pkgconfig ovant-headers expiry.cpp c++ -std=c++20
"$work/ovant-phonebook.c.program" >/dev/null
[ "$(echo b a b | "$work/ovant-counting.cpp.program")" = $'2 b\n1 a' ]
LD_LIBRARY_PATH='' "$work/ovant-headers-expiry.cpp.program" >/dev/null
in_gdb() { # in_gdb COMMAND: in the program, once it has loaded the library
    gdb -nx -batch -iex "add-auto-load-safe-path $prefix" -ex 'break main' -ex run -ex "$1" \
        "$work/ovant-phonebook.c.program" 2>/dev/null
}
if [[ $(in_gdb 'print 6 * 7') == *'= 42' ]]; then
    [[ $(in_gdb 'help ovant') == *'ovant draw'* ]]
else
    echo "-- no gdb that runs programs: its commands were not looked for"
fi
echo "-- all hosts build and run"
