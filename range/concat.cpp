// Two whole trees joined at a seam, whatever their heights.
#include "diagnostics/measures.hpp"
#include "update/cut.hpp"

using namespace ovant;

namespace {

// The other tree stands on side S.  The last node towards S leaves the tree and becomes the root between the two.
template <Side S> void concat(AVL_Tree *tree, Node other) {
    if (!other)
        return;
    const Nodes nodes(tree);
    Change change;
    Node pivot = cut<S>(nodes, tree->Stack, &tree->Root, &change, nothing_stays);
    if (!pivot) {
        tree->Root = other;
        return;
    }
    nodes.hang<S>(pivot, other);
    nodes.hang<!S>(pivot, tree->Root);
    nodes.set_lean<S>(pivot, height(nodes, other) - height(nodes, tree->Root));
    Node cursor = pivot;
    repair(nodes, tree->Stack, &pivot, &cursor);
    tree->Root = pivot;
}

} // namespace

void AVL_ConcatLess(AVL_Tree *tree, void *other) { concat<Side::right>(tree, other); }
void AVL_ConcatGreater(AVL_Tree *tree, void *other) { concat<Side::left>(tree, other); }
