// The three single steps with which a host steers by hand.
#include "navigate/descents.hpp"

using namespace ovant::c;

AVL_PfadEntry *AVL_WalkLeft(AVL_Tree *tree, AVL_PfadEntry *position) {
    return position->Node ? down_or_end(tree, position, Side::left, DIR_HERE) : nullptr;
}
AVL_PfadEntry *AVL_WalkRight(AVL_Tree *tree, AVL_PfadEntry *position) {
    return position->Node ? down_or_end(tree, position, Side::right, DIR_HERE) : nullptr;
}
AVL_PfadEntry *AVL_WalkUp(AVL_Tree *tree, AVL_PfadEntry *position) {
    return position == tree->Stack ? empty_pfad(tree) : here(position - 1);
}
