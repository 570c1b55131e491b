// How one node leaves its place: the named operations.  The templates beneath them are in cut.hpp.
#pragma once

#include "frame/nodes.hpp"

extern "C" {
void AVL_ReadLinks(const AVL_Tree *tree, ovant::c::SavedLink *saved, ovant::c::Node node);
ovant::c::Node AVL_WriteLinks(const AVL_Tree *tree, ovant::c::Node node, const ovant::c::SavedLink *saved);
ovant::c::Change AVL_UnlinkNode(AVL_Tree *tree, ovant::c::Entry *top, ovant::c::SavedLink *saved);
ovant::c::Node AVL_CutMax(AVL_Tree *tree, ovant::c::Entry *work, ovant::c::Node *slot, ovant::c::Change *change);
ovant::c::Node AVL_CutMin(AVL_Tree *tree, ovant::c::Entry *work, ovant::c::Node *slot, ovant::c::Change *change);
}
