// Heights and node counts: how high a tree of n nodes can be, how few nodes a height needs.
#pragma once

#include "ovant.h"
#include "ovant/engine/depth.hpp"

#include <array>
#include <cstddef>
#include <cstdint>

namespace ovant::c {

// Fewest nodes of an AVL tree of height h: one more than the two least subtrees, of heights h-1 and h-2.  The last
// entry is the cap of 32 bits, which the rule passes.
constexpr std::array<std::uint32_t, 47> make_least_nodes() {
    std::array<std::uint32_t, 47> least{0, 1};
    for (std::size_t h = 2; h < least.size(); ++h)
        least[h] = least[h - 1] + least[h - 2] + 1;
    least.back() = UINT32_MAX;
    return least;
}
inline constexpr std::array<std::uint32_t, 47> Deepth_Table = make_least_nodes();
inline constexpr signed char Deepth_Count = Deepth_Table.size();

// The depth of every tree's stack.  The same rule as the table's, in the width of a pointer.
inline constexpr int tree_depth = engine::greatest_height(sizeof(AVL_Link));
static_assert(sizeof(void *) != 4 || tree_depth == 42);

} // namespace ovant::c
