// Ovant as a host uses it: the C interface through the shared library.
#pragma once

#include "round.hpp"

#include "ovant.h"

namespace bench {

// The packed header and the key behind it: 24 bytes.
struct OvantNode {
    AVL_Link link = {};
    char fill[3] = {};
    Key key = 0;
};
static_assert(sizeof(OvantNode) == 24 && offsetof(OvantNode, key) == 20);

// What a host brings itself: a comparator, and a Kill that does nothing but is called for each node.
inline int host_order(const void *node_key, const void *key) {
    const Key here = *static_cast<const Key *>(node_key), asked = *static_cast<const Key *>(key);
    return (asked > here) - (asked < here);
}
inline void host_kill(void *, void *) {}
inline constexpr AVL_NodeFuncs host_handlers = {AVL_Malloc_RetHandleDirekt, AVL_Realloc_RetHandleDirekt,
                                                AVL_Free_RetNULL, host_kill};

// With Unique an equal key is refused, without it goes beside the one that is there.
template <AVL_CmpFunc Cmp, bool Unique = true> class OvantTree {
public:
    using Node = OvantNode;

    OvantTree() : tree_(AVL_Konstruktor(0, handlers(), offsetof(Node, key), Cmp, nullptr)) {}
    ~OvantTree() { AVL_Destruktor(tree_); }
    OvantTree(const OvantTree &) = delete;
    OvantTree &operator=(const OvantTree &) = delete;

    void insert(Node &node) {
        if constexpr (Unique)
            AVL_InsertUnique(tree_, &node.key, &node);
        else
            AVL_Insert(tree_, &node.key, &node);
    }
    void append(Node &node) {
        AVL_PfadEntry *last = AVL_MakeMax(tree_);
        AVL_InsertStack(tree_, last->Node ? AVL_WalkRight(tree_, last) : last, &node);
    }
    Key find(Key key) const { return key_of(AVL_SearchKey(tree_, &key)); }
    Key lower_bound(Key key) const { return key_of(AVL_SearchGreaterEqual(tree_, &key)); }
    std::uint64_t walk() {
        std::uint64_t sum = 0;
        for (AVL_PfadEntry *at = AVL_WalkSuccInorder(tree_, nullptr); at->Node; at = AVL_WalkSuccInorder(tree_, at))
            sum += key_of(at->Node);
        return sum;
    }
    bool erase(Key key) {
        AVL_PfadEntry *const at = AVL_MakeKey(tree_, &key);
        return at->Node && AVL_GetPfad(tree_, at);
    }
    void pop_first() { keep(AVL_GetMin(tree_)); }
    void erase_range(Key first, Key last) { AVL_DelBetweenEqualEqual(tree_, &first, &last, nullptr); }
    void cut(Key first, Key last, OvantTree &other) {
        AVL_ConcatLess(other.tree_, AVL_GetBetweenEqualEqual(tree_, &first, &last));
    }
    void join(OvantTree &other) { AVL_ConcatLess(tree_, AVL_GetTree(other.tree_)); }
    void clear() { AVL_ClrTree(tree_); }

    AVL_Tree *tree() { return tree_; }

    static void reuse(Node &node, Key key) { node = {.key = key}; }

private:
    static const AVL_NodeFuncs *handlers() { return Cmp == host_order ? &host_handlers : AVL_GetNodeFuncPtrRetNULL(); }
    static Key key_of(const void *node) { return node ? static_cast<const Node *>(node)->key : 0; }

    AVL_Tree *tree_;
};

} // namespace bench
