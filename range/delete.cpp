// Whole ranges handed to Kill: one drop along a boundary, or two around a pivot.
#include "range/join.hpp"
#include "range/ranges.hpp"

using namespace ovant;

namespace {

void drop_before(AVL_Tree *tree, Entry *boundary, void *context) {
    Change change;
    tree->Root = AVL_DropBefore(tree, tree->Stack, boundary, &change, context);
}
void drop_after(AVL_Tree *tree, Entry *boundary, void *context) {
    Change change;
    tree->Root = AVL_DropAfter(tree, tree->Stack, boundary, &change, context);
}

// The pivot goes first, then what lies in the range to its right, then what lies in it to its left.
void drop_range(AVL_Tree *tree, const Range &range, const void *first, const void *second, void *context) {
    Entry *const top = range.path(tree, first, second);
    const Node pivot = top->Node;
    if (!pivot)
        return;
    const Nodes nodes(tree);
    SavedLink outer = read_links(nodes, pivot); // all that is left of the pivot after Kill
    tree->Funcs->Kill(pivot, context);

    Change left, right;
    Entry *boundary = range.right(tree, top, outer.right, second);
    outer.right = AVL_DropBefore(tree, top, boundary, &right, context);
    boundary = range.left(tree, top, outer.left, first);
    outer.left = AVL_DropAfter(tree, top, boundary, &left, context);

    carry_to_root(tree, nodes, top, AVL_JoinSides(tree, top, &outer, left, right));
}

} // namespace

void AVL_DelLess(AVL_Tree *tree, const void *key, void *context) {
    drop_before(tree, AVL_MakeLess(tree, key), context);
}
void AVL_DelEqualLess(AVL_Tree *tree, const void *key, void *context) {
    drop_before(tree, AVL_MakeEqualLess(tree, key), context);
}
void AVL_DelGreater(AVL_Tree *tree, const void *key, void *context) {
    drop_after(tree, AVL_MakeEqualLess(tree, key), context);
}
void AVL_DelEqualGreater(AVL_Tree *tree, const void *key, void *context) {
    drop_after(tree, AVL_MakeLess(tree, key), context);
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
