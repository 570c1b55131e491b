// Measures of a tree that end on any links, as long as these point to nodes.  Each keeps one entry for each level in an
// array with room for most_levels and one entry more.
#pragma once

#include "height.hpp"

#include <cstdint>

namespace ovant::engine {

// Whether a traversal has come to a node before.  It comes to no node of a tree twice, so one remembered node will do:
// a newer one whenever the visits have grown by half, so that any round is small beside them at last.  Powers of two
// would not do: the visits of those numbers are the rarest nodes where each level is shared by two links.
class Repeats {
public:
    bool operator()(Node n) {
        const bool again = n == remembered_;
        if (++visits_ == due_) {
            due_ += due_ / 2 + 1;
            remembered_ = n;
        }
        return again;
    }

private:
    Node remembered_ = nullptr;
    std::size_t visits_ = 0, due_ = 1;
};

// A list of pending nodes, each with a level of 8 bits in the low end of Dir.
template <class Entry> class Pending {
public:
    explicit Pending(Entry *bottom) : bottom_(bottom), free_(bottom) {}

    bool empty() const { return free_ == bottom_; }
    void push(Node n, int level) {
        free_->Node = n;
        free_->Dir = static_cast<std::int32_t>((static_cast<std::uint32_t>(free_->Dir) & ~UINT32_C(0xFF)) |
                                               static_cast<std::uint8_t>(level));
        ++free_;
    }
    int pop(Node &n) {
        --free_;
        n = free_->Node;
        return static_cast<std::int8_t>(free_->Dir);
    }

private:
    Entry *const bottom_;
    Entry *free_;
};

// Whether every balance is the true difference of the heights below it and lies in -1, 0, +1.  Every node is told the
// height that it must have, so the way down is never longer than the height that the root claims.
template <class Nodes, class Entry> bool balances_hold(Nodes nodes, Entry *bottom, Node root) {
    Pending<Entry> pending(bottom);
    Repeats repeats;
    int expected = height(nodes, root);
    for (Node n = root;;) {
        if (n) {
            const int balance = nodes.balance(n);
            if (expected <= 0 || balance < -1 || balance > 1 || repeats(n))
                return false;
            pending.push(nodes.template child<Side::right>(n), expected - (balance < 0 ? 2 : 1));
            expected -= balance > 0 ? 2 : 1;
            n = nodes.template child<Side::left>(n);
            continue;
        }
        if (expected != 0)
            return false;
        if (pending.empty())
            return true;
        expected = pending.pop(n);
    }
}

// The number of nodes on the shortest way from the root to a missing child, `none` if none was reached.  Depth first
// with the best so far as the limit; the balances only choose which side comes first.  A balance that no sound tree
// holds is told to report(), and the node's children are passed over.
template <class Nodes, class Entry, class Report>
int least_depth(Nodes nodes, Entry *bottom, Node root, int none, Report report) {
    Pending<Entry> pending(bottom);
    Repeats repeats;
    int best = none;
    pending.push(root, 0);
    while (!pending.empty()) {
        Node n;
        const int level = pending.pop(n);
        if (level >= best)
            continue;
        if (!n) {
            best = level;
            continue;
        }
        if (repeats(n))
            break;
        const int balance = nodes.balance(n);
        if (balance < -1 || balance > 1) {
            report();
            continue;
        }
        if (level == most_levels)
            continue;
        const Side lighter = balance < 0 ? Side::right : Side::left; // the last one pushed is visited first
        pending.push(nodes.child(!lighter, n), level + 1);
        pending.push(nodes.child(lighter, n), level + 1);
    }
    return best;
}

} // namespace ovant::engine
