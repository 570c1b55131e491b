// Whole ranges taken out as trees of their own: one cut along a boundary, or two around a pivot.
#include "range/join.hpp"
#include "range/ranges.hpp"

using namespace ovant;

namespace {

struct Halves {
    Node before, after;
};

Halves cut_at(AVL_Tree *tree, Entry *boundary) {
    Change before, after;
    const Node root = AVL_SplitPfad(tree, tree->Stack, boundary, &before, &after);
    return {root, tree->Stack->Node};
}

struct Parts {
    Node inner, outer;
};

// What lies in the range stays under the pivot; what lies around it closes up without the pivot.
Parts divide(AVL_Tree *tree, const Range &range, const void *first, const void *second) {
    Entry *const top = range.path(tree, first, second);
    const Node pivot = top->Node;
    if (!pivot)
        return {nullptr, tree->Root};

    const Nodes nodes(tree);
    SavedLink outer = read_links(nodes, pivot);
    Change outer_left, inner_left, inner_right, outer_right;

    Entry *boundary = range.left(tree, top, outer.left, first);
    outer.left = AVL_SplitPfad(tree, top, boundary, &outer_left, &inner_left);
    nodes.hang<Side::left>(pivot, top->Node);

    boundary = range.right(tree, top, outer.right, second);
    nodes.hang<Side::right>(pivot, AVL_SplitPfad(tree, top, boundary, &inner_right, &outer_right));
    outer.right = top->Node;

    nodes.set_balance(pivot, outer.balance + inner_right - inner_left);
    Node inner = pivot, cursor = pivot;
    repair(nodes, top, &inner, &cursor);

    fix_pfad(nodes, tree->Stack, top, AVL_JoinSides(tree, top, &outer, outer_left, outer_right));
    return {inner, tree->Stack->Node};
}

// One part stays in the tree, the other is the result.
Node keep(AVL_Tree *tree, Node stays, Node result) {
    tree->Root = stays;
    return result;
}
Node get_before(AVL_Tree *tree, Entry *boundary) {
    const Halves halves = cut_at(tree, boundary);
    return keep(tree, halves.after, halves.before);
}
Node get_after(AVL_Tree *tree, Entry *boundary) {
    const Halves halves = cut_at(tree, boundary);
    return keep(tree, halves.before, halves.after);
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
