/* The rotation, written once for both hands.  A is the node to be turned, B its child on the heavy side H.

     single, B leans to H or is level            double, D, B's inner child, comes up

         A                  B                        A                   D
        / \                / \                      / \                /   \
       x   B      ->      A   z                    x   B      ->      A     B
          / \            / \                          / \            / \   / \
         y   z          x   y                        D   z          x  p  q   z
                                                    / \
                                                   p   q

   A may lean by any amount from 2 up: its balance is taken off, never stored, so that what remains is its true balance
   again.  That is what the deep repair builds on. */
#pragma once

#include "links.hpp"

namespace ovant::engine {

// The root that stands above everything afterwards, and by how much the subtree's height has changed.
struct Turned {
    Node root;
    Change change;
};

// Re-linking the parent is the caller's business.  The subtree at B is sound.  The height changes by 0 after a single
// turn around a level B, else by -1.  Always in line: which hand it is cannot be foreseen, and a call costs as much as
// the turn.
template <class Nodes> [[gnu::always_inline]] inline Turned turn(Nodes nodes, Side h, Node a) {
    const Node b = nodes.child(h, a);
    const int lean_a = nodes.lean(h, a), lean_b = nodes.lean(h, b);
    if (lean_b >= 0) {
        nodes.set_lean(h, a, lean_a - 1 - lean_b);
        nodes.set_lean(h, b, lean_b - 1);
        nodes.hang(h, a, nodes.child(!h, b));
        nodes.hang(!h, b, a);
        nodes.refresh(a);
        nodes.refresh(b);
        return {b, -lean_b};
    }
    const Node d = nodes.child(!h, b);
    const int lean_d = nodes.lean(h, d);
    const int rest_a = lean_a - (lean_d > 0 ? 3 : 2);
    nodes.set_lean(h, a, rest_a);
    nodes.set_lean(h, b, lean_d < 0 ? 1 : 0);
    nodes.set_lean(h, d, lean_d > 0 && rest_a >= 0 ? 1 : 0); // D leans on only above an A that does not hang
    nodes.hang(h, a, nodes.child(!h, d));
    nodes.hang(!h, b, nodes.child(h, d));
    nodes.hang(h, d, b);
    nodes.hang(!h, d, a);
    nodes.refresh(a);
    nodes.refresh(b);
    nodes.refresh(d);
    return {d, -1};
}

} // namespace ovant::engine
