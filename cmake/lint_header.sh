#!/usr/bin/env bash
# The public header compiles alone, without a warning, in each language and by each compiler that we support.
set -euo pipefail
cd "$(dirname "$0")/../include"
failed=0
for language in c99 c11 c++17 c++20; do
    for family in gcc clang; do
        case $language:$family in
        c++*:gcc) compiler=(g++ -x c++) ;;
        c++*:clang) compiler=(clang++ -x c++) ;;
        *) compiler=("$family" -x c) ;;
        esac
        "${compiler[@]}" "-std=$language" -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -fsyntax-only \
            -include ovant.h /dev/null -I. || { echo "ovant.h: not clean as $language by ${compiler[0]}" >&2; failed=1; }
    done
done
exit $failed
