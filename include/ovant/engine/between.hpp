// Two-sided ranges: what lies between two gaps is taken out around its pivot.
//
// A path ends at the pivot, the first node of the descent that lies in the range: the whole range lies in its subtree.
// Two boundary paths, left and right, mark where the range begins in the pivot's left subtree and where it ends in the
// right one.  Each is given as a function of the subtree's root, asked when it is needed: a face with one path stack
// finds it then, over the entries from top on; one that must have made its comparisons before the first change has it
// ready elsewhere.
#pragma once

#include "descend.hpp"
#include "drop.hpp"
#include "join.hpp"

namespace ovant::engine {

struct Parts {
    Node inner, outer;
};

// What lies in the range stays under the pivot; what lies around it closes up without the pivot.
template <class Nodes, class Entry, class Left, class Right, class Report = NoReport>
Parts cut_between(Nodes nodes, Entry *bottom, Entry *top, Node pivot, Left left, Right right, Report report = {}) {
    SavedLink outer = read_links(nodes, pivot);

    const auto begins = left(outer.left);
    const Halves in_left = split(nodes, begins.bottom, begins.top, report);
    nodes.template hang<Side::left>(pivot, in_left.after.root);

    const auto ends = right(outer.right);
    const Halves in_right = split(nodes, ends.bottom, ends.top, report);
    nodes.template hang<Side::right>(pivot, in_right.before.root);

    nodes.set_balance(pivot, outer.balance + in_right.before.change - in_left.after.change);
    nodes.refresh(pivot);
    const Node inner = repair(nodes, top, pivot).root;

    outer.left = in_left.before.root;
    outer.right = in_right.after.root;
    fix_pfad(nodes, bottom, top, join(nodes, top, outer, in_left.before.change, in_right.after.change, report));
    return {inner, bottom->Node};
}

// What lies in the range goes: the pivot first, then what lies in the range to its right, then what lies in it to its
// left.  Returns what stays.
template <class Nodes, class Entry, class Left, class Right, class Kill, class Report>
Node drop_between(Nodes nodes, Entry *bottom, Entry *top, Left left, Right right, Kill kill, Report report) {
    SavedLink outer = read_links(nodes, top->Node); // all that is left of the pivot once it is gone
    kill(top->Node);

    const auto ends = right(outer.right);
    const Half after = drop<Side::left>(nodes, ends.bottom, ends.top, kill, report.template of<Side::left>());
    const auto begins = left(outer.left);
    const Half before = drop<Side::right>(nodes, begins.bottom, begins.top, kill, report.template of<Side::right>());
    outer.left = before.root;
    outer.right = after.root;

    fix_pfad(nodes, bottom, top, join(nodes, top, outer, before.change, after.change, report));
    return bottom->Node;
}

} // namespace ovant::engine
