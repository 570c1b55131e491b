// One side of a boundary path swept away and the other rebuilt: a split that builds a single half.
#pragma once

#include "navigate/sweep.hpp"
#include "range/split.hpp"

namespace ovant {

// How nodes go.  A whole subtree need not be visited for a handler that does nothing with a node: then a deletion costs
// no more than a cut.
struct Killer {
    void (*kill)(void *node, void *context);
    void *context;

    void operator()(Node n) const { kill(n, context); }
    template <class Nodes> void below(Nodes nodes, Entry *first, Node root) const {
        if (kill != AVL_Kill_Ret)
            sweep(nodes, first, root, *this);
    }
};

// S: the Dir at the nodes that stay, left where the part after the boundary stays.  Every other node of the path goes,
// with its subtree on S: the subtree first, then the node.  The entries above the one at hand are free for the sweep.
// DIR_HERE does not belong on a boundary path: on_here is told before anything of that entry goes.
template <Side S, class Nodes, class OnHere>
void drop(Nodes nodes, Entry *bottom, Entry *top, Half &kept, Killer kill, OnHere on_here) {
    if (!top->Node)
        return;
    for (Entry *e = top + 1; e != bottom;) {
        --e;
        const Node n = e->Node;
        if (e->Dir == sign(S)) {
            keep<S>(nodes, e, n, kept);
            continue;
        }
        if (e->Dir == DIR_HERE)
            on_here();
        miss<!S>(nodes, n, kept);
        kill.below(nodes, e + 1, nodes.template child<S>(n));
        kill(n);
    }
}

} // namespace ovant
