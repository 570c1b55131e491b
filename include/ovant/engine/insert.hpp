// How a new node comes in.
#pragma once

#include "climb.hpp"

namespace ovant::engine {

// A trail of insertions, after D. E. Knuth, The Art of Computer Programming, volume 3, algorithm 6.2.3A: no path is
// kept but the way, and of the nodes only the deepest one that leans.  Everything that insertion changes lies below it:
// the level nodes there lean from then on, and it absorbs the growth.
template <class Nodes> struct InsertTrail {
    Nodes nodes;
    signed char *end;   // behind the last turn of the way, which the caller has room for
    Node match = {};    // where the descent stopped; 0 if it fell off
    Node at = {};       // the last node met
    Node leaning = {};  // the deepest node that leans,
    Node above = {};    // its parent,
    signed char *below; // and the way from it on
    Node marked = {};

    InsertTrail(Nodes n, signed char *way) : nodes(n), end(way), below(way) {}

    void enter(Node n) {
        match = n;
        if (!n)
            return;
        const int leans = opaque(nodes.balance(n) != 0);
        above = select(leans != 0, at, above);
        leaning = select(leans != 0, n, leaning);
        below = select(leans != 0, end, below);
        at = n;
    }
    void turn(bool left) { *end++ = static_cast<signed char>(sign(Side::right) - 2 * opaque(left)); }
    void expect(Node left, Node right) {
        __builtin_prefetch(left);
        __builtin_prefetch(right);
    }
    void mark_if(bool condition) { marked = select(opaque(condition) != 0, at, marked); }
};

// Links the node in where the descent fell off.  Returns the root.
template <class Nodes> Node link_in(const InsertTrail<Nodes> &trail, Node root, Node node) {
    const Nodes nodes = trail.nodes;
    write_links(nodes, node, {nullptr, nullptr, 0});
    if (!trail.at)
        return node;
    nodes.hang(side_of(trail.end[-1]), trail.at, node);

    const signed char *way = trail.below;
    for (Node n = trail.leaning ? nodes.child(side_of(*way++), trail.leaning) : root; n != node;
         n = nodes.child(side_of(*way++), n))
        nodes.set_balance(n, *way);
    if (!trail.leaning)
        return root;
    const int dir = *trail.below, balance = nodes.balance(trail.leaning) + dir;
    nodes.set_balance(trail.leaning, balance);
    if (balance == 0)
        return root;
    Node top = trail.leaning, cursor = top;
    if (dir < 0)
        turn<Side::left>(nodes, &top, &cursor);
    else
        turn<Side::right>(nodes, &top, &cursor);
    if (!trail.above)
        return top;
    nodes.hang(side_of(trail.below[-1]), trail.above, top);
    return root;
}

} // namespace ovant::engine
