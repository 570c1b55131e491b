// How one node leaves its place: the named operations.  The templates beneath them are in cut.hpp.
#pragma once

#include "frame/nodes.hpp"

extern "C" {
void AVL_ReadLinks(const AVL_Tree *tree, ovant::SavedLink *saved, ovant::Node node);
ovant::Node AVL_WriteLinks(const AVL_Tree *tree, ovant::Node node, const ovant::SavedLink *saved);
ovant::Change AVL_UnlinkNode(AVL_Tree *tree, ovant::Entry *top, ovant::SavedLink *saved);
ovant::Node AVL_CutMax(AVL_Tree *tree, ovant::Entry *work, ovant::Node *slot, ovant::Change *change);
ovant::Node AVL_CutMin(AVL_Tree *tree, ovant::Entry *work, ovant::Node *slot, ovant::Change *change);
}
