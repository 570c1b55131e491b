// Descents of the C face: with the tree's order, on its path stack.
#pragma once

#include "compare/order.hpp"
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

} // namespace ovant::c
