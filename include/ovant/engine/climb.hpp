// A change of height carried up a path: growth by a level, and any loss.
#pragma once

#include "repair.hpp"

namespace ovant::engine {

// A climb may tell somebody who holds the whole path of each turn: at is the entry whose Node is now the root that the
// turn has put above or in place of a.  Nobody listens as a rule.
struct Unfollowed {
    template <class Entry> void turned(Entry *, Node) const {}
};

// A node above a subtree that has got so many nodes more, or less: its summary, where that is a count without a look at
// the other child.
template <class Nodes> void uplift(Nodes nodes, Node n, [[maybe_unused]] std::ptrdiff_t added) {
    if constexpr (Nodes::counts_alone)
        nodes.add(n, added);
    else
        nodes.refresh(n);
}
// All nodes below the entry top.
template <class Nodes, class Entry>
void uplift_all(Nodes nodes, Entry *bottom, Entry *top, [[maybe_unused]] std::ptrdiff_t added) {
    if constexpr (Nodes::summarises)
        while (top != bottom)
            uplift(nodes, (--top)->Node, added);
}

// The subtree at top is one level higher than what was there.  Every level node above it leans from now on and is
// higher too; the first node that leans already absorbs the growth, with a turn if it leaned the same way.  (A turn
// around a level child, which no insertion gives, absorbs nothing, and the climb goes on.)  Returns 1 if the growth has
// passed bottom, else 0.
template <class Nodes, class Entry, class Follow = Unfollowed>
Change grow(Nodes nodes, Entry *bottom, Entry *top, Follow follow = {}, std::ptrdiff_t added = 1) {
    Change change = 1;
    while (change != 0 && top != bottom) {
        Entry *q = top - 1;
        nodes.hang(side_of(q->Dir), q->Node, top->Node);
        uplift(nodes, q->Node, added);
        while (nodes.balance(q->Node) == 0) {
            nodes.set_balance(q->Node, q->Dir);
            if (q == bottom)
                return 1;
            --q;
            uplift(nodes, q->Node, added);
        }
        const Node leaning = q->Node;
        const int balance = nodes.balance(leaning) + q->Dir;
        nodes.set_balance(leaning, balance);
        if (balance == 0) {
            uplift_all(nodes, bottom, q, added);
            return 0;
        }
        const Turned turned = repair(nodes, q, leaning);
        q->Node = turned.root;
        change += turned.change;
        follow.turned(q, leaning);
        top = q;
    }
    if (top != bottom) // the new root that the turn delivered
        nodes.hang(side_of(top[-1].Dir), top[-1].Node, top->Node);
    uplift_all(nodes, bottom, top, added);
    return change;
}

// The subtree at top has lost any number of levels, or none but has another root.  At the head of the loop the entry at
// top holds that subtree and change is its new height minus its old one; every balance below top is still the old one.
// The child link is written from the entry above: that makes an entry the place at which a turn delivers a new root.
// The walk ends at the first level that absorbs the loss under its old root.  dir_of(entry) is the way that the path
// takes there: the entry's Dir, or a constant along a spine.
template <class Nodes, class Entry, class DirOf, class Follow = Unfollowed>
Change shrink(Nodes nodes, Entry *bottom, Entry *top, Change change, DirOf dir_of, Follow follow = {},
              std::ptrdiff_t added = -1) {
    for (; top != bottom; --top) {
        Entry *const q = top - 1;
        const Node n = q->Node;
        const int dir = dir_of(q);
        nodes.hang(side_of(dir), n, top->Node);
        if (change == 0) {
            uplift_all(nodes, bottom, top, added);
            return 0;
        }
        const int lean = dir * nodes.balance(n); // above 0: the side that shrank was the higher one
        const int rest = lean + change;
        nodes.set_balance(n, dir * rest);
        uplift(nodes, n, added);
        // n loses a level only with its higher side, and then just one, however many that side lost: the sibling holds
        // the height.
        change = lean > 0 ? -1 : 0;
        if (rest < -1) {
            const Turned turned = repair(nodes, q, n);
            q->Node = turned.root;
            change += turned.change;
            follow.turned(q, n);
        } else if (change == 0) {
            uplift_all(nodes, bottom, q, added);
            return 0;
        }
    }
    return change;
}

// The way that the entry says.
inline constexpr auto own_dir = [](const auto *entry) { return entry->Dir; };

// Afterwards the Node of bottom is the root of the repaired tree.  Returns the change of its height.
template <class Nodes, class Entry> Change fix_pfad(Nodes nodes, Entry *bottom, Entry *top, Change change) {
    std::ptrdiff_t added = 0;
    if constexpr (Nodes::counts_alone)
        if (top != bottom) {
            const Node n = top[-1].Node, other = nodes.child(!side_of(top[-1].Dir), n);
            const std::size_t now = nodes.summary(top->Node) + std::size_t{1} + nodes.summary(other);
            added = static_cast<std::ptrdiff_t>(now - nodes.summary(n));
        }
    return change > 0 ? grow(nodes, bottom, top, Unfollowed(), added)
                      : shrink(nodes, bottom, top, change, own_dir, Unfollowed(), added);
}

// A loss along a spine: every step went to S, and no Dir is read.
template <Side S, class Nodes, class Entry>
Change shrink_spine(Nodes nodes, Entry *bottom, Entry *top, Change change, std::ptrdiff_t added) {
    return shrink(
        nodes, bottom, top, change, [](const Entry *) { return sign(S); }, Unfollowed(), added);
}

} // namespace ovant::engine
