// Paths that stay true while the tree changes below them, for whoever stands at a position and stays there.
#pragma once

#include "climb.hpp"
#include "descend.hpp"
#include "order.hpp"
#include "remove.hpp"

namespace ovant::engine {

// One entry of the few that move; field by field, or compilers call the C library to move them.
template <class Entry> void move(const Entry *from, Entry *to) {
    to->Node = from->Node;
    to->Dir = from->Dir;
}

// After a removal a turn at q puts its new root above the old one, which goes on towards the same side: the path gets
// an entry more there.
template <class Entry> struct AfterLoss {
    Entry **top;

    void turned(Entry *q, Node old_root) const {
        for (Entry *e = *top; e != q; --e)
            move(e, e + 1);
        q[1] = {old_root, q->Dir};
        ++*top;
    }
};

// After an insertion a turn takes an entry away.  The old root A leaves the path if its child B on the way has come up;
// if the grandchild D has, the path goes from D to A or to B, whichever has taken over D's child on the way.
template <class Entry> struct AfterGrowth {
    Entry **top;

    void turned(Entry *q, Node old_root) const {
        const Node new_root = q->Node;
        Entry *to = q, *from = q + 1;
        if (from->Node != new_root) {
            const int away = q->Dir, dir = q[2].Dir;
            q[0].Dir = dir;
            if (q + 2 == *top) { // D is the new node itself
                *top = here(q);
                return;
            }
            q[1] = {dir == away ? from->Node : old_root, -dir};
            to = q + 2;
            from = q + 3;
        }
        for (; to != *top; ++to, ++from)
            move(from, to);
        --*top;
    }
};

// Links the node in at the free position top; top becomes its place.  Returns the root.
template <class Nodes, class Entry> Node insert_at(Nodes nodes, Entry *bottom, Entry *&top, Node node) {
    write_links(nodes, node, {nullptr, nullptr, 0});
    top->Node = node;
    grow(nodes, bottom, top, AfterGrowth<Entry>{&top});
    here(top);
    return bottom->Node;
}

// What is left where a node has gone.
template <class Entry> struct Removed {
    Node root;
    Entry *next; // the place of the next node, 0 behind the last one
    Entry *last; // there the place of the last node, 0 in an empty tree
};

// Takes the node at top out, without losing the place.
template <class Nodes, class Entry> Removed<Entry> remove_at(Nodes nodes, Entry *bottom, Entry *top) {
    SavedLink saved = read_links(nodes, top->Node);
    const bool next_takes_over = saved.right && saved.balance >= 0; // unless the left side is higher
    const Change change = unlink(nodes, top, saved);
    shrink(nodes, bottom, top, change, own_dir, AfterLoss<Entry>{&top});
    const Node root = bottom->Node;
    if (next_takes_over)
        return {root, here(top), nullptr};
    Entry *const next = step<Side::right>(nodes, bottom, top);
    if (next || top->Node)
        return {root, next, top};
    return {root, nullptr, top == bottom ? nullptr : top - 1};
}

// From the node at top forward to a gap that no node in front of top stands behind: up as long as the next ancestor to
// the right stands in front of it, then down.  Returns the free position.  About two questions for each doubling of the
// distance: the finger search of L. J. Guibas, E. M. McCreight, M. F. Plass and J. R. Roberts (1977), on a path.
template <class Nodes, class Entry, class Gap>
Entry *advance_to(Nodes nodes, Entry *bottom, Entry *top, const Gap &in_front) {
    if (!in_front(top->Node))
        return beside<Side::left>(nodes, top);
    for (Entry *up; (up = last_turn<Side::left>(bottom, top)) && in_front(up->Node);)
        top = up;
    top->Dir = sign(Side::right);
    const Node right = nodes.template child<Side::right>(top->Node);
    return descend<rule::key>(nodes, right, ToGap(in_front), PathTrail<Entry>{top + 1}).top;
}

} // namespace ovant::engine
