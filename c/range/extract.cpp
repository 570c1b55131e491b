// Whole ranges taken out as trees of their own: one cut along a boundary, or two around a pivot.
#include "range/ranges.hpp"

using namespace ovant::c;

namespace {

// Gives what stands before the boundary; the bottom entry holds what stands after it.
Node cut_at(AVL_Tree *tree, Entry *boundary) {
    Change before, after;
    return AVL_SplitPfad(tree, tree->Stack, boundary, &before, &after);
}

Parts divide(AVL_Tree *tree, const Range &range, const void *first, const void *second) {
    Parts parts{nullptr, tree->Root};
    at_pivot(tree, range, first, second, [&](Entry *top, auto left, auto right) {
        parts = cut_between(Nodes(tree), tree->Stack, top, top->Node, left, right, Reports(tree));
    });
    return parts;
}

// One part stays in the tree, the other is the result.
Node keep(AVL_Tree *tree, Node stays, Node result) {
    tree->Root = stays;
    return result;
}
Node get_before(AVL_Tree *tree, Entry *boundary) {
    const Node before = cut_at(tree, boundary);
    return keep(tree, tree->Stack->Node, before);
}
Node get_after(AVL_Tree *tree, Entry *boundary) {
    const Node before = cut_at(tree, boundary);
    return keep(tree, before, tree->Stack->Node);
}
Node get_inner(AVL_Tree *tree, const Range &range, const void *first, const void *second) {
    const Parts parts = divide(tree, range, first, second);
    return keep(tree, parts.outer, parts.inner);
}
Node get_outer(AVL_Tree *tree, const Range &range, const void *first, const void *second) {
    const Parts parts = divide(tree, range, first, second);
    return keep(tree, parts.inner, parts.outer);
}

} // namespace

void *AVL_GetLess(AVL_Tree *tree, const void *key) { return get_before(tree, AVL_MakeLess(tree, key)); }
void *AVL_GetEqualLess(AVL_Tree *tree, const void *key) { return get_before(tree, AVL_MakeEqualLess(tree, key)); }
void *AVL_GetGreater(AVL_Tree *tree, const void *key) { return get_after(tree, AVL_MakeEqualLess(tree, key)); }
void *AVL_GetEqualGreater(AVL_Tree *tree, const void *key) { return get_after(tree, AVL_MakeLess(tree, key)); }

void *AVL_GetBetweenEqualEqual(AVL_Tree *tree, const void *first, const void *second) {
    return get_inner(tree, between::equal_equal, first, second);
}
void *AVL_GetBetweenGreaterLess(AVL_Tree *tree, const void *first, const void *second) {
    return get_inner(tree, between::greater_less, first, second);
}
void *AVL_GetBetweenKey(AVL_Tree *tree, const void *key) { return get_inner(tree, between::key, key, key); }

// What leaves outside a range is what stays around the range that its bounds leave open.
void *AVL_GetOutsideEqualEqual(AVL_Tree *tree, const void *first, const void *second) {
    return get_outer(tree, between::greater_less, first, second);
}
void *AVL_GetOutsideLessGreater(AVL_Tree *tree, const void *first, const void *second) {
    return get_outer(tree, between::equal_equal, first, second);
}
void *AVL_GetOutsideKey(AVL_Tree *tree, const void *key) { return get_outer(tree, between::key, key, key); }
