#!/usr/bin/env bash
# The single file stands alone, with and without exceptions and run-time type information.
#   single.sh SOURCE_FOLDER COMPILER
set -euo pipefail
source=$1 compiler=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$source/dev" single "$work/ovant.hpp"
cat >"$work/program.cpp" <<'TEXT'
#include "ovant.hpp"
struct Record { int key; ovant::link link; };
int main() {
    Record records[] = {{2, {}}, {1, {}}, {3, {}}};
    ovant::set<&Record::link, &Record::key> set;
    for (Record &x : records)
        set.insert(x);
    const auto most = set.extract(ovant::after(1), ovant::finish);
    return set.front().key == 1 && most.back().key == 3 && !set.contains(2) ? 0 : 1;
}
TEXT
for with in '' no-; do
    "$compiler" -std=c++20 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror "-f${with}exceptions" "-f${with}rtti" \
        "$work/program.cpp" -o "$work/program"
    "$work/program"
done
