// The repair of one node that is out of balance by any amount, above two sound subtrees.
#pragma once

#include "turn.hpp"

namespace ovant::engine {

// The node leans to H by 3 or more.  It sinks along the inner spine of the heavy side, one turn a level, until it is
// balanced there; on the way back each level takes in what the levels below it have lost.
//
//   A(+4)               X1                     X1
//      \               /  \                   /  \          down: A sinks below X1, then below X2
//       X1     ->    A(+2) ..      ->       X2    ..        back: X2 takes its repaired child, then X1 takes X2
//      /  \             \                  /  \             .
//    X2    ..            X2               A    ..
//
// A level's entry of the work area holds the root X that its turn produced and the change of height of that turn.  The
// change counts from the true height before the turn, so what comes up from a level is the exact change of the inner
// child of the X above it, whose balance still counts that child at its old height.
template <class Nodes, class Entry> [[gnu::noinline]] Turned sink(Nodes nodes, Entry *work, Side h, Node a) {
    Entry *level = work;
    do {
        const Turned turned = turn(nodes, h, a);
        *level++ = {turned.root, turned.change}; // above a, which is its inner child now
    } while (nodes.lean(h, a) > 1);

    --level;
    Turned below{level->Node, level->Dir};
    while (level != work) {
        --level;
        Turned here{level->Node, 0};
        nodes.hang(!h, here.root, below.root); // a turn below may have put another root there, above the same nodes
        if (below.change != 0) {
            const int lean = nodes.lean(h, here.root) + 1; // the inner child is one level lower
            nodes.set_lean(h, here.root, lean);
            here.change = lean - 1;
            if (lean == 2)
                here = turn(nodes, h, here.root);
        }
        below = {here.root, here.change + level->Dir};
    }
    return below;
}

// Makes the subtree at n sound whatever its root's balance.  The change of height counts from the true height before,
// which was 1 plus that of the higher child: 0 or -1.  Writes at most |balance| - 1 entries of the work area.
template <class Nodes, class Entry> [[gnu::always_inline]] inline Turned repair(Nodes nodes, Entry *work, Node n) {
    const int balance = nodes.balance(n);
    if (balance >= -1 && balance <= 1)
        return {n, 0};
    const Side heavy = side_of(balance);
    return sign(heavy) * balance == 2 ? turn(nodes, heavy, n) : sink(nodes, work, heavy, n);
}

} // namespace ovant::engine
