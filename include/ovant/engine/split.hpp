// A tree cut along a boundary path, from the top entry down.  Height accounting instead of measuring: at every entry
// each side knows its height minus the height that the subtree of that entry had before the cut.
#pragma once

#include "repair.hpp"

namespace ovant::engine {

// Damage that an operation on a range meets is told to a report; this one keeps it to itself.
struct NoReport {
    void dir_here() const {}      // a boundary path with a node that it ends at
    void wrong_balance() const {} // a saved balance outside -1, 0, +1
};

// What has been gathered on one side of the boundary so far.
struct Half {
    Node root = nullptr;
    Change change = 0;
};
struct Halves {
    Half before, after;
};

// A node that the path leaves towards S joins its half, with the subtree away from S: what the half held so far becomes
// its child on S.  While the half has lost nothing, that child is as high as the old one and nothing is to be done.
template <Side S, class Nodes, class Entry> void keep(Nodes nodes, Entry *work, Node n, Half &half) {
    nodes.template hang<S>(n, half.root);
    nodes.refresh(n);
    half.root = n;
    if (half.change == 0)
        return;
    const int lean = nodes.template lean<S>(n);
    nodes.template set_lean<S>(n, lean + half.change);
    const Turned turned = repair(nodes, work, n);
    half = {turned.root, turned.change - (lean > 0 ? 1 : 0)};
}

// The other half gains nothing from that node, but is now measured against a higher subtree: by two levels if the
// child on S was the lower one.
template <Side S, class Nodes> void miss(Nodes nodes, Node n, Half &half) {
    half.change -= nodes.template lean<S>(n) < 0 ? 2 : 1;
}

// Goes on with what has been gathered at top, down to bottom.  A node whose Dir is no side goes to the before half.
template <class Nodes, class Entry, class Report = NoReport>
Halves split_on(Nodes nodes, Entry *bottom, Entry *top, Halves halves, Report report = {}) {
    auto [before, after] = halves;
    for (Entry *e = top; e != bottom;) {
        --e;
        const Node n = e->Node;
        if (e->Dir == sign(Side::left)) {
            miss<Side::left>(nodes, n, before);
            keep<Side::left>(nodes, e + 1, n, after);
        } else {
            if (e->Dir == 0)
                report.dir_here();
            miss<Side::right>(nodes, n, after);
            keep<Side::right>(nodes, e + 1, n, before);
        }
    }
    return {before, after};
}

// Makes two sound trees of the subtree that hangs at bottom; top is the last entry with a node.
template <class Nodes, class Entry, class Report = NoReport>
Halves split(Nodes nodes, Entry *bottom, Entry *top, Report report = {}) {
    return top->Node ? split_on(nodes, bottom, top + 1, {}, report) : Halves();
}

// The same of a path to an empty link, or to a node that leaves.
template <class Nodes, class Entry> Halves split_around(Nodes nodes, Entry *bottom, Entry *top) {
    Halves sides;
    if (const Node n = top->Node)
        sides = {{nodes.template child<Side::left>(n), nodes.balance(n) > 0 ? -2 : -1},
                 {nodes.template child<Side::right>(n), nodes.balance(n) < 0 ? -2 : -1}};
    return split_on(nodes, bottom, top, sides);
}

} // namespace ovant::engine
