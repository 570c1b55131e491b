// Trees against trees: union, intersection, difference and merge as one mechanism and a table of rules.
//
// The root of the higher tree is the pivot; the other tree is split at it, and the match, if there is one, taken out on
// the way.  What lies in front of the pivot is settled first, then what lies behind it, and the results are joined
// around the pivot.  m log(n/m + 1) comparisons for m <= n nodes: G. E. Blelloch, D. Ferizovic, Y. Sun, Just Join for
// Parallel Ordered Sets (2016).  Here the recursion is an array of frames, as deep as the higher tree is high, and all
// heights are known from the two at the start.  The pivots of the higher tree come back to where they stood, and where
// nothing of the other tree goes they are not even looked at.
#pragma once

#include "join.hpp"

namespace ovant::engine {

// Where a node ends: in the first tree, in the second one, or with whoever takes what is lost.
enum class To { mine, theirs, lost };

// The fates of nodes without a match in the other tree, and of the two of a match.
struct Fates {
    To only_mine, only_theirs, winner, loser;
};
namespace fates {
inline constexpr Fates merge{To::mine, To::mine, To::mine, To::theirs}, unite{To::mine, To::mine, To::mine, To::lost};
inline constexpr Fates intersect{To::lost, To::theirs, To::mine, To::theirs};
inline constexpr Fates subtract{To::mine, To::theirs, To::lost, To::theirs};
} // namespace fates

// The host has
//   seek(path, root, pivot, pivot_is_mine)   goes down from root to the match of the pivot, or to the empty link where
//                                            it would hang; returns the entry there
//   theirs_wins(mine, theirs)                says which of a match is the winner
//   lose(node), lose_all(root)               takes what is lost
//   deliver(mine, theirs)                    takes the roots of the results
// The first two may throw: then what is settled stays so, all other nodes go home to the tree that they came from, and
// the results are delivered as ever, by the destructor.  Of the second tree a first part has then been settled.
template <class Nodes, class Entry, int Levels, Fates F, class Host> class Algebra {
public:
    Algebra(Nodes nodes, Host host, Tree mine, Tree theirs) // NOLINT: frames are written before they are read
        : nodes_(nodes), host_(host), mine_pivots_(mine.height >= theirs.height), now_{mine, theirs} {}
    ~Algebra() {
        for (; free_ != frames_; --free_)
            now_ = free_[-1].left_done ? close(free_[-1]) : go_home(free_[-1]);
        host_.deliver(now_.mine.root, now_.theirs.root);
    }
    Algebra(const Algebra &) = delete;
    Algebra &operator=(const Algebra &) = delete;

    void run() {
        for (;;) {
            while (now_.mine.root && now_.theirs.root)
                open();
            settle();
            for (;; --free_) {
                if (free_ == frames_)
                    return;
                Frame &f = free_[-1];
                if (!f.left_done) {
                    const Pair right = f.held;
                    f.held = now_;
                    f.left_done = true;
                    now_ = right;
                    break;
                }
                now_ = close(f);
            }
        }
    }

private:
    struct Pair {
        Tree mine, theirs;
    };
    struct Frame {
        Node mine, theirs; // the pivot and its match
        Pair held;         // what lies behind the pivot, later what has been made of what lies in front of it
        bool theirs_wins, left_done;
    };

    void open() {
        const Tree &higher = mine_pivots_ ? now_.mine : now_.theirs, &other = mine_pivots_ ? now_.theirs : now_.mine;
        const Node pivot = higher.root;
        __builtin_prefetch(nodes_.template child<Side::left>(pivot)); // the next pivots
        __builtin_prefetch(nodes_.template child<Side::right>(pivot));
        Entry *const top = host_.seek(work_, other.root, pivot, mine_pivots_);
        const Node mine = mine_pivots_ ? pivot : top->Node, theirs = mine_pivots_ ? top->Node : pivot;
        const bool theirs_wins = mine && theirs && host_.theirs_wins(mine, theirs);

        const SavedLink links = read_links(nodes_, pivot);
        const Halves halves = split_around(nodes_, work_, top);
        const Tree left{links.left, higher.height - (links.balance > 0 ? 2 : 1)},
            right{links.right, higher.height - (links.balance < 0 ? 2 : 1)},
            before{halves.before.root, other.height + halves.before.change},
            after{halves.after.root, other.height + halves.after.change};
        now_ = mine_pivots_ ? Pair{left, before} : Pair{before, left};
        *free_++ = {mine, theirs, mine_pivots_ ? Pair{right, after} : Pair{after, right}, theirs_wins, false};
    }

    // One tree of the pair is empty.
    void settle() {
        if (F.only_mine == To::lost) {
            host_.lose_all(now_.mine.root);
            now_.mine = {nullptr, 0};
        }
        if (F.only_theirs == To::mine && now_.theirs.root) {
            now_.mine = now_.theirs;
            now_.theirs = {nullptr, 0};
        }
    }

    Pair close(const Frame &f) {
        Node mine = nullptr, theirs = nullptr;
        const auto send = [&](Node n, To to) {
            if (to == To::lost)
                host_.lose(n);
            else
                (to == To::mine ? mine : theirs) = n;
        };
        const bool match = f.mine && f.theirs;
        if (f.mine)
            send(f.mine, !match ? F.only_mine : f.theirs_wins ? F.loser : F.winner);
        if (f.theirs)
            send(f.theirs, !match ? F.only_theirs : f.theirs_wins ? F.winner : F.loser);
        return join(f.held, mine, theirs, now_);
    }
    Pair go_home(const Frame &f) { return join(now_, f.mine, f.theirs, f.held); }
    Pair join(const Pair &left, Node mine, Node theirs, const Pair &right) {
        return {join(left.mine, mine, right.mine), join(left.theirs, theirs, right.theirs)};
    }
    Tree join(Tree left, Node pivot, Tree right) {
        return pivot ? join_around(nodes_, work_, left, pivot, right) : join_beside(nodes_, work_, left, right);
    }

    Nodes nodes_;
    Host host_;
    const bool mine_pivots_;
    Pair now_; // what is to be settled, or has been
    Frame frames_[Levels], *free_ = frames_;
    Entry work_[Levels + 2];
};

} // namespace ovant::engine
