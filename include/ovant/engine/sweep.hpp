// Every node below a root, with the path stack as the list of what is still to visit.
#pragma once

#include "links.hpp"

namespace ovant::engine {

// Calls visit(node) for each node, a node before its subtrees and the right subtree before the left one, until it
// answers false.  Nothing of a node is read after its visit, so a visit may release it.  From first on it keeps at most
// one entry for each level of the subtree, an open sibling, and may write a 0 into the Node of the entry above these,
// but nothing behind last: links that open more run in a circle, and it ends there.  Returns whether all was visited.
template <class Nodes, class Entry, class Visit>
bool sweep(Nodes nodes, Entry *first, Entry *last, Node root, Visit visit) {
    const auto room = static_cast<std::size_t>(last - first);
    std::size_t open = 0;
    const auto push = [&](Node n) { // without a branch: whether a child is there is as good as random
        first[open].Node = n;
        open += n ? 1 : 0;
    };
    // An address of 0 would take longer to refuse than any other takes to load.
    const auto prefetch = [](Node n, Node instead) { __builtin_prefetch(n ? n : instead); };
    push(root);
    while (--open < room) { // none open: that wraps
        const Node n = first[open].Node;
        const Node left = nodes.template child<Side::left>(n), right = nodes.template child<Side::right>(n);
        prefetch(left, n);
        prefetch(right, n);
        if (open != 0) { // what waits below has been fetched before: now its children
            const Node next = first[open - 1].Node;
            prefetch(nodes.template child<Side::left>(next), next);
            prefetch(nodes.template child<Side::right>(next), next);
        }
        push(left);
        push(right);
        if (!visit(n))
            return false;
    }
    return open + 1 == 0;
}

} // namespace ovant::engine
