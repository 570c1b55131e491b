// How nodes go in a deletion.
#pragma once

#include "frame/depth.hpp"
#include "frame/nodes.hpp"
#include "ovant/engine/sweep.hpp"

namespace ovant::c {

// Hands nodes to the tree's Kill.  A whole subtree need not be visited for a handler that does nothing with a node:
// then a deletion costs no more than a cut.
class Killer {
public:
    Killer(const AVL_Tree *tree, void *context)
        : kill_(tree->Funcs->Kill), context_(context), last_(tree->Stack + tree_depth) {}

    void operator()(Node n) const { kill_(n, context_); }
    void below(Nodes nodes, Entry *first, Node root) const {
        if (kill_ != AVL_Kill_Ret)
            sweep(nodes, first, last_, root, [this](Node n) {
                (*this)(n);
                return true;
            });
    }

private:
    void (*kill_)(void *node, void *context);
    void *context_;
    Entry *last_;
};

} // namespace ovant::c
