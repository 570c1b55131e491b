// The numeric comparators' bodies, as templates that a descent can inline.
#pragma once

#include "frame/nodes.hpp"

namespace ovant {

// Which key comes first, that is, stands on the left.
enum class Direction { smallest_first, largest_first };

// The two sides of an unordered pair (a NaN) are neither greater nor less nor equal: such a search leads to the right.
template <class T, Direction D> int compare_numbers(T node_key, T key) {
    const T left = D == Direction::smallest_first ? node_key : key;
    const T right = D == Direction::smallest_first ? key : node_key;
    if (left > right)
        return DIR_LEFT;
    return left == right ? DIR_HERE : DIR_RIGHT;
}

} // namespace ovant
