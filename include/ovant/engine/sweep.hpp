// Every node below a root, with the path stack as the list of what is still to visit.
#pragma once

#include "links.hpp"

namespace ovant::engine {

// Calls visit(node) for each node, a node before its subtrees and the right subtree before the left one.  Nothing of a
// node is read after its visit, so a visit may release it.  From first on it keeps at most one entry for each level of
// the subtree, an open sibling, and may write a 0 into the Node of the entry above these.
template <class Nodes, class Entry, class Visit> void sweep(Nodes nodes, Entry *first, Node root, Visit visit) {
    Entry *free = first;
    const auto open = [&free](Node n) { // without a branch: whether a child is there is as good as random
        free->Node = n;
        free += n ? 1 : 0;
    };
    // An address of 0 would take longer to refuse than any other takes to load.
    const auto ask_for = [](Node n, Node instead) { __builtin_prefetch(n ? n : instead); };
    open(root);
    while (free != first) {
        const Node n = (--free)->Node;
        const Node left = nodes.template child<Side::left>(n), right = nodes.template child<Side::right>(n);
        ask_for(left, n);
        ask_for(right, n);
        if (free != first) { // what waits below has been asked for before: now its children
            const Node next = free[-1].Node;
            ask_for(nodes.template child<Side::left>(next), next);
            ask_for(nodes.template child<Side::right>(next), next);
        }
        open(left);
        open(right);
        visit(n);
    }
}

} // namespace ovant::engine
