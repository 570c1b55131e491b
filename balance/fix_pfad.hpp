// A change of height carried up a path: growth by a level, and any loss.
#pragma once

#include "balance/deep.hpp"

namespace ovant {

// The subtree at top is new, one level higher than what was there.  Every level node above it leans from now on and is
// higher too; the first node that leans already absorbs the growth, with a turn if it leaned the same way.  Returns 1
// only if the growth has passed bottom.
template <class Nodes> Change grow(Nodes nodes, Entry *bottom, Entry *top) {
    if (top == bottom)
        return 1;
    Entry *q = top - 1;
    nodes.hang(side_of(q->Dir), q->Node, top->Node);
    int balance;
    while ((balance = nodes.balance(q->Node)) == 0) {
        nodes.set_balance(q->Node, q->Dir);
        if (q == bottom)
            return 1;
        --q;
    }
    nodes.set_balance(q->Node, balance + q->Dir);
    if (balance + q->Dir == 0)
        return 0;
    Node cursor = q->Node;
    const Change change = 1 + repair(nodes, q, &q->Node, &cursor);
    if (q != bottom)
        nodes.hang(side_of(q[-1].Dir), q[-1].Node, q->Node);
    return change;
}

// The subtree at top has lost any number of levels, or none but has another root.  At the head of the loop the entry at
// top holds that subtree and change is its new height minus its old one; every balance below top is still the old one.
// The child link is written from the entry above: that makes an entry the place at which a turn delivers a new root.
// The walk ends at the first level that absorbs the loss under its old root.  dir_of(entry) is the way that the path
// takes there: the entry's Dir, or a constant along a spine.
template <class Nodes, class DirOf> Change shrink(Nodes nodes, Entry *bottom, Entry *top, Change change, DirOf dir_of) {
    for (; top != bottom; --top) {
        Entry *const q = top - 1;
        const Node n = q->Node;
        const int dir = dir_of(q);
        nodes.hang(side_of(dir), n, top->Node);
        if (change == 0)
            return 0;
        const int lean = dir * nodes.balance(n); // above 0: the side that shrank was the higher one
        const int rest = lean + change;
        nodes.set_balance(n, dir * rest);
        // n loses a level only with its higher side, and then just one, however many that side lost: the sibling holds
        // the height.
        change = lean > 0 ? -1 : 0;
        if (rest < -1) {
            Node cursor = n;
            change += repair(nodes, q, &q->Node, &cursor);
        } else if (change == 0) {
            return 0;
        }
    }
    return change;
}

// Afterwards the Node of bottom is the root of the repaired tree.  Returns the change of its height.
template <class Nodes> Change fix_pfad(Nodes nodes, Entry *bottom, Entry *top, Change change) {
    return change > 0 ? grow(nodes, bottom, top)
                      : shrink(nodes, bottom, top, change, [](const Entry *q) { return q->Dir; });
}

// A loss along a spine: every step went to S, and no Dir is read.
template <Side S, class Nodes> Change shrink_spine(Nodes nodes, Entry *bottom, Entry *top, Change change) {
    return shrink(nodes, bottom, top, change, [](const Entry *) { return sign(S); });
}

} // namespace ovant
