// The height of a subtree in one descent.
#pragma once

#include "depth.hpp"
#include "links.hpp"

namespace ovant::engine {

// No tree reaches beyond: links that lead deeper are damaged.
inline constexpr int most_levels = greatest_height(link_size);

// Goes down the lighter side, which touches the fewest nodes, and counts what each balance says of the side it skips.
// A balance that no sound tree holds counts as level.  Ends on a circle too, at a height that no tree can have.
template <class Nodes> int height(Nodes nodes, Node n) {
    int height = 0;
    while (n && height < most_levels) {
        const int balance = nodes.balance(n);
        height += balance == 1 || balance == -1 ? 2 : 1;
        n = nodes.child(balance == 1 ? Side::left : Side::right, n);
    }
    return height;
}

} // namespace ovant::engine
