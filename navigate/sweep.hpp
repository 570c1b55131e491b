// Every node below a root, with the path stack as the list of what is still to visit.
#pragma once

#include "frame/nodes.hpp"

namespace ovant {

// Calls visit(node) for each node, a node before its subtrees and the right subtree before the left one.  Nothing of a
// node is read after its visit, so a visit may release it.  Writes the Node of at most as many entries as the subtree
// has levels, from first on: one open sibling a level.
template <class Nodes, class Visit> void sweep(Nodes nodes, Entry *first, Node root, Visit visit) {
    Entry *free = first;
    const auto open = [&free](Node n) {
        if (n)
            (free++)->Node = n;
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
