// The named operations of the balance engine.
#pragma once

#include "frame/nodes.hpp"

extern "C" {
ovant::Change AVL_TurnLeft(AVL_Tree *tree, ovant::Node *place, ovant::Node *cursor);
ovant::Change AVL_TurnRight(AVL_Tree *tree, ovant::Node *place, ovant::Node *cursor);
ovant::Change AVL_FixPfad(AVL_Tree *tree, ovant::Entry *bottom, ovant::Entry *top, ovant::Change change);
ovant::Change AVL_DeepBalance(AVL_Tree *tree, ovant::Entry *work, ovant::Node *place, ovant::Node *cursor);
}
