// The eleven searches: the node alone, with the path stack left as it is.
#include "navigate/descents.hpp"

using namespace ovant::c;

namespace {

template <Rule R> NodeTrail search(const AVL_Tree *tree, const void *key) {
    return with_order(tree, tree->Root, key,
                      [tree](const auto &order) { return descend<R>(Nodes(tree), tree->Root, order, NodeTrail{}); });
}

// The neighbour towards S of the first node that matches, or of the place where an absent key would stand.
template <Side S, Key K> Node neighbour(const AVL_Tree *tree, const void *key) {
    const Nodes nodes(tree);
    const NodeTrail trail = search < S == Side::left ? rule::pred : rule::succ > (tree, key);
    if (!trail.at)
        return K == Key::any ? trail.marked : nullptr;
    const Node near = nodes.child<S>(trail.at);
    return near ? end_of_spine<!S>(nodes, near) : trail.marked;
}

} // namespace

void *AVL_SearchKey(const AVL_Tree *tree, const void *key) { return search<rule::key>(tree, key).at; }

void *AVL_SearchPred(const AVL_Tree *tree, const void *key) { return neighbour<Side::left, Key::any>(tree, key); }
void *AVL_SearchSucc(const AVL_Tree *tree, const void *key) { return neighbour<Side::right, Key::any>(tree, key); }
void *AVL_SearchPredKey(const AVL_Tree *tree, const void *key) {
    return neighbour<Side::left, Key::present>(tree, key);
}
void *AVL_SearchSuccKey(const AVL_Tree *tree, const void *key) {
    return neighbour<Side::right, Key::present>(tree, key);
}

void *AVL_SearchLess(const AVL_Tree *tree, const void *key) { return search<rule::less>(tree, key).marked; }
void *AVL_SearchLessEqual(const AVL_Tree *tree, const void *key) { return search<rule::less_equal>(tree, key).marked; }
void *AVL_SearchGreater(const AVL_Tree *tree, const void *key) { return search<rule::greater>(tree, key).marked; }
void *AVL_SearchGreaterEqual(const AVL_Tree *tree, const void *key) {
    return search<rule::greater_equal>(tree, key).marked;
}

void *AVL_SearchMin(const AVL_Tree *tree) { return end_of_spine<Side::left>(Nodes(tree), tree->Root); }
void *AVL_SearchMax(const AVL_Tree *tree) { return end_of_spine<Side::right>(Nodes(tree), tree->Root); }
