// Paths that mark where a range begins and ends: boundaries, which are empty links, and pivots.
#include "navigate/descents.hpp"
#include "range/range.hpp"

using namespace ovant::c;

namespace {

// To the empty link at the front or back boundary of key below root.  Returns the last entry that holds a node, or
// start if there is none.
template <Rule R> Entry *boundary(AVL_Tree *tree, Entry *start, Node root, const void *key) {
    Entry *const top = descend_stack<R>(tree, start, root, key).top;
    return top == start ? start : top - 1;
}

// To the first node between two gaps, or to the free position where the descent fell off.
template <Edge First, Edge Second> Entry *pivot(AVL_Tree *tree, const void *first, const void *second) {
    const KeyGap<First, HostOrder> begin{HostOrder(tree, first)};
    const KeyGap<Second, HostOrder> end{HostOrder(tree, second)};
    return descend<rule::key>(Nodes(tree), tree->Root, Between(begin, end), PathTrail<Entry>{tree->Stack}).top;
}

// Two of the five builders close the path on an empty tree.
Entry *closed_if_empty(const AVL_Tree *tree, Entry *top) {
    if (!tree->Root)
        top->Dir = DIR_HERE;
    return top;
}

} // namespace

Entry *AVL_SubPfadLess(AVL_Tree *tree, Entry *start, Node root, const void *key) {
    return boundary<rule::front>(tree, start, root, key);
}
Entry *AVL_SubPfadEqualLess(AVL_Tree *tree, Entry *start, Node root, const void *key) {
    return boundary<rule::back>(tree, start, root, key);
}

AVL_PfadEntry *AVL_MakeLess(AVL_Tree *tree, const void *key) {
    return closed_if_empty(tree, AVL_SubPfadLess(tree, tree->Stack, tree->Root, key));
}
AVL_PfadEntry *AVL_MakeEqualLess(AVL_Tree *tree, const void *key) {
    return AVL_SubPfadEqualLess(tree, tree->Stack, tree->Root, key);
}

AVL_PfadEntry *AVL_MakeBetweenEqualEqual(AVL_Tree *tree, const void *first, const void *second) {
    return pivot<Edge::front, Edge::back>(tree, first, second);
}
AVL_PfadEntry *AVL_MakeBetweenEqualLess(AVL_Tree *tree, const void *first, const void *second) {
    return pivot<Edge::front, Edge::front>(tree, first, second);
}
AVL_PfadEntry *AVL_MakeBetweenGreaterLess(AVL_Tree *tree, const void *first, const void *second) {
    return closed_if_empty(tree, pivot<Edge::back, Edge::front>(tree, first, second));
}
