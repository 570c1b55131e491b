// Removal of the first or last node of the tree: a cut at the end of an outer spine, with or without the Free handler.
#include "frame/nodes.hpp"
#include "ovant/engine/remove.hpp"

using namespace ovant::c;

namespace {

template <Side S> Node take(AVL_Tree *tree) {
    Change change;
    return cut<S>(Nodes(tree), tree->Stack, &tree->Root, &change, nothing_stays);
}

template <Side S> void free_extreme(AVL_Tree *tree, void *context) {
    Change change;
    cut<S>(Nodes(tree), tree->Stack, &tree->Root, &change,
           [=](Node n) { return tree->Funcs->Free(n, nullptr, context); });
}

} // namespace

void *AVL_GetMin(AVL_Tree *tree) { return take<Side::left>(tree); }
void *AVL_GetMax(AVL_Tree *tree) { return take<Side::right>(tree); }
void AVL_DelMin(AVL_Tree *tree, void *context) { free_extreme<Side::left>(tree, context); }
void AVL_DelMax(AVL_Tree *tree, void *context) { free_extreme<Side::right>(tree, context); }
