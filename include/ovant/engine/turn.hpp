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

// Both words hold A on entry and the new root on return; re-linking the parent is the caller's business.  The subtree
// at B is sound.  Returns the change of height: 0 after a single turn around a level B, else -1.
template <Side H, class Nodes> Change turn(Nodes nodes, Node *place, Node *cursor) {
    const Node a = *place, b = nodes.template child<H>(a);
    const int lean_a = nodes.template lean<H>(a), lean_b = nodes.template lean<H>(b);
    if (lean_b >= 0) {
        nodes.template set_lean<H>(a, lean_a - 1 - lean_b);
        nodes.template set_lean<H>(b, lean_b - 1);
        nodes.template hang<H>(a, nodes.template child<!H>(b));
        nodes.template hang<!H>(b, a);
        nodes.refresh(a);
        nodes.refresh(b);
        *place = *cursor = b;
        return -lean_b;
    }
    const Node d = nodes.template child<!H>(b);
    const int lean_d = nodes.template lean<H>(d);
    const int rest_a = lean_a - (lean_d > 0 ? 3 : 2);
    nodes.template set_lean<H>(a, rest_a);
    nodes.template set_lean<H>(b, lean_d < 0 ? 1 : 0);
    nodes.template set_lean<H>(d, lean_d > 0 && rest_a >= 0 ? 1 : 0); // D leans on only above an A that does not hang
    nodes.template hang<H>(a, nodes.template child<!H>(d));
    nodes.template hang<!H>(b, nodes.template child<H>(d));
    nodes.template hang<H>(d, b);
    nodes.template hang<!H>(d, a);
    nodes.refresh(a);
    nodes.refresh(b);
    nodes.refresh(d);
    *place = *cursor = d;
    return -1;
}

} // namespace ovant::engine
