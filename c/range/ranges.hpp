// The ranges between two bounds: how each is found.
#pragma once

#include "ovant/engine/between.hpp"
#include "range/range.hpp"

namespace ovant::c {

// path ends at the pivot, the first node of the descent that lies in the range.  left and right then mark where the
// range begins in the pivot's left subtree and where it ends in the right one.
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

// Runs work with the path to a range's pivot, the two boundaries below it, each found over the entries from the pivot's
// on when it is asked for, and where to report to.  Without a pivot there is nothing to do.
template <class Work>
void at_pivot(AVL_Tree *tree, const Range &range, const void *first, const void *second, Work work) {
    Entry *const top = range.path(tree, first, second);
    if (!top->Node)
        return;
    const auto left = [=](Node root) { return Boundary<Entry>{top, range.left(tree, top, root, first)}; };
    const auto right = [=](Node root) { return Boundary<Entry>{top, range.right(tree, top, root, second)}; };
    work(top, left, right);
}

} // namespace ovant::c
