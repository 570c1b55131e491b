// The named operations of the balance engine, over a tree.
#include "balance/balance.hpp"

#include "ovant/engine/climb.hpp"

using namespace ovant::c;

namespace {
Change deliver(Turned turned, Node *place, Node *cursor) {
    *place = *cursor = turned.root;
    return turned.change;
}
} // namespace

Change AVL_TurnLeft(AVL_Tree *tree, Node *place, Node *cursor) {
    return deliver(turn(Nodes(tree), Side::right, *place), place, cursor);
}
Change AVL_TurnRight(AVL_Tree *tree, Node *place, Node *cursor) {
    return deliver(turn(Nodes(tree), Side::left, *place), place, cursor);
}
Change AVL_DeepBalance(AVL_Tree *tree, Entry *work, Node *place, Node *cursor) {
    return deliver(repair(Nodes(tree), work, *place), place, cursor);
}
Change AVL_FixPfad(AVL_Tree *tree, Entry *bottom, Entry *top, Change change) {
    return fix_pfad(Nodes(tree), bottom, top, change);
}
