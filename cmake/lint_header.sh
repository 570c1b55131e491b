#!/usr/bin/env bash
# The public headers compile alone, without a warning, in each language and by each compiler that we support.
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
        for header in ovant.h ovant_idioms.h 'ovant_idioms.h -DOVANT_NO_SHORT_NAMES'; do
            read -ra include <<<"-include $header"
            "${compiler[@]}" "-std=$language" -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -fsyntax-only \
                "${include[@]}" /dev/null -I. || { echo "$header: not clean as $language by ${compiler[0]}" >&2; failed=1; }
        done
    done
done
exit $failed
