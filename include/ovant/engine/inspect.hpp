// Every link, balance and pair of neighbours of a tree verified.  Ends on any damage, as long as links point to nodes.
#pragma once

#include "path.hpp"

#include <cstddef>

namespace ovant::engine {

enum class Flaw { none, order, balance, circle, shared, summary };

template <class Entry> struct Finding {
    Flaw flaw;
    Entry *top; // the path to the bad node; to one with two ways to it the second way
};

// A node that has been visited has this bit of its balance turned round, which no true balance has.
inline constexpr int visited_bit = 0x40;
template <class Nodes> void flip_visited(Nodes nodes, Node n) { nodes.set_balance(n, nodes.balance(n) ^ visited_bit); }

// Walks the tree once.  enter(top) is asked at each node's first sight, leave(top, left height, right height) behind
// its subtrees: each answers whether to go on.  Ends with the entry at which one did not, or 0.  height has room for
// each level.
template <class Nodes, class Entry, class Enter, class Leave>
Entry *tour(Nodes nodes, Entry *bottom, int *height, // NOLINT(readability-non-const-parameter): it is written
            Node root, Enter enter, Leave leave) {
    Entry *top = bottom;
    top->Node = root;
    for (;;) {
        while (top->Node) {
            if (!enter(top))
                return top;
            top = step_down(nodes, top, Side::left);
        }
        int below = 0; // the height of what hangs at top
        for (;; --top) {
            if (top == bottom)
                return nullptr;
            if (top[-1].Dir == sign(Side::left))
                break;
            const int left = height[top - 1 - bottom];
            if (!leave(top - 1, left, below))
                return top - 1;
            below = 1 + (left > below ? left : below);
        }
        --top;
        height[top - bottom] = below;
        top = step_down(nodes, top, Side::right);
    }
}

// Links and balances.  The path and the heights have room for `limit` levels and one entry more.  Each balance is
// written twice; in the end it is what it was.
template <class Nodes, class Entry>
Finding<Entry> inspect_links(Nodes nodes, Entry *bottom, int *height, std::ptrdiff_t limit, Node root) {
    std::size_t events = 0;
    bool at_first_sight = false;
    const auto enter = [&](Entry *top) { // a node that has been visited shows as a wrong balance here
        const int balance = nodes.balance(top->Node);
        at_first_sight = top - bottom >= limit || balance < -1 || balance > 1;
        if (!at_first_sight)
            flip_visited(nodes, top->Node);
        ++events;
        return !at_first_sight;
    };
    const auto leave = [&](Entry *top, int left, int right) {
        ++events;
        return (nodes.balance(top->Node) ^ visited_bit) == right - left;
    };
    const Entry *const end = tour(nodes, bottom, height, root, enter, leave);

    // The same way again up to the same event, with all bits turned back.
    const Node bad = end ? end->Node : nullptr;
    bool met = false;
    const auto go_on = [&] { return !end || --events != 0; };
    const auto enter_again = [&](Entry *top) {
        if (!go_on())
            return false;
        met = met || top->Node == bad;
        flip_visited(nodes, top->Node);
        return true;
    };
    Entry *const top = tour(nodes, bottom, height, root, enter_again, [&](Entry *, int, int) { return go_on(); });
    if (!top)
        return {Flaw::none, nullptr};
    if (!at_first_sight || !met)
        return {Flaw::balance, top};
    for (const Entry *e = bottom; e != top; ++e)
        if (e->Node == bad)
            return {Flaw::circle, top};
    return {Flaw::shared, top};
}

// The summaries, in a tree whose links are sound and whose summaries compare.
template <class Nodes, class Entry>
Finding<Entry> inspect_summaries([[maybe_unused]] Nodes nodes, [[maybe_unused]] Entry *bottom,
                                 [[maybe_unused]] int *height, [[maybe_unused]] Node root) {
    Entry *bad = nullptr;
    if constexpr (requires { nodes.summary(root) == nodes.summary(root); }) {
        const auto true_here = [&](Entry *top, int, int) {
            const Node n = top->Node;
            return nodes.summary(n) == nodes.of(nodes.summary(nodes.template child<Side::left>(n)), n,
                                                nodes.summary(nodes.template child<Side::right>(n)));
        };
        bad = tour(
            nodes, bottom, height, root, [](Entry *) { return true; }, true_here);
    }
    return {bad ? Flaw::summary : Flaw::none, bad};
}

// The order of neighbours, in a tree whose links are sound: in_order(node, node) says whether the second may follow the
// first.  The bad node is the second one.
template <class Nodes, class Entry, class InOrder>
Finding<Entry> inspect_order(Nodes nodes, Entry *bottom, Node root, InOrder in_order) {
    Node before = nullptr;
    for (Entry *top = root ? push_spine<Side::left>(nodes, bottom, root) : nullptr; top;
         top = step<Side::right>(nodes, bottom, top)) {
        if (before && !in_order(before, top->Node))
            return {Flaw::order, here(top)};
        before = top->Node;
    }
    return {Flaw::none, nullptr};
}

} // namespace ovant::engine
