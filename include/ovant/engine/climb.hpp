// A change of height carried up a path: growth by a new node, and any loss.
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

// The node that top holds is new there.  Every level node above it leans from now on and is higher too; the first node
// that leans already absorbs the growth, with a turn if it leaned the same way.
template <class Nodes, class Entry, class Follow = Unfollowed>
void grow(Nodes nodes, Entry *bottom, Entry *top, Follow follow = {}) {
    if (top == bottom)
        return;
    Entry *q = top - 1;
    nodes.hang(side_of(q->Dir), q->Node, top->Node);
    uplift(nodes, q->Node, 1);
    while (nodes.balance(q->Node) == 0) {
        nodes.set_balance(q->Node, q->Dir);
        if (q == bottom)
            return;
        --q;
        uplift(nodes, q->Node, 1);
    }
    const Node leaning = q->Node;
    const int balance = nodes.balance(leaning) + q->Dir;
    nodes.set_balance(leaning, balance);
    if (balance != 0) {
        q->Node = turn(nodes, side_of(q->Dir), leaning).root;
        follow.turned(q, leaning);
        if (q != bottom)
            nodes.hang(side_of(q[-1].Dir), q[-1].Node, q->Node);
    }
    uplift_all(nodes, bottom, q, 1);
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

// Such a loss, of any number of nodes too.  Afterwards the Node of bottom is the root of the repaired tree.
template <class Nodes, class Entry> void fix_pfad(Nodes nodes, Entry *bottom, Entry *top, Change change) {
    std::ptrdiff_t added = 0;
    if constexpr (Nodes::counts_alone)
        if (top != bottom) {
            const Node n = top[-1].Node, other = nodes.child(!side_of(top[-1].Dir), n);
            const std::size_t now = nodes.summary(top->Node) + std::size_t{1} + nodes.summary(other);
            added = static_cast<std::ptrdiff_t>(now - nodes.summary(n));
        }
    shrink(nodes, bottom, top, change, own_dir, Unfollowed(), added);
}

// A loss along a spine: every step went to S, and no Dir is read.
template <Side S, class Nodes, class Entry>
Change shrink_spine(Nodes nodes, Entry *bottom, Entry *top, Change change, std::ptrdiff_t added) {
    return shrink(
        nodes, bottom, top, change, [](const Entry *) { return sign(S); }, Unfollowed(), added);
}

} // namespace ovant::engine
