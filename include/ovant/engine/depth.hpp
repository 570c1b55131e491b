// How high a tree can be.
#pragma once

#include <cstddef>

namespace ovant::engine {

// A height that no tree reaches beyond whose nodes have this size and lie in one address space, so that no operation
// has to check a bound.  The least tree of height h is one node above the least ones of heights h-1 and h-2.
constexpr int greatest_height(std::size_t node_size) {
    const std::size_t most_nodes = ~std::size_t(0) / node_size;
    std::size_t least = 1, lower = 0;
    int height = 1;
    while (least < most_nodes) {
        const std::size_t next = least + lower + 1;
        lower = least;
        least = next;
        ++height;
    }
    return height;
}

} // namespace ovant::engine
