// Descents of the C face: with the tree's order, on its path stack.
#pragma once

#include "compare/order.hpp"
#include "frame/depth.hpp"
#include "ovant/engine/descend.hpp"

namespace ovant::c {

// On the stack from the entry start, with the tree's comparator.
template <Rule R> PathTrail<Entry> descend_stack(const AVL_Tree *tree, Entry *start, Node root, const void *key) {
    return with_order(tree, root, key,
                      [=](const auto &order) { return descend<R>(Nodes(tree), root, order, PathTrail<Entry>{start}); });
}

// Whether a neighbour of an absent key counts.
enum class Key { any, present };

// The empty Pfad, which is also the end of a walk: the bottom entry without a node.  Root is not touched.
inline Entry *empty_pfad(AVL_Tree *tree) {
    tree->Stack->Node = nullptr;
    return tree->Stack;
}

// The last entry that a walk writes.  Where links lead on behind it they belong to no tree, and the walk ends.
inline Entry *last_entry(const AVL_Tree *tree) { return tree->Stack + tree_depth; }
[[gnu::cold, gnu::noinline]] inline Entry *too_deep(AVL_Tree *tree) { return empty_pfad(tree); }

inline Entry *down_or_end(AVL_Tree *tree, Entry *position, Side s, int dir) {
    return position == last_entry(tree) ? too_deep(tree) : step_down(Nodes(tree), position, s, dir);
}
template <Side S> Entry *spine_or_end(AVL_Tree *tree, Entry *start, Node n) {
    Entry *const top = push_spine<S>(Nodes(tree), start, n, last_entry(tree));
    return top ? here(top) : too_deep(tree);
}

} // namespace ovant::c
