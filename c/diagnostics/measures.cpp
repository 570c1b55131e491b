// The four measures of a tree's shape.  They look at links and balances only, so they say nothing of the keys.
#include "ovant/engine/measure.hpp"

#include "frame/depth.hpp"
#include "frame/nodes.hpp"
#include "frame/report.hpp"
#include "ovant/engine/sweep.hpp"

#include <cstdint>

using namespace ovant::c;

uint32_t AVL_CountNode(AVL_Tree *tree) {
    uint32_t count = 0;
    Repeats repeats;
    const auto visit = [&](Node n) { return !repeats(n) && ++count != UINT32_MAX; };
    return sweep(Nodes(tree), tree->Stack, tree->Stack + tree_depth, tree->Root, visit) ? count : UINT32_MAX;
}

signed char AVL_MaxDeepth(const AVL_Tree *tree) { return static_cast<signed char>(height(Nodes(tree), tree->Root)); }

signed char AVL_MinDeepth(AVL_Tree *tree) {
    return static_cast<signed char>(least_depth(Nodes(tree), tree->Stack, tree->Root, INT8_MAX,
                                                [tree] { report(tree, Function::min_deepth, Fault::balance); }));
}

int AVL_CheckBalance(AVL_Tree *tree) { return balances_hold(Nodes(tree), tree->Stack, tree->Root); }
