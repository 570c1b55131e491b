// A change of height carried up a path: growth by a level, and any loss.
#pragma once

#include "repair.hpp"

namespace ovant::engine {

// A climb may tell somebody who holds the whole path of each turn: at is the entry whose Node is now the root that the
// turn has put above or in place of a.  Nobody listens as a rule.
struct Unfollowed {
    template <class Entry> void turned(Entry *, Node) const {}
};

// The summaries of all nodes below the entry top are out of date.
template <class Nodes, class Entry> void refresh_up(Nodes nodes, Entry *bottom, Entry *top) {
    if constexpr (Nodes::summarises)
        while (top != bottom)
            nodes.refresh((--top)->Node);
}

// The subtree at top is one level higher than what was there.  Every level node above it leans from now on and is
// higher too; the first node that leans already absorbs the growth, with a turn if it leaned the same way.  (A turn
// around a level child, which no insertion gives, absorbs nothing, and the climb goes on.)  Returns 1 if the growth has
// passed bottom, else 0.
template <class Nodes, class Entry, class Follow = Unfollowed>
Change grow(Nodes nodes, Entry *bottom, Entry *top, Follow follow = {}) {
    Change change = 1;
    while (change != 0 && top != bottom) {
        Entry *q = top - 1;
        nodes.hang(side_of(q->Dir), q->Node, top->Node);
        nodes.refresh(q->Node);
        while (nodes.balance(q->Node) == 0) {
            nodes.set_balance(q->Node, q->Dir);
            if (q == bottom)
                return 1;
            --q;
            nodes.refresh(q->Node);
        }
        const Node leaning = q->Node;
        Node cursor = leaning;
        const int balance = nodes.balance(leaning) + q->Dir;
        nodes.set_balance(leaning, balance);
        if (balance == 0) {
            refresh_up(nodes, bottom, q);
            return 0;
        }
        change += repair(nodes, q, &q->Node, &cursor);
        follow.turned(q, leaning);
        top = q;
    }
    if (top != bottom) // the new root that the turn delivered
        nodes.hang(side_of(top[-1].Dir), top[-1].Node, top->Node);
    refresh_up(nodes, bottom, top);
    return change;
}

// The subtree at top has lost any number of levels, or none but has another root.  At the head of the loop the entry at
// top holds that subtree and change is its new height minus its old one; every balance below top is still the old one.
// The child link is written from the entry above: that makes an entry the place at which a turn delivers a new root.
// The walk ends at the first level that absorbs the loss under its old root.  dir_of(entry) is the way that the path
// takes there: the entry's Dir, or a constant along a spine.
template <class Nodes, class Entry, class DirOf, class Follow = Unfollowed>
Change shrink(Nodes nodes, Entry *bottom, Entry *top, Change change, DirOf dir_of, Follow follow = {}) {
    for (; top != bottom; --top) {
        Entry *const q = top - 1;
        const Node n = q->Node;
        const int dir = dir_of(q);
        nodes.hang(side_of(dir), n, top->Node);
        if (change == 0) {
            refresh_up(nodes, bottom, top);
            return 0;
        }
        const int lean = dir * nodes.balance(n); // above 0: the side that shrank was the higher one
        const int rest = lean + change;
        nodes.set_balance(n, dir * rest);
        nodes.refresh(n);
        // n loses a level only with its higher side, and then just one, however many that side lost: the sibling holds
        // the height.
        change = lean > 0 ? -1 : 0;
        if (rest < -1) {
            Node cursor = n;
            change += repair(nodes, q, &q->Node, &cursor);
            follow.turned(q, n);
        } else if (change == 0) {
            refresh_up(nodes, bottom, q);
            return 0;
        }
    }
    return change;
}

// The way that the entry says.
inline constexpr auto own_dir = [](const auto *entry) { return entry->Dir; };

// Afterwards the Node of bottom is the root of the repaired tree.  Returns the change of its height.
template <class Nodes, class Entry> Change fix_pfad(Nodes nodes, Entry *bottom, Entry *top, Change change) {
    return change > 0 ? grow(nodes, bottom, top) : shrink(nodes, bottom, top, change, own_dir);
}

// A loss along a spine: every step went to S, and no Dir is read.
template <Side S, class Nodes, class Entry> Change shrink_spine(Nodes nodes, Entry *bottom, Entry *top, Change change) {
    return shrink(nodes, bottom, top, change, [](const Entry *) { return sign(S); });
}

} // namespace ovant::engine
