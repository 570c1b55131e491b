// How an operation asks the way: an order is called with a node and answers -1 (Left), 0 (match) or +1 (Right).
#pragma once

#include "frame/nodes.hpp"

namespace ovant {

// The tree's own comparator, whatever it is.
class HostOrder {
public:
    HostOrder(const AVL_Tree *tree, const void *key) : cmp_(tree->Cmp), key_off_(tree->KeyOff), key_(key) {}
    int operator()(Node n) const { return cmp_(static_cast<const char *>(n) + key_off_, key_); }

private:
    AVL_CmpFunc cmp_;
    std::size_t key_off_;
    const void *key_;
};

// A range of two bounds: +1 for a node before it, 0 inside, -1 behind.  The second bound is asked only of a node that
// the first one lets pass.
template <int Before, int Behind> class RangeOrder {
public:
    RangeOrder(const AVL_Tree *tree, const void *first, const void *second)
        : first_(tree, first), second_(tree, second) {}
    int operator()(Node n) const {
        if (first_(n) >= Before)
            return DIR_RIGHT;
        return second_(n) <= Behind ? DIR_LEFT : DIR_HERE;
    }

private:
    HostOrder first_, second_;
};

} // namespace ovant
