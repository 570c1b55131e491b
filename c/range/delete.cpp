// Whole ranges handed to Kill: one drop along a boundary, or two around a pivot.
#include "range/kill.hpp"
#include "range/ranges.hpp"

using namespace ovant::c;

namespace {

// One side of a boundary stays.
template <auto Drop> void drop_side(AVL_Tree *tree, Entry *boundary, void *context) {
    Change change;
    tree->Root = Drop(tree, tree->Stack, boundary, &change, context);
}

void drop_range(AVL_Tree *tree, const Range &range, const void *first, const void *second, void *context) {
    at_pivot(tree, range, first, second, [&](Entry *top, auto left, auto right) {
        tree->Root = drop_between(Nodes(tree), tree->Stack, top, left, right, Killer(tree, context), Reports(tree));
    });
}

} // namespace

void AVL_DelLess(AVL_Tree *tree, const void *key, void *context) {
    drop_side<AVL_DropBefore>(tree, AVL_MakeLess(tree, key), context);
}
void AVL_DelEqualLess(AVL_Tree *tree, const void *key, void *context) {
    drop_side<AVL_DropBefore>(tree, AVL_MakeEqualLess(tree, key), context);
}
void AVL_DelGreater(AVL_Tree *tree, const void *key, void *context) {
    drop_side<AVL_DropAfter>(tree, AVL_MakeEqualLess(tree, key), context);
}
void AVL_DelEqualGreater(AVL_Tree *tree, const void *key, void *context) {
    drop_side<AVL_DropAfter>(tree, AVL_MakeLess(tree, key), context);
}

void AVL_DelBetweenEqualEqual(AVL_Tree *tree, const void *first, const void *second, void *context) {
    drop_range(tree, between::equal_equal, first, second, context);
}
void AVL_DelBetweenEqualLess(AVL_Tree *tree, const void *first, const void *second, void *context) {
    drop_range(tree, between::equal_less, first, second, context);
}
void AVL_DelBetweenGreaterLess(AVL_Tree *tree, const void *first, const void *second, void *context) {
    drop_range(tree, between::greater_less, first, second, context);
}
void AVL_DelBetweenKey(AVL_Tree *tree, const void *key, void *context) {
    drop_range(tree, between::key, key, key, context);
}

// Outside a range: the part after it goes first.
void AVL_DelOutsideEqualEqual(AVL_Tree *tree, const void *first, const void *second, void *context) {
    AVL_DelEqualGreater(tree, second, context);
    AVL_DelEqualLess(tree, first, context);
}
void AVL_DelOutsideLessGreater(AVL_Tree *tree, const void *first, const void *second, void *context) {
    AVL_DelGreater(tree, second, context);
    AVL_DelLess(tree, first, context);
}
void AVL_DelOutsideKey(AVL_Tree *tree, const void *key, void *context) {
    AVL_DelOutsideLessGreater(tree, key, key, context);
}

void AVL_DelTree(AVL_Tree *tree, void *context) {
    AVL_KillBelow(tree, tree->Stack, tree->Root, context);
    tree->Root = nullptr;
}
