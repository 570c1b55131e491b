// The ten key paths: to the root, the ends, a key, the first or last of its equal run, its neighbours.
#include "navigate/descents.hpp"

using namespace ovant::c;

namespace {

template <Rule R> PathTrail<Entry> path(AVL_Tree *tree, const void *key) {
    return descend_stack<R>(tree, tree->Stack, tree->Root, key);
}

// To the marked node, or open where the descent fell off: there only an empty tree's entry gets a Dir.
Entry *marked_or_open(const AVL_Tree *tree, const PathTrail<Entry> &trail) {
    if (trail.marked)
        return here(trail.marked);
    return trail.top == tree->Stack ? here(trail.top) : trail.top;
}

// To the neighbour towards S: the near end of the matched node's subtree, else the last turn away from S.
template <Side S, Key K> Entry *neighbour(AVL_Tree *tree, const void *key) {
    const Nodes nodes(tree);
    const PathTrail<Entry> trail = path < S == Side::left ? rule::pred : rule::succ > (tree, key);
    if (trail.top->Node) {
        Entry *const near = step_down(nodes, trail.top, S, DIR_NEW);
        if (near->Node)
            return here(push_spine<!S>(nodes, near, near->Node));
    } else if (K == Key::present) {
        return empty_pfad(tree);
    }
    if (trail.marked)
        return here(trail.marked);
    return tree->Root ? empty_pfad(tree) : AVL_MakeRoot(tree);
}

template <Side S> Entry *extreme(AVL_Tree *tree) {
    return tree->Root ? spine_or_end<S>(tree, tree->Stack, tree->Root) : AVL_MakeRoot(tree);
}

} // namespace

AVL_PfadEntry *AVL_MakeRoot(AVL_Tree *tree) {
    tree->Stack->Node = tree->Root;
    return here(tree->Stack);
}

AVL_PfadEntry *AVL_MakeMin(AVL_Tree *tree) { return extreme<Side::left>(tree); }
AVL_PfadEntry *AVL_MakeMax(AVL_Tree *tree) { return extreme<Side::right>(tree); }

AVL_PfadEntry *AVL_MakeKey(AVL_Tree *tree, const void *key) {
    PathTrail<Entry> trail = path<rule::key>(tree, key);
    if (trail.top->Node)
        trail.marked = trail.top;
    return marked_or_open(tree, trail);
}
AVL_PfadEntry *AVL_MakeFirstKey(AVL_Tree *tree, const void *key) {
    return marked_or_open(tree, path<rule::first>(tree, key));
}
AVL_PfadEntry *AVL_MakeLastKey(AVL_Tree *tree, const void *key) {
    return marked_or_open(tree, path<rule::last>(tree, key));
}

AVL_PfadEntry *AVL_MakePred(AVL_Tree *tree, const void *key) { return neighbour<Side::left, Key::any>(tree, key); }
AVL_PfadEntry *AVL_MakeSucc(AVL_Tree *tree, const void *key) { return neighbour<Side::right, Key::any>(tree, key); }
AVL_PfadEntry *AVL_MakePredKey(AVL_Tree *tree, const void *key) {
    return neighbour<Side::left, Key::present>(tree, key);
}
AVL_PfadEntry *AVL_MakeSuccKey(AVL_Tree *tree, const void *key) {
    return neighbour<Side::right, Key::present>(tree, key);
}
