// The three walks that follow links: a step needs only the position and the Dir of the entries below it.
#include "frame/report.hpp"
#include "navigate/positions.hpp"

using namespace ovant;

namespace {

// In tree order towards F: down into the F subtree and along its near spine, else up to the first ancestor that the
// path left away from F.  A position without a node only climbs, which serves open Pfads and the end position.
template <Side F> Entry *inorder(AVL_Tree *tree, Entry *position) {
    if (!position)
        return F == Side::right ? AVL_MakeMin(tree) : AVL_MakeMax(tree);
    const Nodes nodes(tree);
    if (position->Node) {
        if (const Node next = nodes.child<F>(position->Node)) {
            position->Dir = sign(F);
            return here(push_spine<!F>(nodes, position + 1, next));
        }
    }
    while (position != tree->Stack) {
        --position;
        if (position->Dir == sign(!F))
            return here(position);
    }
    return empty_pfad(tree);
}

} // namespace

AVL_PfadEntry *AVL_WalkSuccInorder(AVL_Tree *tree, AVL_PfadEntry *position) {
    return inorder<Side::right>(tree, position);
}
AVL_PfadEntry *AVL_WalkPredInorder(AVL_Tree *tree, AVL_PfadEntry *position) {
    return inorder<Side::left>(tree, position);
}

AVL_PfadEntry *AVL_WalkSuccPreorder(AVL_Tree *tree, AVL_PfadEntry *position) {
    if (!position)
        return AVL_MakeRoot(tree);
    if (!position->Node) {
        report(tree, Function::walk_succ_preorder, Fault::walk_end);
        return nullptr;
    }
    const Nodes nodes(tree);
    if (nodes.child<Side::left>(position->Node))
        return step_down(nodes, position, Side::left, DIR_HERE);
    while (!nodes.child<Side::right>(position->Node)) {
        do { // up to the nearest node whose right subtree is still to come
            if (position == tree->Stack)
                return empty_pfad(tree);
            --position;
        } while (position->Dir != DIR_LEFT);
    }
    return step_down(nodes, position, Side::right, DIR_HERE);
}
