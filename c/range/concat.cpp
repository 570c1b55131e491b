// Two whole trees joined at a seam, whatever their heights.
#include "frame/nodes.hpp"
#include "ovant/engine/join.hpp"

using namespace ovant::c;

void AVL_ConcatLess(AVL_Tree *tree, void *other) {
    tree->Root = concat<Side::right>(Nodes(tree), tree->Stack, tree->Root, other);
}
void AVL_ConcatGreater(AVL_Tree *tree, void *other) {
    tree->Root = concat<Side::left>(Nodes(tree), tree->Stack, tree->Root, other);
}
