// Removal of the node that a Pfad names.
#include "update/cut.hpp"

using namespace ovant;

void AVL_DelPfad(AVL_Tree *tree, AVL_PfadEntry *pfad, const void *key, void *context) {
    const Node node = pfad->Node;
    if (!node)
        return;
    const Nodes nodes(tree);
    SavedLink saved = read_links(nodes, node); // Free may release the record
    pfad->Node = tree->Funcs->Free(node, key, context);
    if (pfad->Node == node)
        return;
    const Change change = pfad->Node ? 0 : unlink(nodes, pfad, saved);
    carry_to_root(tree, nodes, pfad, change);
}

void *AVL_GetPfad(AVL_Tree *tree, AVL_PfadEntry *pfad) {
    const Node node = pfad->Node;
    if (!node)
        return nullptr;
    const Nodes nodes(tree);
    SavedLink saved = read_links(nodes, node);
    carry_to_root(tree, nodes, pfad, unlink(nodes, pfad, saved));
    return node;
}
