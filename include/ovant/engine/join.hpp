// Trees joined: two sides around a node of the higher one, two whole trees at a seam.
#pragma once

#include "height.hpp"
#include "remove.hpp"
#include "split.hpp"

namespace ovant::engine {

// The node that gone describes has left; its two sides have changed by left and right since.  Makes one tree of them:
// the node next to the gap on the higher side, the right one if both are level, becomes the root, and the repair copes
// with any difference of the heights.  The entry top takes the root, or 0 if both sides are empty.  Returns the new
// height minus the height of the subtree that the gone node headed.
template <class Nodes, class Entry, class Report = NoReport>
Change join(Nodes nodes, Entry *top, SavedLink &gone, Change left, Change right, Report report = {}) {
    if (gone.balance < -1 || gone.balance > 1) {
        report.wrong_balance();
        gone.balance = 0;
    }
    // Both changes now count from the higher side's old height, so their difference is the true balance.
    (gone.balance < 0 ? right : left) -= gone.balance == 0 ? 0 : 1;
    gone.balance = right - left;

    // The higher side cannot be empty beside one that is not, unless the saved balance was a lie.
    const bool from_left = gone.left && (gone.balance < 0 || !gone.right);
    Change cut_change;
    top->Node = from_left ? take_heir<Side::left>(nodes, top, gone, &cut_change)
                          : take_heir<Side::right>(nodes, top, gone, &cut_change);
    (from_left ? left : right) += cut_change;
    const Change higher = left > right ? left : right;
    if (!top->Node)
        return higher - 1;
    Node cursor = write_links(nodes, top->Node, gone);
    return repair(nodes, top + 1, &top->Node, &cursor) + higher;
}

// One tree of two, of which other stands on side S.  The last node towards S leaves the first one and becomes the root
// between the two.  Both heights are measured, in a descent each.
template <Side S, class Nodes, class Entry> Node concat(Nodes nodes, Entry *work, Node root, Node other) {
    if (!other)
        return root;
    Change change;
    Node pivot = cut<S>(nodes, work, &root, &change, nothing_stays);
    if (!pivot)
        return other;
    nodes.template hang<S>(pivot, other);
    nodes.template hang<!S>(pivot, root);
    nodes.template set_lean<S>(pivot, height(nodes, other) - height(nodes, root));
    nodes.refresh(pivot);
    Node cursor = pivot;
    repair(nodes, work, &pivot, &cursor);
    return pivot;
}

} // namespace ovant::engine
