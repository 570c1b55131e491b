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
template <Side H, class Nodes, class Entry> Change sink(Nodes nodes, Entry *work, Node *place, Node *cursor) {
    Node w = *place;
    Entry *level = work;
    do {
        level->Dir = turn<H>(nodes, &w, cursor);
        level->Node = w;
        ++level;
        w = *cursor = nodes.template child<!H>(w);
    } while (nodes.template lean<H>(w) > 1);

    --level;
    Node child = level->Node;
    Change change = level->Dir;
    while (level != work) {
        --level;
        w = *cursor = level->Node;
        nodes.template hang<!H>(w, child); // a turn below may have put another root there
        nodes.refresh(w);
        if (change != 0) {
            const int lean = nodes.template lean<H>(w) + 1; // the inner child is one level lower
            nodes.template set_lean<H>(w, lean);
            change = lean == 2 ? turn<H>(nodes, &w, cursor) : lean - 1;
        }
        change += level->Dir;
        child = w;
    }
    *place = *cursor = child;
    return change;
}

// Makes the subtree at *place sound whatever its root's balance.  Returns its new height minus its true one, which was
// 1 plus the height of the higher child: 0 or -1.  Writes at most |balance| - 1 entries of the work area, whose first
// one may be the entry that place points into: place is read first and written last.
template <class Nodes, class Entry> Change repair(Nodes nodes, Entry *work, Node *place, Node *cursor) {
    const int balance = nodes.balance(*place);
    if (balance >= -1 && balance <= 1)
        return 0;
    if (balance == 2)
        return turn<Side::right>(nodes, place, cursor);
    if (balance == -2)
        return turn<Side::left>(nodes, place, cursor);
    return balance > 0 ? sink<Side::right>(nodes, work, place, cursor) : sink<Side::left>(nodes, work, place, cursor);
}

} // namespace ovant::engine
