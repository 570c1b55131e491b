#!/usr/bin/env bash
# What the headers cost a compiler: user CPU time of -fsyntax-only beyond that of an empty file, by medians of
# alternating runs; ./dev bench --compile calls it.
#   compile.sh [ROUNDS]
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"

rounds=${1:-15}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

: >"$work/empty.cpp"
echo '#include <ovant.hpp>' >"$work/ovant-include.cpp"
echo '#include <boost/intrusive/avl_set.hpp>' >"$work/boost-include.cpp"
cat "$work/ovant-include.cpp" - >"$work/ovant-use.cpp" <<'TEXT'
struct Item { int key; ovant::link link; };
using Set = ovant::set<&Item::link, &Item::key>;
int main() {
    Item item{1, {}};
    Set set;
    set.insert(item);
    int sum = 0;
    for (const Item &x : set)
        sum += x.key;
    if (auto it = set.find(1); it != set.end())
        set.erase(it);
    return sum - 1;
}
TEXT
cat "$work/boost-include.cpp" - >"$work/boost-use.cpp" <<'TEXT'
struct Item : boost::intrusive::avl_set_base_hook<> {
    explicit Item(int k) : key(k) {}
    int key;
};
struct KeyOf {
    using type = int;
    const int &operator()(const Item &x) const { return x.key; }
};
using Set = boost::intrusive::avl_set<Item, boost::intrusive::key_of_value<KeyOf>>;
int main() {
    Item item(1);
    Set set;
    set.insert(item);
    int sum = 0;
    for (const Item &x : set)
        sum += x.key;
    if (auto it = set.find(1); it != set.end())
        set.erase(it);
    return sum - 1;
}
TEXT

TIMEFORMAT=%3U
for ((i = 0; i < rounds; ++i)); do
    for compiler in g++ clang++; do
        for program in empty {ovant,boost}-{include,use}; do
            { time "$compiler" -std=c++20 -I../include -fsyntax-only "$work/$program.cpp"; } 2>>"$work/$compiler.$program"
        done
    done
done

median() { sort -n "$1" | awk '{ v[NR] = $1 } END { print 500 * (v[int((NR + 1) / 2)] + v[int(NR / 2) + 1]) }'; }
printf '%-9s%-9s%9s%9s%8s\n' compiler what ovant avl_set ratio
for compiler in g++ clang++; do
    empty=$(median "$work/$compiler.empty")
    for what in include use; do
        ours=$(median "$work/$compiler.ovant-$what") theirs=$(median "$work/$compiler.boost-$what")
        awk -v c="$compiler" -v w="$what" -v a="$ours" -v b="$theirs" -v e="$empty" \
            'BEGIN { a -= e; b -= e; printf "%-9s%-9s%6.0f ms%6.0f ms%8.2f\n", c, w, a, b, a / b }'
    done
done
