// How high a tree can be.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ovant::engine {

// A height that no tree reaches beyond whose nodes have this size and lie in one address space, so that no operation
// has to check a bound.  The least tree of height h is one node above the least ones of heights h-1 and h-2.
constexpr int greatest_height(std::size_t node_size) {
    const std::uintptr_t most_nodes = UINTPTR_MAX / node_size;
    std::uintptr_t least = 1, lower = 0;
    int height = 1;
    while (least < most_nodes) {
        const std::uintptr_t next = least + lower + 1;
        lower = least;
        least = next;
        ++height;
    }
    return height;
}

} // namespace ovant::engine
