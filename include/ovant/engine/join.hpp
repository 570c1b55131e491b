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
    const Turned turned = repair(nodes, top + 1, write_links(nodes, top->Node, gone));
    top->Node = turned.root;
    return turned.change + higher;
}

// A tree whose height is known.
struct Tree {
    Node root;
    int height; // 0 without a root
};

// One tree of two, with a node between them.
template <class Nodes, class Entry> Tree join_around(Nodes nodes, Entry *work, Tree left, Node pivot, Tree right) {
    nodes.template hang<Side::left>(pivot, left.root);
    nodes.template hang<Side::right>(pivot, right.root);
    nodes.set_balance(pivot, right.height - left.height);
    nodes.refresh(pivot);
    const Turned turned = repair(nodes, work, pivot);
    return {turned.root, 1 + (left.height > right.height ? left.height : right.height) + turned.change};
}
// With none: one of the higher tree is taken.
template <class Nodes, class Entry> Tree join_beside(Nodes nodes, Entry *work, Tree left, Tree right) {
    if (!left.root || !right.root)
        return left.root ? left : right;
    const bool from_left = left.height > right.height;
    Tree &higher = from_left ? left : right;
    Change change;
    const Node pivot = from_left ? cut<Side::right>(nodes, work, &higher.root, &change, nothing_stays)
                                 : cut<Side::left>(nodes, work, &higher.root, &change, nothing_stays);
    higher.height += change;
    return join_around(nodes, work, left, pivot, right);
}

// One tree of two, of which other stands on side S.  The last node towards S leaves the first one and becomes the root
// between the two.  Both heights are measured, in a descent each.
template <Side S, class Nodes, class Entry> Node concat(Nodes nodes, Entry *work, Node root, Node other) {
    if (!other)
        return root;
    Change change;
    const Node pivot = cut<S>(nodes, work, &root, &change, nothing_stays);
    if (!pivot)
        return other;
    const Tree here{root, height(nodes, root)}, there{other, height(nodes, other)};
    return S == Side::right ? join_around(nodes, work, here, pivot, there).root
                            : join_around(nodes, work, there, pivot, here).root;
}

} // namespace ovant::engine
