#!/usr/bin/env bash
# Each public header compiles alone, without a warning, in each language and by each compiler that we support; what
# obeys a macro, with each of its values.
set -euo pipefail
cd "$(dirname "$0")/../include"

jobs_of() { # jobs_of HEADER LANGUAGES FLAGS...: a line for each way to compile it; FLAGS are alternatives
    local language flag compiler
    for language in $2; do
        for flag in "${@:3}"; do
            for compiler in gcc clang; do
                echo "$compiler -x ${language//[0-9a-b]*/} -std=$language $flag -include $1"
            done
        done
    done
}

{
    jobs_of ovant.h 'c99 c11 c++17 c++20' ''
    jobs_of ovant_idioms.h 'c99 c11 c++17 c++20' '' -DOVANT_NO_SHORT_NAMES
    for header in ovant/engine/*.hpp; do
        jobs_of "$header" 'c++20 c++2b' ''
    done
    for header in ovant.hpp ovant/*.hpp ovant/typed/*.hpp; do
        jobs_of "$header" 'c++20 c++2b' -DOVANT_CHECKS=0 -DOVANT_CHECKS=1
    done
} | xargs -P "$(nproc)" -I ARGUMENTS sh -c '
    ARGUMENTS -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -fsyntax-only -I. /dev/null ||
        { echo "not clean: ARGUMENTS" >&2; exit 1; }'
