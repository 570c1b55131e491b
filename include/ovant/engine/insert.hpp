// How a new node comes in at the end of a descent.
#pragma once

#include "climb.hpp"

namespace ovant::engine {

// After D. E. Knuth, The Art of Computer Programming, volume 3, algorithm 6.2.3A: everything that an insertion changes
// lies below the deepest node of the path that leans.  The level nodes there lean from now on, and it absorbs the
// growth, with a turn if it leaned the same way.

// Links in the node that top holds, at a free position.  leaning is the deepest entry of the path whose node leans, 0
// if there is none.  Returns the root.
template <class Nodes, class Entry> Node link_in(Nodes nodes, Entry *bottom, Entry *top, Entry *leaning) {
    if constexpr (Nodes::summarises) { // every node of the path changes
        grow(nodes, bottom, top);
        return bottom->Node;
    }
    if (top == bottom)
        return top->Node;
    nodes.hang(side_of(top[-1].Dir), top[-1].Node, top->Node);
    for (Entry *e = top; e-- != (leaning ? leaning + 1 : bottom);)
        nodes.set_balance(e->Node, e->Dir);
    if (!leaning)
        return bottom->Node;
    const int balance = nodes.balance(leaning->Node) + leaning->Dir;
    nodes.set_balance(leaning->Node, balance);
    if (balance == 0)
        return bottom->Node;
    Node cursor = leaning->Node;
    if (balance > 0)
        turn<Side::right>(nodes, &leaning->Node, &cursor);
    else
        turn<Side::left>(nodes, &leaning->Node, &cursor);
    if (leaning != bottom)
        nodes.hang(side_of(leaning[-1].Dir), leaning[-1].Node, cursor);
    return bottom->Node;
}

} // namespace ovant::engine
