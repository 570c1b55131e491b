#!/usr/bin/env bash
# The first error of a wrong program says what is wrong with it.
#   errors.sh SOURCE_FOLDER COMPILER
set -euo pipefail
source=$1 compiler=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

# wrong EXPECTED CODE: CODE does not compile, and the first error matches EXPECTED.
wrong() {
    printf '%s\n' '#include <ovant.hpp>' \
        'struct Item { ovant::link link; int key; };' \
        'using Set = ovant::set<&Item::link, &Item::key>;' \
        'using Multiset = ovant::multiset<&Item::link, &Item::key>;' \
        '#line 1' "$2" >"$work/wrong.cpp"
    if LC_ALL=C "$compiler" -std=c++20 -I"$source/include" -fsyntax-only "$work/wrong.cpp" >"$work/log" 2>&1; then
        echo "errors: compiles: $2" >&2
        failed=1
        return
    fi
    local first
    first=$(grep -m 1 error "$work/log")
    grep -qE "$1" <<<"$first" || { printf 'errors: %s\n        gives: %s\n' "$2" "$first" >&2; failed=1; }
}

wrong 'ovant: the first argument is a pointer to a member of type ovant::link' \
    'ovant::set<&Item::key, &Item::key> tree;'
wrong 'ovant: the link and the key are members of unrelated classes' \
    'struct Other { int key; }; ovant::set<&Item::link, &Other::key> tree;'
wrong 'ovant: the key is a member of the record' \
    'struct Other { int key; }; int of(const Other &x) { return x.key; } ovant::set<&Item::link, of> tree;'
wrong 'ovant: the comparator does not take two keys' \
    'struct Compare { bool operator()(const char *, const char *) const; };
     ovant::set<&Item::link, &Item::key, Compare> tree;'
wrong 'ovant: .*wants keys that have <=> and ==' \
    'struct Plain {}; struct Record { ovant::link link; Plain key; }; ovant::set<&Record::link, &Record::key> tree;'
# Of a key of several parts one wrong part is enough.
wrong 'ovant: the key is a member of the record' \
    'struct Other { int key; }; int of(const Other &x) { return x.key; }
     ovant::set<&Item::link, ovant::keys<&Item::key, of>> tree;'
wrong 'ovant: .*wants keys that have <=> and ==' \
    'struct Plain {}; struct Record { ovant::link link; int key; Plain plain; };
     ovant::set<&Record::link, ovant::keys<&Record::key, &Record::plain>> tree;'
wrong 'ovant: the comparator does not take what is sought' 'auto found(Set &tree) { return tree.find("x"); }'
wrong 'ovant: the comparator does not take what is sought' 'auto gone(Multiset &tree) { return tree.erase("x"); }'
# A compiler that cannot give the reason of a deleted function shows the function.
wrong 'ovant: a record is linked where it is|deleted function .*insert\(const ' \
    'void in(Set &tree, const Item &item) { tree.insert(item); }'
wrong 'ovant: a record is linked where it is|deleted function .*insert\(const ' \
    'void in(Multiset &tree) { tree.insert(Item()); }'
wrong 'ovant: insert_or_replace is for sets|deleted function .*insert_or_replace.*requires !\(Traits::unique' \
    'void in(Multiset &tree, Item &item) { tree.insert_or_replace(item); }'
wrong 'ovant: insert_front is for multisets|deleted function .*insert_front.*requires *Traits::unique' \
    'void in(Set &tree, Item &item) { tree.insert_front(item); }'
wrong 'cop(y|ies)|deleted function .*ordered\(const ' 'Set twice(const Set &tree) { return tree; }'
exit $failed
