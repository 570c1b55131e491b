// Small moves on the path stack, shared by the key paths and the walks.
#pragma once

#include "frame/nodes.hpp"

namespace ovant {

// The path ends at this entry.
inline Entry *here(Entry *top) {
    top->Dir = DIR_HERE;
    return top;
}

// The empty Pfad, which is also the end of a walk: the bottom entry without a node.  Root is not touched.
inline Entry *empty_pfad(AVL_Tree *tree) {
    tree->Stack->Node = nullptr;
    return tree->Stack;
}

// One step down to side s, also where there is no child; dir goes into the new entry.
template <class Nodes> Entry *step_down(Nodes nodes, Entry *top, Side s, int dir) {
    top->Dir = sign(s);
    top[1] = {nodes.child(s, top->Node), dir};
    return top + 1;
}

// Goes down from n, which is not 0, along S to the end of the spine and writes each node met, from the entry top on.
// Returns the last entry written; with Dirs those below it get S, and its own Dir is left to the caller.
template <Side S, bool Dirs = true, class Nodes> Entry *push_spine(Nodes nodes, Entry *top, Node n) {
    for (top->Node = n; (n = nodes.template child<S>(n)) != nullptr; top->Node = n) {
        if constexpr (Dirs)
            top->Dir = sign(S);
        ++top;
    }
    return top;
}

} // namespace ovant
