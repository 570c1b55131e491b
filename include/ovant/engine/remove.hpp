// How a node leaves its place: the end of a spine cut off, the gap closed.
#pragma once

#include "climb.hpp"
#include "path.hpp"

namespace ovant::engine {

// A fate is asked what becomes of a node: it answers with the node that stays at the place, 0 for none.
inline Node nothing_stays(Node) { return nullptr; }

// Takes the last node towards S out of the subtree at *slot and repairs the subtree on the way back.  Returns the node,
// its header still as it was, or 0 for an empty slot; *slot takes the new root, *change the change of height, 0 or -1.
// Writes only the Node of the work entries, one for each level of the spine.  The node's inner child moves up, read
// before fate(node), which may release the node, keep it or put another into its place.
template <Side S, class Nodes, class Entry, class Fate>
Node cut(Nodes nodes, Entry *work, Node *slot, Change *change, Fate fate) {
    *change = 0;
    if (!*slot)
        return nullptr;
    Entry *const top = push_spine<S, false>(nodes, work, *slot);
    const Node last = top->Node, inner = nodes.template child<!S>(last);
    const Node stays = fate(last);
    if (stays == last)
        return last;
    top->Node = stays ? stays : inner;
    *change = shrink_spine<S>(nodes, work, top, stays ? 0 : -1, stays ? 0 : -1);
    *slot = work->Node;
    return last;
}

// Takes the node next to the place that saved describes out of its side H.
template <Side H, class Nodes, class Entry> Node take_heir(Nodes nodes, Entry *work, SavedLink &saved, Change *change) {
    const Node heir = cut<!H>(nodes, work, &saved.child<H>(), change, nothing_stays);
    saved.add_lean<H>(*change);
    return heir;
}

// The node with these links goes; H is its higher side, the right one if both are level.  A node of that side takes
// over the place, or, beside an empty side, the only child there can be.  The entry top takes the new root of the
// subtree and serves as first work entry.  Returns the change of height.
template <Side H, class Nodes, class Entry> Change close_gap(Nodes nodes, Entry *top, SavedLink &saved) {
    if (!saved.left || !saved.right) {
        top->Node = saved.left ? saved.left : saved.right;
        return -1;
    }
    const bool was_level = saved.balance == 0;
    Change change;
    const Node heir = take_heir<H>(nodes, top, saved, &change);
    top->Node = write_links(nodes, heir, saved);
    return was_level ? 0 : change;
}

// The same for any saved link.  A balance that no sound tree holds is left alone, with the place as it is.
template <class Nodes, class Entry> Change unlink(Nodes nodes, Entry *top, SavedLink &saved) {
    if (saved.balance < -1 || saved.balance > 1)
        return 0;
    return saved.balance < 0 ? close_gap<Side::left>(nodes, top, saved) : close_gap<Side::right>(nodes, top, saved);
}

// Takes the node at top out of the tree at bottom.  Returns the root.
template <class Nodes, class Entry> Node remove(Nodes nodes, Entry *bottom, Entry *top) {
    SavedLink saved = read_links(nodes, top->Node);
    shrink(nodes, bottom, top, unlink(nodes, top, saved), own_dir);
    return bottom->Node;
}

} // namespace ovant::engine
