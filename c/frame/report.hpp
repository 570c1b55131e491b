// The one channel for damage that an operation finds: two codes to the tree's Error callback.
#pragma once

#include "ovant.h"

namespace ovant::c {

// Who reports.  The two forward walks that can report share a code.
enum class Function : int {
    min_deepth = 5,
    virtual_null = 12,
    walk_pred_preorder = 98,
    walk_pred_postorder = 100,
    walk_succ_postorder = 101,
    walk_succ_preorder = 101,
    split_pfad = 113,
    drop_before = 114,
    drop_after = 115,
    join_sides = 118,
};

// What was found.
enum class Fault : int {
    forbidden_slot = 5, // a slot that must not run has run
    balance = 20,       // a Balance outside -1, 0, +1
    walk_end = 24,      // a walk asked to go on from nowhere
    dir_here = 32,      // DIR_HERE in the middle of a path
};

// The operation goes on when the callback returns; its result is ignored.
inline void report(const AVL_Tree *tree, Function function, Fault fault) {
    tree->Error(static_cast<int>(function), static_cast<int>(fault));
}

// What AVL_TestVersion compares with and Gen_SysError prints.
struct Version {
    int number;
    const char *working_mode;
};
extern const Version version;

} // namespace ovant::c
