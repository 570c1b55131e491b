// One side of a boundary path swept away and the other rebuilt: a split that builds a single half.
#pragma once

#include "split.hpp"
#include "sweep.hpp"

namespace ovant::engine {

// S: the Dir at the nodes that stay, left where the part after the boundary stays.  Every other node of the path goes,
// with its subtree on S: the subtree first, by kill.below(nodes, free entries, root), then the node, by kill(node).
// The entries above the one at hand are free for the sweep.  A Dir that is no side is reported before anything of that
// entry goes.
template <Side S, class Nodes, class Entry, class Kill, class Report>
Half drop(Nodes nodes, Entry *bottom, Entry *top, Kill kill, Report report) {
    Half kept;
    if (!top->Node)
        return kept;
    for (Entry *e = top + 1; e != bottom;) {
        --e;
        const Node n = e->Node;
        if (e->Dir == sign(S)) {
            keep<S>(nodes, e, n, kept);
            continue;
        }
        if (e->Dir == 0)
            report.dir_here();
        miss<!S>(nodes, n, kept);
        kill.below(nodes, e + 1, nodes.template child<S>(n));
        kill(n);
    }
    return kept;
}

} // namespace ovant::engine
