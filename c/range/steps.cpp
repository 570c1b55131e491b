// The cuts along a boundary path: split, and the two drops.
#include "ovant/engine/drop.hpp"
#include "range/kill.hpp"
#include "range/range.hpp"

using namespace ovant::c;

namespace {

template <Side Stays> Node drop_side(AVL_Tree *tree, Entry *bottom, Entry *top, Change *change, void *context) {
    const Half kept = drop<Stays>(Nodes(tree), bottom, top, Killer(tree, context), Reports(tree).of<Stays>());
    *change = kept.change;
    return kept.root;
}

} // namespace

Node AVL_SplitPfad(AVL_Tree *tree, Entry *bottom, Entry *top, Change *before, Change *after) {
    const Halves halves = split(Nodes(tree), bottom, top, Reports(tree));
    bottom->Node = halves.after.root;
    *before = halves.before.change;
    *after = halves.after.change;
    return halves.before.root;
}

void AVL_KillBelow(AVL_Tree *tree, Entry *first, Node root, void *context) {
    Killer(tree, context).below(Nodes(tree), first, root);
}
Node AVL_DropBefore(AVL_Tree *tree, Entry *bottom, Entry *top, Change *change, void *context) {
    return drop_side<Side::left>(tree, bottom, top, change, context);
}
Node AVL_DropAfter(AVL_Tree *tree, Entry *bottom, Entry *top, Change *change, void *context) {
    return drop_side<Side::right>(tree, bottom, top, change, context);
}
