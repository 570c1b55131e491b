// The ranges between two bounds: how each is found.
#pragma once

#include "range/range.hpp"

namespace ovant {

// path ends at the pivot, the first node of the descent that lies in the range: the whole range lies in its subtree.
// left and right then mark where the range begins in the pivot's left subtree and where it ends in the right one.
struct Range {
    Entry *(*path)(AVL_Tree *tree, const void *first, const void *second);
    Entry *(*left)(AVL_Tree *tree, Entry *start, Node root, const void *first);
    Entry *(*right)(AVL_Tree *tree, Entry *start, Node root, const void *second);
};

namespace between {
inline constexpr Range equal_equal{AVL_MakeBetweenEqualEqual, AVL_SubPfadLess, AVL_SubPfadEqualLess};
inline constexpr Range equal_less{AVL_MakeBetweenEqualLess, AVL_SubPfadLess, AVL_SubPfadLess};
inline constexpr Range greater_less{AVL_MakeBetweenGreaterLess, AVL_SubPfadEqualLess, AVL_SubPfadLess};
// The equal run of one key, which stands as both bounds.
inline constexpr Range key{[](AVL_Tree *tree, const void *first, const void *) { return AVL_MakeKey(tree, first); },
                           AVL_SubPfadLess, AVL_SubPfadEqualLess};
} // namespace between

} // namespace ovant
