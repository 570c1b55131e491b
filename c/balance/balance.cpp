// The named operations of the balance engine, over a tree.
#include "balance/balance.hpp"

#include "ovant/engine/climb.hpp"

using namespace ovant::c;

Change AVL_TurnLeft(AVL_Tree *tree, Node *place, Node *cursor) { return turn<Side::right>(Nodes(tree), place, cursor); }
Change AVL_TurnRight(AVL_Tree *tree, Node *place, Node *cursor) { return turn<Side::left>(Nodes(tree), place, cursor); }
Change AVL_DeepBalance(AVL_Tree *tree, Entry *work, Node *place, Node *cursor) {
    return repair(Nodes(tree), work, place, cursor);
}
Change AVL_FixPfad(AVL_Tree *tree, Entry *bottom, Entry *top, Change change) {
    return fix_pfad(Nodes(tree), bottom, top, change);
}
