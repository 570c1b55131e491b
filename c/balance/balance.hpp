// The named operations of the balance engine.
#pragma once

#include "frame/nodes.hpp"

extern "C" {
ovant::c::Change AVL_TurnLeft(AVL_Tree *tree, ovant::c::Node *place, ovant::c::Node *cursor);
ovant::c::Change AVL_TurnRight(AVL_Tree *tree, ovant::c::Node *place, ovant::c::Node *cursor);
ovant::c::Change AVL_FixPfad(AVL_Tree *tree, ovant::c::Entry *bottom, ovant::c::Entry *top, ovant::c::Change change);
ovant::c::Change AVL_DeepBalance(AVL_Tree *tree, ovant::c::Entry *work, ovant::c::Node *place, ovant::c::Node *cursor);
}
