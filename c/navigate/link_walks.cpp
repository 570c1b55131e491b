// The three walks that follow links: a step needs only the position and the Dir of the entries below it.  The step in
// tree order serves open Pfads and the end position too.
#include "frame/report.hpp"
#include "navigate/descents.hpp"

using namespace ovant::c;

namespace {

template <Side F> Entry *inorder(AVL_Tree *tree, Entry *position) {
    if (!position)
        return F == Side::right ? AVL_MakeMin(tree) : AVL_MakeMax(tree);
    if (position->Node) {
        if (const Node next = Nodes(tree).child<F>(position->Node)) {
            if (position == last_entry(tree)) [[unlikely]]
                return too_deep(tree);
            position->Dir = sign(F);
            return spine_or_end<!F>(tree, position + 1, next);
        }
    }
    do { // up to the first ancestor that the path left away from F; the sentinel below the stack has neither Dir
        --position;
        while (position->Dir == sign(F))
            --position;
        asm("" : "+r"(position)); // or Dir would be kept for the next question, for an instruction more on each level
        if (position->Dir == sign(!F)) [[likely]]
            return here(position);
    } while (position >= tree->Stack);
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
        return down_or_end(tree, position, Side::left, DIR_HERE);
    while (!nodes.child<Side::right>(position->Node)) {
        do { // up to the nearest node whose right subtree is still to come
            if (position == tree->Stack)
                return empty_pfad(tree);
            --position;
        } while (position->Dir != DIR_LEFT);
    }
    return down_or_end(tree, position, Side::right, DIR_HERE);
}
