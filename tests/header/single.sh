#!/usr/bin/env bash
# The single file stands alone, with and without exceptions and run-time type information.
#   single.sh SOURCE_FOLDER COMPILER
set -euo pipefail
source=$1 compiler=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$source/dev" single "$work/ovant.hpp"
for with in '' no-; do
    "$compiler" -std=c++20 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror "-f${with}exceptions" "-f${with}rtti" \
        -I"$work" "$source/examples/orderbook.cpp" -o "$work/program"
    "$work/program" >/dev/null
done
