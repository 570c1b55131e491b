// The insert family: one descent, one way to link a new node in, and each operation's own rule for a key that is there.
#include "navigate/descents.hpp"
#include "ovant/engine/climb.hpp"

using namespace ovant::c;

namespace {

// Down to the first match, whose entry then holds a node, or to the free position.
template <Rule R> Entry *find_place(AVL_Tree *tree, const void *key) {
    return descend_stack<R>(tree, tree->Stack, tree->Root, key).top;
}

// The node that top holds is new at its place.
void link_in(AVL_Tree *tree, Entry *top) {
    grow(Nodes(tree), tree->Stack, top);
    tree->Root = tree->Stack->Node;
}

// Asks for a node and links it in at the free position top.  Without one nothing has changed.
Node link_new(AVL_Tree *tree, Entry *top, const void *key, void *context) {
    const Node node = tree->Funcs->Malloc(key, context);
    top->Node = node;
    if (node)
        link_in(tree, top);
    return node;
}

} // namespace

void *AVL_Insert(AVL_Tree *tree, const void *key, void *context) {
    Entry *top = find_place<rule::key>(tree, key);
    if (top->Node) { // next to the equal node, on its lighter side
        const Nodes nodes(tree);
        top = nodes.balance(top->Node) > 0 ? beside<Side::left>(nodes, top) : beside<Side::right>(nodes, top);
    }
    return link_new(tree, top, key, context);
}

void *AVL_InsertStabil(AVL_Tree *tree, const void *key, void *context) {
    return link_new(tree, find_place<rule::back>(tree, key), key, context);
}

void *AVL_InsertUnique(AVL_Tree *tree, const void *key, void *context) {
    Entry *const top = find_place<rule::key>(tree, key);
    return top->Node ? nullptr : link_new(tree, top, key, context);
}

void *AVL_InsertSearchKey(AVL_Tree *tree, const void *key, void *context) {
    Entry *const top = find_place<rule::key>(tree, key);
    return top->Node ? top->Node : link_new(tree, top, key, context);
}

void *AVL_InsertKey(AVL_Tree *tree, const void *key, void *context) {
    Entry *const top = find_place<rule::key>(tree, key);
    const Node node = top->Node;
    if (!node)
        return link_new(tree, top, key, context);
    const Node moved = tree->Funcs->Realloc(node, key, context);
    if (moved != node) { // it brings the header along; only the link to it is new
        if (top == tree->Stack)
            tree->Root = moved;
        else
            Nodes(tree).hang(side_of(top[-1].Dir), top[-1].Node, moved);
    }
    return moved;
}

void *AVL_InsertGetKey(AVL_Tree *tree, const void *key, void *context) {
    Entry *const top = find_place<rule::key>(tree, key);
    if (top->Node)
        return AVL_GetPfad(tree, top);
    link_new(tree, top, key, context);
    return nullptr;
}

void AVL_InsertStack(AVL_Tree *tree, AVL_PfadEntry *pfad, void *node) {
    pfad->Node = node;
    if (node)
        link_in(tree, pfad);
}
