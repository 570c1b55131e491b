// What summaries are for: counts of what lies in front of a place, places found by a count or a running summary.
//
// A summary is made by nodes.of(left, n, right) of all that hangs below n, and counts the nodes where it converts to
// their number.
#pragma once

#include "descend.hpp"
#include "order.hpp"
#include "path.hpp"

namespace ovant::engine {

template <class Nodes> std::size_t count(Nodes nodes, Node n) { return nodes.summary(n); }

// How many nodes below n stand in front of a gap.  Only nodes of the way are read: where it goes on to the right, it
// leaves behind as many as the next subtree is smaller.
template <class Nodes, class Gap> std::size_t rank(Nodes nodes, Node n, const Gap &gap) {
    std::size_t in_front = 0;
    for (std::size_t below = count(nodes, n), next; n; below = next) {
        const bool right = gap(n);
        n = select(right, nodes.template child<Side::right>(n), nodes.template child<Side::left>(n));
        next = count(nodes, n);
        in_front += (below - next) & (std::size_t{0} - static_cast<std::size_t>(opaque(right)));
    }
    return in_front;
}
// In front of the node at top.
template <class Nodes, class Entry> std::size_t rank(Nodes nodes, const Entry *bottom, const Entry *top) {
    std::size_t in_front = count(nodes, nodes.template child<Side::left>(top->Node));
    for (const Entry *e = bottom; e != top; ++e)
        if (e->Dir == sign(Side::right))
            in_front += count(nodes, e->Node) - count(nodes, e[1].Node);
    return in_front;
}

// Goes down from top to the node with i others in front of it in that subtree, which has more than i.
template <class Nodes, class Entry> Entry *nth(Nodes nodes, Entry *top, std::size_t i) {
    for (;; ++top) {
        const Node n = top->Node, left = nodes.template child<Side::left>(n),
                   right = nodes.template child<Side::right>(n);
        __builtin_prefetch(right);
        const std::size_t before = count(nodes, left);
        if (i == before)
            return here(top);
        const bool goes_left = i < before;
        top->Dir = sign(Side::right) + (sign(Side::left) - sign(Side::right)) * opaque(goes_left);
        top[1].Node = select(goes_left, left, right);
        i -= (before + 1) & (static_cast<std::size_t>(opaque(goes_left)) - 1);
    }
}
// From the node at top to the one that stands by places behind it, in front of it where by is below 0.  Climbs no
// higher than it must.  Returns 0, and leaves the path as it was, where there is none.
template <class Nodes, class Entry> Entry *advance(Nodes nodes, Entry *bottom, Entry *top, std::ptrdiff_t by) {
    const auto size = [&](Node n) { return static_cast<std::ptrdiff_t>(count(nodes, n)); };
    std::ptrdiff_t i = by + size(nodes.template child<Side::left>(top->Node)); // counted in the subtree at top
    while (i < 0 || i >= size(top->Node)) {
        if (top == bottom)
            return nullptr;
        --top;
        if (top->Dir == sign(Side::right))
            i += size(nodes.template child<Side::left>(top->Node)) + 1;
    }
    return nth(nodes, top, static_cast<std::size_t>(i));
}

// The summary of what lies below n on side S of a gap.
template <Side S, class Nodes, class Entry, class Gap> auto fold(Nodes nodes, Entry *work, Node n, const Gap &gap) {
    auto sum = nodes.summary(nullptr);
    Entry *top = descend<rule::key>(nodes, n, ToGap(gap), PathTrail<Entry>{work}).top;
    while (top != work)
        if ((--top)->Dir == sign(!S)) {
            const auto inner = nodes.summary(nodes.template child<S>(top->Node));
            sum = S == Side::right ? nodes.of(sum, top->Node, inner) : nodes.of(inner, top->Node, sum);
        }
    return sum;
}
// Of what lies between two gaps.
template <class Nodes, class Entry, class First, class Last>
auto fold(Nodes nodes, Entry *work, Node root, const First &first, const Last &last) {
    const Node pivot = descend<rule::key>(nodes, root, Between(first, last), NodeTrail{}).at;
    if (!pivot)
        return nodes.summary(nullptr);
    const auto left = fold<Side::right>(nodes, work, nodes.template child<Side::left>(pivot), first);
    return nodes.of(left, pivot, fold<Side::left>(nodes, work, nodes.template child<Side::right>(pivot), last));
}

// From the node at top on, the first one at which passes(the summary of all from there up to it) is true; it must then
// be true for all behind it too.  Returns 0 where there is none.  Up to the first subtree that takes the sum across,
// then down in it.  What has been gathered is kept in front of a node that is still to be added, since a summary is
// made around a node.
template <class Nodes, class Entry, class Passes>
Entry *first_passing(Nodes nodes, Entry *bottom, Entry *top, const Passes &passes) {
    const auto none = nodes.summary(nullptr);
    auto sum = none;
    for (; top; top = last_turn<Side::left>(bottom, top)) {
        if (passes(nodes.of(sum, top->Node, none)))
            return here(top);
        const Node right = nodes.template child<Side::right>(top->Node);
        const auto beyond = nodes.of(sum, top->Node, nodes.summary(right));
        if (right && passes(beyond))
            break;
        sum = beyond;
    }
    if (!top)
        return nullptr;
    Node pending = top->Node;
    for (Side way = Side::right;;) {
        top = step_down(nodes, top, way);
        if (!top->Node)
            return nullptr;
        const Node left = nodes.template child<Side::left>(top->Node);
        const auto before = nodes.of(sum, pending, nodes.summary(left));
        way = left && passes(before) ? Side::left : Side::right;
        if (way == Side::left)
            continue;
        if (passes(nodes.of(before, top->Node, none)))
            return top;
        sum = before;
        pending = top->Node;
    }
}

} // namespace ovant::engine
