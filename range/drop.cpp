// The sweep and the two drops over a tree.
#include "range/drop.hpp"

#include "frame/report.hpp"
#include "range/range.hpp"

using namespace ovant;

namespace {

Killer killer(const AVL_Tree *tree, void *context) { return {tree->Funcs->Kill, context}; }

template <Side S>
Node drop_side(AVL_Tree *tree, Entry *bottom, Entry *top, Change *change, void *context, Function reports_as) {
    Half kept;
    drop<S>(Nodes(tree), bottom, top, kept, killer(tree, context), [=] { report(tree, reports_as, Fault::dir_here); });
    *change = kept.change;
    return kept.root;
}

} // namespace

void AVL_KillBelow(AVL_Tree *tree, Entry *first, Node root, void *context) {
    killer(tree, context).below(Nodes(tree), first, root);
}
Node AVL_DropBefore(AVL_Tree *tree, Entry *bottom, Entry *top, Change *change, void *context) {
    return drop_side<Side::left>(tree, bottom, top, change, context, Function::drop_before);
}
Node AVL_DropAfter(AVL_Tree *tree, Entry *bottom, Entry *top, Change *change, void *context) {
    return drop_side<Side::right>(tree, bottom, top, change, context, Function::drop_after);
}
