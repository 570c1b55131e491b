// One side of a boundary path swept away and the other rebuilt: a split that builds a single half.
#pragma once

#include "navigate/sweep.hpp"
#include "range/split.hpp"

namespace ovant {

// S: the Dir at the nodes that stay, left where the part after the boundary stays.  Every other node of the path goes,
// with its subtree on S: the subtree first, then the node.  The entries above the one at hand are free for the sweep.
// DIR_HERE does not belong on a boundary path: on_here is told before anything of that entry goes.
template <Side S, class Nodes, class Kill, class OnHere>
void drop(Nodes nodes, Entry *bottom, Entry *top, Half &kept, Kill kill, OnHere on_here) {
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
        sweep(nodes, e + 1, nodes.template child<S>(n), kill);
        kill(n);
    }
}

} // namespace ovant
