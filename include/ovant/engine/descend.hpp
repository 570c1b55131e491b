// The family of descents from a node to a key, as one loop and a rule.
#pragma once

#include "links.hpp"

namespace ovant::engine {

// What a match does to the descent, and which step is remembered (the last one wins).
enum class Match { stop, left, right };
enum class Mark { none, left_turn, right_turn, match };

struct Rule {
    Match match;
    Mark mark;
};

namespace rule {
inline constexpr Rule key{Match::stop, Mark::none};
inline constexpr Rule first{Match::left, Mark::match}, last{Match::right, Mark::match};
inline constexpr Rule front{Match::left, Mark::none}, back{Match::right, Mark::none};
inline constexpr Rule pred{Match::stop, Mark::right_turn}, succ{Match::stop, Mark::left_turn};
inline constexpr Rule less{Match::left, Mark::right_turn}, less_equal{Match::right, Mark::right_turn};
inline constexpr Rule greater{Match::right, Mark::left_turn}, greater_equal{Match::left, Mark::left_turn};
} // namespace rule

// Two kinds of trail.  A search keeps the node at hand and the marked one; nothing outside the call is written.
struct NodeTrail {
    Node at = nullptr, marked = nullptr;

    void enter(Node n) { at = n; }
    void turn(bool) {}
    void expect(Node, Node) {}
    void mark_if(bool condition) { marked = select(opaque(condition) != 0, at, marked); }
};

// A path writes entries from the one it is given on: Node on entering, also a 0 at the end, Dir on turning, no Dir at a
// stop.
template <class Entry> struct PathTrail {
    Entry *top;
    Entry *marked = nullptr;

    void enter(Node n) { top->Node = n; }
    void turn(bool left) { top++->Dir = sign(Side::right) + (sign(Side::left) - sign(Side::right)) * opaque(left); }
    // What an update does next waits for its descent, so both children are asked for before the choice; a search is
    // overtaken by the next one, and would only load more.
    void expect(Node left, Node right) {
        __builtin_prefetch(left);
        __builtin_prefetch(right);
    }
    void mark_if(bool condition) { marked = select(opaque(condition) != 0, top, marked); }
};

// g++ -O3 copies the end of the loop into both branches of a choice, and so makes branches of it again, at twice the
// time of a search.  It leaves a loop alone whose end might be left by a jump; this one makes no instruction.  What is
// compiled with -fno-split-paths does without.
#if defined(__GNUC__) && !defined(__clang__) && !defined(OVANT_NO_SPLIT_PATHS)
#define OVANT_WHOLE_LOOP(end) asm goto("" : : : : end);
#define OVANT_WHOLE_LOOP_END(end)                                                                                      \
    end:
#else
#define OVANT_WHOLE_LOOP(end)
#define OVANT_WHOLE_LOOP_END(end)
#endif

// Goes down from n as the order says, one question a level, until it stops at a match or falls off.
template <Rule R, class Nodes, class Trail, class Order>
Trail descend(Nodes nodes, Node n, const Order &order, Trail trail) {
    trail.enter(n);
    while (n) {
        const auto answer = order(n);
        if constexpr (R.mark == Mark::match)
            trail.mark_if(answer.match());
        if constexpr (R.match == Match::stop)
            if (answer.match())
                return trail;
        const bool left = R.match == Match::left ? !answer.right() : answer.left();
        const Node left_child = nodes.template child<Side::left>(n), right_child = nodes.template child<Side::right>(n);
        trail.expect(left_child, right_child);
        n = select(left, left_child, right_child); // first, as all else waits for it
        if constexpr (R.mark == Mark::left_turn)
            trail.mark_if(left);
        if constexpr (R.mark == Mark::right_turn)
            trail.mark_if(!left);
        trail.turn(left);
        trail.enter(n);
        OVANT_WHOLE_LOOP(end)
    }
    OVANT_WHOLE_LOOP_END(end)
    return trail;
}

#undef OVANT_WHOLE_LOOP
#undef OVANT_WHOLE_LOOP_END

// A path to an empty link, told by the entry that it begins at and the last one that holds a node; both are the same,
// without a node, where there is no node at all.
template <class Entry> struct Boundary { Entry *bottom, *top; };

} // namespace ovant::engine
