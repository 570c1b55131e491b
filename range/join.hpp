// Two sides joined around a node of the higher one.
#pragma once

#include "update/cut.hpp"

#include <algorithm>

namespace ovant {

// The node that gone describes has left; its two sides have changed by left and right since.  Makes one tree of them:
// the node next to the gap on the higher side, the right one if both are level, becomes the root, and the repair copes
// with any difference of the heights.  The entry top takes the root, or 0 if both sides are empty.  Returns the new
// height minus the height of the subtree that the gone node headed.
template <class Nodes> Change join(Nodes nodes, Entry *top, SavedLink &gone, Change left, Change right) {
    // Both changes now count from the higher side's old height, so their difference is the true balance.
    (gone.balance < 0 ? right : left) -= gone.balance == 0 ? 0 : 1;
    gone.balance = right - left;

    // The higher side cannot be empty beside one that is not, unless the saved balance was a lie.
    const bool from_left = gone.left && (gone.balance < 0 || !gone.right);
    Change cut_change;
    top->Node = from_left ? take_heir<Side::left>(nodes, top, gone, &cut_change)
                          : take_heir<Side::right>(nodes, top, gone, &cut_change);
    (from_left ? left : right) += cut_change;
    if (!top->Node)
        return std::max(left, right) - 1;
    Node cursor = write_links(nodes, top->Node, gone);
    return repair(nodes, top + 1, &top->Node, &cursor) + std::max(left, right);
}

} // namespace ovant
