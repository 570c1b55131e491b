// Whole trees made: of nodes that come in order, and after the shape of another tree.
#pragma once

#include "path.hpp"

namespace ovant::engine {

// A tree of the next `count` nodes that next() gives in tree order, as low as can be.  No node is compared with
// another, and each is written once.  Returns the root.
template <class Nodes, class Next> Node build(Nodes nodes, std::size_t count, Next next) {
    struct {
        Node node;
        std::size_t size; // of its subtree
    } open[8 * sizeof count], *top = open;

    Node built = nullptr; // the subtree that has just been finished
    for (std::size_t size = count;;) {
        for (; size; size = (size - 1) / 2)
            *top++ = {nullptr, size};
        for (; top != open; --top) {
            const std::size_t right = top[-1].size / 2;
            if (!top[-1].node) {
                top[-1].node = next();
                nodes.template hang<Side::left>(top[-1].node, built);
                built = nullptr;
                if (right) {
                    size = right;
                    break;
                }
            }
            const Node n = top[-1].node;
            nodes.template hang<Side::right>(n, built);
            // The right side has the odd node, and is higher by it where it then begins a new level.
            nodes.set_balance(n, top[-1].size % 2 == 0 && (right & (right - 1)) == 0 ? 1 : 0);
            nodes.refresh(n);
            built = n;
        }
        if (top == open)
            return built;
    }
}

// A tree of the same shape: make(node) gives the node to stand in for each, or 0 to end it.  *root has the new root
// from the first node on, and the links of what has been made so far are good for a sweep.  Returns whether all were
// made.  Both work areas have an entry for each level and one more.  A parent is made before its children, so summaries
// are left to refresh_below.
template <class Nodes, class Entry, class Make>
bool clone(Nodes nodes, Entry *from, Entry *to, Node original, Make make, Node *root) {
    Entry *free = from; // what is still to be copied, each with the side it hangs on; beside it, in `to`, the parent
    const auto open = [&](Node n, Node parent, Side s) {
        if (n) {
            *free = {n, sign(s)};
            to[free - from].Node = parent;
            ++free;
        }
    };
    open(original, nullptr, Side::left);
    while (free != from) {
        const Entry e = *--free;
        const Node parent = to[free - from].Node, copy = make(e.Node);
        if (!copy)
            return false;
        write_links(nodes, copy, {nullptr, nullptr, nodes.balance(e.Node)});
        if (parent)
            nodes.hang(side_of(e.Dir), parent, copy);
        else
            *root = copy;
        open(nodes.template child<Side::right>(e.Node), copy, Side::right);
        open(nodes.template child<Side::left>(e.Node), copy, Side::left);
    }
    return true;
}

// The summaries of all nodes below root, children first.
template <class Nodes, class Entry> void refresh_below(Nodes nodes, Entry *bottom, Node root) {
    if constexpr (Nodes::summarises) {
        Entry *top = bottom;
        for (top->Node = root;;) {
            while (top->Node)
                top = step_down(nodes, top, Side::left);
            for (;; nodes.refresh(top->Node)) {
                if (top == bottom)
                    return;
                if ((--top)->Dir == sign(Side::left))
                    break;
            }
            top = step_down(nodes, top, Side::right);
        }
    }
}

} // namespace ovant::engine
