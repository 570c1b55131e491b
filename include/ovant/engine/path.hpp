// Paths, and small moves on them.
//
// A path is a run of entries in an array, from the root at the bottom to a top one.  An Entry has a Node and a Dir, the
// side on which the next entry's node hangs.  The array is the caller's: the one of an AVL_Tree, of an iterator, of a
// function in progress.  It has room for as many levels as any tree can have, and one more for the free position below.
#pragma once

#include "links.hpp"

namespace ovant::engine {

inline constexpr int dir_here = 0, dir_new = -2; // what Dir may be besides the sign of a side

// The path ends at this entry.
template <class Entry> Entry *here(Entry *top) {
    top->Dir = dir_here;
    return top;
}

// One step down to side s, also where there is no child; dir goes into the new entry.
template <class Nodes, class Entry> Entry *step_down(Nodes nodes, Entry *top, Side s, int dir = dir_here) {
    top->Dir = sign(s);
    top[1] = {nodes.child(s, top->Node), dir};
    return top + 1;
}

// Goes down from n, which is not 0, along S to the end of the spine and writes each node met, from the entry top on.
// Returns the last entry written; with Dirs those below it get S, and its own Dir is left to the caller.  Returns 0
// where the spine leads on behind the entry `last`, if there is one.
template <Side S, bool Dirs = true, class Nodes, class Entry>
Entry *push_spine(Nodes nodes, Entry *top, Node n, const Entry *last = nullptr) {
    for (top->Node = n; (n = nodes.template child<S>(n)) != nullptr; top->Node = n) {
        if (top == last) [[unlikely]]
            return nullptr;
        if constexpr (Dirs)
            top->Dir = sign(S);
        ++top;
    }
    return top;
}

// The same without a path.
template <Side S, class Nodes> Node end_of_spine(Nodes nodes, Node n) {
    for (Node next = n; next; next = nodes.template child<S>(n))
        n = next;
    return n;
}

// The last entry below top that the path left towards S; 0 if there is none.
template <Side S, class Entry> Entry *last_turn(Entry *bottom, Entry *top) {
    while (top != bottom)
        if ((--top)->Dir == sign(S))
            return top;
    return nullptr;
}

// The next entry in tree order towards F: down into the F subtree and along its near spine, else up to the first
// ancestor that the path left away from F.  A position without a node only climbs.  Returns 0 behind the last node.
template <Side F, class Nodes, class Entry> Entry *step(Nodes nodes, Entry *bottom, Entry *position) {
    if (position->Node) {
        if (const Node next = nodes.template child<F>(position->Node)) {
            position->Dir = sign(F);
            return here(push_spine<!F>(nodes, position + 1, next));
        }
    }
    Entry *const ancestor = last_turn<!F>(bottom, position);
    return ancestor ? here(ancestor) : nullptr;
}

// The free position that neighbours the node at top on its side S.
template <Side S, class Nodes, class Entry> Entry *beside(Nodes nodes, Entry *top) {
    const Node near = nodes.template child<S>(top->Node);
    top->Dir = sign(S);
    ++top;
    if (near) {
        top = push_spine<!S>(nodes, top, near);
        top->Dir = sign(!S);
        ++top;
    }
    top->Node = nullptr;
    return top;
}

} // namespace ovant::engine
