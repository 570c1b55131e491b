// Every node below a root, with the path stack as the list of what is still to visit.
#pragma once

#include "frame/nodes.hpp"

namespace ovant {

// Calls visit(node) for each node, a node before its subtrees and the right subtree before the left one.  Nothing of a
// node is read after its visit, so a visit may release it.  From first on it keeps at most one entry for each level of
// the subtree, an open sibling, and may write a 0 into the Node of the entry above these.
template <class Nodes, class Visit> void sweep(Nodes nodes, Entry *first, Node root, Visit visit) {
    Entry *free = first;
    const auto open = [&free](Node n) { // without a branch: whether a child is there is as good as random
        __builtin_prefetch(n ? n : free);
        free->Node = n;
        free += n ? 1 : 0;
    };
    open(root);
    while (free != first) {
        const Node n = (--free)->Node;
        open(nodes.template child<Side::left>(n));
        open(nodes.template child<Side::right>(n));
        visit(n);
    }
}

} // namespace ovant
