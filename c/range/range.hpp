// The named internal operations of the range room, and what they have in common.
#pragma once

#include "frame/nodes.hpp"
#include "frame/report.hpp"
#include "ovant/engine/split.hpp"

extern "C" {
// Boundary paths within the subtree below root, written from the entry start upward.
ovant::c::Entry *AVL_SubPfadLess(AVL_Tree *tree, ovant::c::Entry *start, ovant::c::Node root, const void *key);
ovant::c::Entry *AVL_SubPfadEqualLess(AVL_Tree *tree, ovant::c::Entry *start, ovant::c::Node root, const void *key);

ovant::c::Node AVL_SplitPfad(AVL_Tree *tree, ovant::c::Entry *bottom, ovant::c::Entry *top, ovant::c::Change *before,
                             ovant::c::Change *after);

void AVL_KillBelow(AVL_Tree *tree, ovant::c::Entry *first, ovant::c::Node root, void *context);
ovant::c::Node AVL_DropBefore(AVL_Tree *tree, ovant::c::Entry *bottom, ovant::c::Entry *top, ovant::c::Change *change,
                              void *context);
ovant::c::Node AVL_DropAfter(AVL_Tree *tree, ovant::c::Entry *bottom, ovant::c::Entry *top, ovant::c::Change *change,
                             void *context);
}

namespace ovant::c {

// Damage goes to the tree's error callback, with the code of the operation that met it.
class Reports {
public:
    explicit Reports(const AVL_Tree *tree, Function path_function = Function::split_pfad)
        : tree_(tree), path_function_(path_function) {}
    // For a drop of which the part on side S of the boundary goes.
    template <Side Stays> Reports of() const {
        return Reports(tree_, Stays == Side::left ? Function::drop_before : Function::drop_after);
    }
    void dir_here() const { report(tree_, path_function_, Fault::dir_here); }
    void wrong_balance() const { report(tree_, Function::join_sides, Fault::balance); }

private:
    const AVL_Tree *tree_;
    Function path_function_;
};

} // namespace ovant::c
