#!/usr/bin/env bash
# tests/planted_faults.sh: does the suite notice?  Applies one small fault after the other to a copy of the engine
# and of the rooms above it and runs their tests against it.  Fails where a fault goes unnoticed.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

# room/file, and what sed does to it
faults='
include/ovant/engine/turn.hpp      s/lean_a - 1 - lean_b/lean_a - 2/
include/ovant/engine/turn.hpp      s/return -lean_b;/return -1;/
include/ovant/engine/turn.hpp      s/lean_d > 0 ? 3 : 2/2/
include/ovant/engine/turn.hpp      s/ && rest_a >= 0//
include/ovant/engine/turn.hpp      s/lean_d < 0 ? 1 : 0/0/
include/ovant/engine/repair.hpp    s/nodes.template hang<!H>(w, child);//
include/ovant/engine/repair.hpp    s/lean == 2 ? turn<H>(nodes, &w, cursor) : lean - 1/lean - 1/
include/ovant/engine/repair.hpp    s/change += level->Dir;//
include/ovant/engine/repair.hpp    s/lean<H>(w) > 1/lean<H>(w) > 0/
include/ovant/engine/climb.hpp     s/return 1;$/return 0;/
include/ovant/engine/climb.hpp     s/nodes.hang(side_of(q->Dir), q->Node, top->Node);//
include/ovant/engine/climb.hpp     s/nodes.hang(side_of(top.-1..Dir), top.-1..Node, top->Node)/;/
include/ovant/engine/climb.hpp     s/while (change != 0 && top != bottom)/if (top != bottom)/
include/ovant/engine/climb.hpp     s/change = lean > 0 ? -1 : 0/change = -1/
include/ovant/engine/climb.hpp     s/rest < -1/rest < -2/
include/ovant/engine/climb.hpp     s/} else if (change == 0) {/}if (change == 0) {/
include/ovant/engine/remove.hpp    s/return was_level ? 0 : change/return change/
include/ovant/engine/remove.hpp    s/top->Node = stays ? stays : inner/top->Node = inner/
include/ovant/engine/remove.hpp    s/stays ? 0 : -1/-1/
include/ovant/engine/remove.hpp    s/saved.add_lean<H>([*]change);//
include/ovant/engine/remove.hpp    s/saved.balance < 0 ? close_gap/saved.balance <= 0 ? close_gap/
c/update/remove.cpp                s/tree->Root = tree->Stack->Node/tree->Root = top->Node/
c/update/remove.cpp                s/Free(node, key, context)/Free(node, nullptr, context)/
c/update/remove.cpp                s/const Change change = /saved = read_links(nodes, node); &/
c/update/extreme.cpp               s/DelMin(\(.*\)<Side::left>/DelMin(\1<Side::right>/
include/ovant/engine/split.hpp     s/ - (lean > 0 ? 1 : 0)//
include/ovant/engine/split.hpp     s/nodes.template lean<S>(n) < 0 ? 2 : 1/1/
include/ovant/engine/drop.hpp      s/miss<!S>(nodes, n, kept);//
include/ovant/engine/drop.hpp      s/if (e->Dir == 0)/if (false)/
include/ovant/engine/drop.hpp      s/kill.below(nodes, e + 1.*/kill(n); &/;s/^        kill(n);$//
c/range/kill.hpp                   s/kill_ != AVL_Kill_Ret/kill_ == AVL_Kill_Ret/
c/range/steps.cpp                  s/below(Nodes(tree), first,/below(Nodes(tree), first + 2,/
include/ovant/engine/join.hpp      s/gone.balance < 0 || !gone.right/gone.balance <= 0 || !gone.right/
include/ovant/engine/join.hpp      s/gone.left && (gone.balance < 0 || !gone.right)/gone.balance < 0/
include/ovant/engine/join.hpp      s/-= gone.balance == 0 ? 0 : 1/-= 0/
include/ovant/engine/join.hpp      s/(from_left ? left : right) += cut_change;//
include/ovant/engine/join.hpp      s/return higher - 1/return -1/
include/ovant/engine/join.hpp      s/height(nodes, other) - height(nodes, root)/0/
include/ovant/engine/between.hpp   s/outer.balance + in_right.before.change - in_left.after.change/outer.balance/
include/ovant/engine/between.hpp   s/outer.right = in_right.after.root;//
c/range/delete.cpp                 s/AVL_DelEqualGreater(tree, second/AVL_DelGreater(tree, second/
c/range/range_paths.cpp            s/pivot<Edge::front, Edge::front>/pivot<Edge::front, Edge::back>/
c/range/range_paths.cpp            s/top == start ? start : top - 1/top - 1/
'

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
compile() { # TREE OUTPUT SOURCE...
    local tree=$1 out=$2
    shift 2
    mkdir -p "$out"
    (cd "$out" && c++ -std=c++20 -O1 -w -I"$tree/c" -I"$tree/include" -I"$OLDPWD/tests" -c "$@") 2>"$work/log"
}
suite() { # OBJECTS...: links, and runs the tests until one fails
    c++ "$work"/sound/tests/*.o "$@" -lgtest -lgtest_main -lpthread -o "$work/suite" &&
        (ulimit -c 0 -v 8000000 && timeout 60 "$work/suite" --gtest_fail_fast --gtest_brief=1; exit $?) \
        >"$work/log" 2>&1
}

echo 'Building the tests and the sound rooms'
compile "$PWD" "$work/sound/tests" "$PWD"/tests/{balance,removal,range}_test.cpp \
    "$PWD"/c/{platform,frame,compare,navigate,diagnostics}/*.cpp
compile "$PWD" "$work/sound/rooms" "$PWD"/c/{balance,update,range}/*.cpp
suite "$work"/sound/rooms/*.o ||
    { cat "$work/log" >&2; echo 'planted_faults: the suite fails without any fault' >&2; exit 1; }

unnoticed=0
while read -r file change; do
    [ -n "$file" ] || continue
    rm -rf "$work/faulty"
    mkdir "$work/faulty"
    cp -r c include "$work/faulty"
    sed -i "$change" "$work/faulty/$file"

    if cmp -s "$file" "$work/faulty/$file"; then
        verdict='STALE: nothing to change'
    elif ! compile "$work/faulty" "$work/faulty/rooms" "$work/faulty"/c/{balance,update,range}/*.cpp; then
        verdict='STALE: does not compile'
    elif suite "$work"/faulty/rooms/*.o; then
        verdict=UNNOTICED
    else
        by=$(sed -n 's/^\[  FAILED  \] \([A-Za-z.]*\).*/\1/p' "$work/log" | head -n 1)
        verdict="noticed by ${by:-a crash}"
    fi
    [[ $verdict == noticed* ]] || unnoticed=$((unnoticed + 1))
    printf '%-34s %-70s %s\n' "$file" "$change" "$verdict"
done <<<"$faults"

[ "$unnoticed" = 0 ] || { echo "planted_faults: $unnoticed not noticed" >&2; exit 1; }
echo 'Every fault was noticed.'
