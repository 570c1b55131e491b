// The named operations beneath removal, over a tree.
#include "update/unlink.hpp"

#include "ovant/engine/remove.hpp"

using namespace ovant::c;

void AVL_ReadLinks(const AVL_Tree *tree, SavedLink *saved, Node node) { *saved = read_links(Nodes(tree), node); }
Node AVL_WriteLinks(const AVL_Tree *tree, Node node, const SavedLink *saved) {
    return write_links(Nodes(tree), node, *saved);
}
Change AVL_UnlinkNode(AVL_Tree *tree, Entry *top, SavedLink *saved) { return unlink(Nodes(tree), top, *saved); }
Node AVL_CutMax(AVL_Tree *tree, Entry *work, Node *slot, Change *change) {
    return cut<Side::right>(Nodes(tree), work, slot, change, nothing_stays);
}
Node AVL_CutMin(AVL_Tree *tree, Entry *work, Node *slot, Change *change) {
    return cut<Side::left>(Nodes(tree), work, slot, change, nothing_stays);
}
