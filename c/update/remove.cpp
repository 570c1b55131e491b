// Removal of the node that a Pfad names.
#include "ovant/engine/remove.hpp"
#include "frame/nodes.hpp"

using namespace ovant::c;

namespace {

// The place at top holds another node, or none, and has lost that much height.
void carry_loss(AVL_Tree *tree, Entry *top, Change change) {
    shrink(Nodes(tree), tree->Stack, top, change, own_dir);
    tree->Root = tree->Stack->Node;
}

} // namespace

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
    carry_loss(tree, pfad, change);
}

void *AVL_GetPfad(AVL_Tree *tree, AVL_PfadEntry *pfad) {
    const Node node = pfad->Node;
    if (!node)
        return nullptr;
    const Nodes nodes(tree);
    SavedLink saved = read_links(nodes, node);
    carry_loss(tree, pfad, unlink(nodes, pfad, saved));
    return node;
}
