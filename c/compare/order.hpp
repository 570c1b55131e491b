// The orders of the C face: the tree's comparator called, or a ready-made one computed in place.
#pragma once

#include "compare/numbers.hpp"

namespace ovant::c {

// The tree's own comparator, whatever it is.
class HostOrder {
public:
    HostOrder(const AVL_Tree *tree, const void *key) : cmp_(tree->Cmp), key_off_(tree->KeyOff), key_(key) {}
    struct Answer {
        int dir;
        bool match() const { return dir == DIR_HERE; }
        bool left() const { return dir < DIR_HERE; }
        bool right() const { return dir > DIR_HERE; }
    };
    Answer operator()(Node n) const { return {cmp_(static_cast<const char *>(n) + key_off_, key_)}; }

private:
    AVL_CmpFunc cmp_;
    std::size_t key_off_;
    const void *key_;
};

// A ready-made numeric comparator, inlined, with the search key read once.
template <class T, Direction D> class NumberOrder {
public:
    NumberOrder(const AVL_Tree *tree, T key) : key_off_(tree->KeyOff), key_(key) {}
    ValueAnswer<T, D> operator()(Node n) const { return {load<T>(n, key_off_), key_}; }

private:
    std::size_t key_off_;
    T key_;
};

// Runs a descent from start with the order of a tree and a key.  The only place that knows which comparators are
// inlined: those of numbers that serve as keys of large trees; a string comparison gains too little.  Where there is
// nothing to descend into nothing is asked, so the key, which may be gone by then, is not read.
template <class Run>
[[gnu::always_inline]] inline auto with_order(const AVL_Tree *tree, Node start, const void *key, Run run) {
    const AVL_CmpFunc cmp = start ? tree->Cmp : nullptr;
    if (cmp == AVL_CMP_HandlePointer)
        return run(NumberOrder<std::uint32_t, Direction::smallest_first>(tree, load<std::uint32_t>(key)));
    if (cmp == AVL_CMP_HandleDirekt)
        return run(NumberOrder<std::uint32_t, Direction::largest_first>(tree, direct_key(key)));
    if (cmp == AVL_CMP_SignedLong)
        return run(NumberOrder<std::int32_t, Direction::largest_first>(tree, load<std::int32_t>(key)));
    if (cmp == AVL_CMP_Double)
        return run(NumberOrder<double, Direction::smallest_first>(tree, load<double>(key)));
    if (cmp == AVL_CMP_Float)
        return run(NumberOrder<float, Direction::smallest_first>(tree, load<float>(key)));
    return run(HostOrder(tree, key));
}

} // namespace ovant::c
