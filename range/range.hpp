// The named internal operations of the range room.
#pragma once

#include "frame/nodes.hpp"

extern "C" {
// Boundary paths within the subtree below root, written from the entry start upward.
ovant::Entry *AVL_SubPfadLess(AVL_Tree *tree, ovant::Entry *start, ovant::Node root, const void *key);
ovant::Entry *AVL_SubPfadEqualLess(AVL_Tree *tree, ovant::Entry *start, ovant::Node root, const void *key);

ovant::Node AVL_SplitPfad(AVL_Tree *tree, ovant::Entry *bottom, ovant::Entry *top, ovant::Change *before,
                          ovant::Change *after);
ovant::Change AVL_JoinSides(AVL_Tree *tree, ovant::Entry *top, ovant::SavedLink *gone, ovant::Change left,
                            ovant::Change right);

void AVL_KillBelow(AVL_Tree *tree, ovant::Entry *first, ovant::Node root, void *context);
ovant::Node AVL_DropBefore(AVL_Tree *tree, ovant::Entry *bottom, ovant::Entry *top, ovant::Change *change,
                           void *context);
ovant::Node AVL_DropAfter(AVL_Tree *tree, ovant::Entry *bottom, ovant::Entry *top, ovant::Change *change,
                          void *context);
}
