#!/usr/bin/env bash
# tests/planted_faults.sh: does the suite notice?  Applies one small fault after the other to a copy of the rooms
# balance, update and range and runs the tests of these rooms against it.  Fails where a fault goes unnoticed.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

# room/file, and what sed does to it
faults='
balance/turn.hpp         s/lean_a - 1 - lean_b/lean_a - 2/
balance/turn.hpp         s/return -lean_b;/return -1;/
balance/turn.hpp         s/lean_d > 0 ? 3 : 2/2/
balance/turn.hpp         s/ && rest_a >= 0//
balance/turn.hpp         s/lean_d < 0 ? 1 : 0/0/
balance/deep.hpp         s/nodes.template hang<!H>(w, child);//
balance/deep.hpp         s/lean == 2 ? turn<H>(nodes, &w, cursor) : lean - 1/lean - 1/
balance/deep.hpp         s/change += level->Dir;//
balance/deep.hpp         s/lean<H>(w) > 1/lean<H>(w) > 0/
balance/fix_pfad.hpp     s/return 1;$/return 0;/
balance/fix_pfad.hpp     s/nodes.hang(side_of(q->Dir), q->Node, top->Node);//
balance/fix_pfad.hpp     s/nodes.hang(side_of(top.-1..Dir), top.-1..Node, top->Node)/;/
balance/fix_pfad.hpp     s/while (change != 0 && top != bottom)/if (top != bottom)/
balance/fix_pfad.hpp     s/change = lean > 0 ? -1 : 0/change = -1/
balance/fix_pfad.hpp     s/rest < -1/rest < -2/
balance/fix_pfad.hpp     s/} else if (change == 0) {/}if (change == 0) {/
update/cut.hpp           s/return was_level ? 0 : change/return change/
update/cut.hpp           s/top->Node = stays ? stays : inner/top->Node = inner/
update/cut.hpp           s/stays ? 0 : -1/-1/
update/cut.hpp           s/saved.add_lean<H>([*]change);//
update/cut.hpp           s/saved.balance < 0 ? close_gap/saved.balance <= 0 ? close_gap/
update/cut.hpp           s/tree->Root = tree->Stack->Node/tree->Root = top->Node/
update/remove.cpp        s/Free(node, key, context)/Free(node, nullptr, context)/
update/remove.cpp        s/const Change change = /saved = read_links(nodes, node); &/
update/extreme.cpp       s/DelMin(\(.*\)<Side::left>/DelMin(\1<Side::right>/
range/split.hpp          s/ - (lean > 0 ? 1 : 0)//
range/split.hpp          s/nodes.template lean<S>(n) < 0 ? 2 : 1/1/
range/drop.hpp           s/miss<!S>(nodes, n, kept);//
range/drop.hpp           s/if (e->Dir == DIR_HERE)/if (false)/
range/drop.hpp           s/kill.below(nodes, e + 1.*/kill(n); &/;s/^        kill(n);$//
range/drop.hpp           s/kill != AVL_Kill_Ret/kill == AVL_Kill_Ret/
range/drop.cpp           s/below(Nodes(tree), first,/below(Nodes(tree), first + 2,/
range/join.hpp           s/gone.balance < 0 || !gone.right/gone.balance <= 0 || !gone.right/
range/join.hpp           s/gone.left && (gone.balance < 0 || !gone.right)/gone.balance < 0/
range/join.hpp           s/-= gone.balance == 0 ? 0 : 1/-= 0/
range/join.hpp           s/(from_left ? left : right) += cut_change;//
range/join.hpp           s/return std::max(left, right) - 1/return -1/
range/concat.cpp         s/height(nodes, other) - height(nodes, tree->Root)/0/
range/extract.cpp        s/outer.balance + inner_right - inner_left/outer.balance/
range/extract.cpp        s/outer.right = top->Node;//
range/delete.cpp         s/AVL_DelEqualGreater(tree, second/AVL_DelGreater(tree, second/
range/range_paths.cpp    s/RangeOrder<+1, 0>/RangeOrder<+1, -1>/
range/range_paths.cpp    s/top == start ? start : top - 1/top - 1/
'

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
compile() { # INCLUDES OUTPUT SOURCE...
    local includes=$1 out=$2
    shift 2
    mkdir -p "$out"
    (cd "$out" && c++ -std=c++20 -O1 -w -I"$includes" -I"$OLDPWD" -I"$OLDPWD/include" -I"$OLDPWD/tests" -c "$@") 2>"$work/log"
}
suite() { # OBJECTS...: links, and runs the tests until one fails
    c++ "$work"/sound/tests/*.o "$@" -lgtest -lgtest_main -lpthread -o "$work/suite" &&
        (ulimit -c 0 -v 8000000 && timeout 60 "$work/suite" --gtest_fail_fast --gtest_brief=1; exit $?) \
        >"$work/log" 2>&1
}

echo 'Building the tests and the sound rooms'
compile "$PWD" "$work/sound/tests" "$PWD"/tests/{balance,removal,range}_test.cpp \
    "$PWD"/{platform,frame,compare,navigate,diagnostics}/*.cpp
for room in balance update range; do
    compile "$PWD" "$work/sound/$room" "$PWD/$room"/*.cpp
done
suite "$work"/sound/{balance,update,range}/*.o ||
    { cat "$work/log" >&2; echo 'planted_faults: the suite fails without any fault' >&2; exit 1; }

unnoticed=0
while read -r file change; do
    [ -n "$file" ] || continue
    rm -rf "$work/faulty"
    mkdir "$work/faulty"
    cp -r balance update range "$work/faulty"
    sed -i "$change" "$work/faulty/$file"

    objects=() verdict='' # the rooms from the changed one on see the file
    for room in balance update range; do
        [ "${file%/*}" = "$room" ] && verdict=changed
        if [ "$verdict" ]; then
            compile "$work/faulty" "$work/faulty/$room" "$work/faulty/$room"/*.cpp || verdict='STALE: does not compile'
            objects+=("$work/faulty/$room"/*.o)
        else
            objects+=("$work/sound/$room"/*.o)
        fi
    done
    if cmp -s "$file" "$work/faulty/$file"; then
        verdict='STALE: nothing to change'
    elif [ "$verdict" = changed ]; then
        if suite "${objects[@]}"; then
            verdict=UNNOTICED
        else
            by=$(sed -n 's/^\[  FAILED  \] \([A-Za-z.]*\).*/\1/p' "$work/log" | head -n 1)
            verdict="noticed by ${by:-a crash}"
        fi
    fi
    [[ $verdict == noticed* ]] || unnoticed=$((unnoticed + 1))
    printf '%-22s %-70s %s\n' "$file" "$change" "$verdict"
done <<<"$faults"

[ "$unnoticed" = 0 ] || { echo "planted_faults: $unnoticed not noticed" >&2; exit 1; }
echo 'Every fault was noticed.'
