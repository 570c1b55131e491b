// A change of height carried up a path: one loop for growth, for single removal and for a loss of many levels.
#pragma once

#include "balance/deep.hpp"

namespace ovant {

// At the head of the loop the entry at top holds the subtree that changed and change is its new height minus its old
// one; every balance below top is still the old one.  The child link is written on the way, from the entry above: that
// makes an entry the place at which a turn delivers a new root.  The walk ends at the first level that absorbs the
// change under its old root.  Returns the change of height at bottom, whose Node then is the root of the repaired tree.
//
// dir_of(entry) is the way that the path takes there: the entry's Dir, or a constant along a spine.
template <class Nodes, class DirOf>
Change fix_pfad(Nodes nodes, Entry *bottom, Entry *top, Change change, DirOf dir_of) {
    while (top != bottom) {
        Entry *const q = top - 1;
        const Node n = q->Node;
        const int dir = dir_of(q);
        nodes.hang(side_of(dir), n, top->Node);
        if (change == 0)
            return 0;
        const int lean = dir * nodes.balance(n); // above 0: the side that changed was the higher one
        nodes.set_balance(n, dir * (lean + change));

        // What the change is worth to n: growth counts unless the side was the lower one, loss only if it was the
        // higher one, and then just one level, however much the side lost: its sibling holds the height.
        change = change > 0 ? (lean >= 0 ? 1 : 0) : (lean > 0 ? -1 : 0);
        Node cursor = n;
        change += repair(nodes, q, &q->Node, &cursor);
        if (change == 0 && q->Node == n)
            return 0;
        top = q;
    }
    return change;
}

template <class Nodes> Change fix_pfad(Nodes nodes, Entry *bottom, Entry *top, Change change) {
    return fix_pfad(nodes, bottom, top, change, [](const Entry *q) { return q->Dir; });
}

// The same along a spine: every step went to S, and no Dir is read.
template <Side S, class Nodes> Change fix_spine(Nodes nodes, Entry *bottom, Entry *top, Change change) {
    return fix_pfad(nodes, bottom, top, change, [](const Entry *) { return sign(S); });
}

} // namespace ovant
