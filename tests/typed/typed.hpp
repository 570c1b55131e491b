// What the tests of the typed face share: the records of the C tests as it sees them, orders that count and throw, gaps
// of every kind.
#pragma once

#include "ovant.hpp"
#include "support/check.hpp"
#include "support/shapes.hpp"

namespace ovant::test {

// The same bytes as a Record, so that both faces, the shapes and the recursive checker meet on one node.
struct Typed {
    unsigned char head[link_off];
    ovant::link link;
    unsigned char tail[sizeof(Record) - key_off + 1];

    int key() const { return load<int>(this, key_off); }
};
static_assert(sizeof(Typed) == sizeof(Record) && offsetof(Typed, link) == link_off);
inline Typed &typed(Node n) { return *static_cast<Typed *>(n); }

// Orders that count.  When the fuse burns down, a comparison throws, or a copy of the comparator.
struct Burnt {};
inline int fuse = 0;
inline void burn() {
    if (fuse && --fuse == 0)
        throw Burnt();
}
struct ThreeWay {
    ThreeWay() = default;
    ThreeWay(const ThreeWay &) { burn(); }
    ThreeWay &operator=(const ThreeWay &) = default;
    std::weak_ordering operator()(int a, int b) const { return seen.comparisons++, burn(), a <=> b; }
};
struct Predicate {
    bool operator()(int a, int b) const { return seen.comparisons++, burn(), a < b; }
};

template <class Compare> using Set = ovant::set<&Typed::link, &Typed::key, Compare>;
template <class Compare> using Multiset = ovant::multiset<&Typed::link, &Typed::key, Compare>;
#if OVANT_CHECKS // which must not be raised by right use
using Trees = ::testing::Types<Set<ThreeWay>, Multiset<Predicate>>;
#else
using Trees = ::testing::Types<Set<ThreeWay>, Multiset<ThreeWay>, Set<Predicate>, Multiset<Predicate>>;
#endif
template <class Tree> constexpr bool is_set = requires(Tree t, Typed x) { t.insert_or_replace(x); };

template <class Tree> Node root_of(const Tree &tree) { return load<Node>(&tree); } // its first word
template <class Range> std::vector<Node> nodes_of(const Range &range) {
    std::vector<Node> nodes;
    for (auto &x : range)
        nodes.push_back(const_cast<Typed *>(&x));
    return nodes;
}

// The tree is sound, and holds these nodes in this order.
template <class Tree> void expect_nodes(const Tree &tree, const std::vector<Node> &order) {
    std::vector<Node> found;
    check_below(root_of(tree), found, 0);
    EXPECT_TRUE(found == order) << ::testing::PrintToString(keys_of(order)) << " is "
                                << ::testing::PrintToString(keys_of(found));
}

// A tree that every operation finds in its first shape.
template <class Tree> struct Plot {
    explicit Plot(const Shape &shape, Keys keys = {}) : first(host, shape, keys) { fresh(); }
    Tree &fresh() {
        tree.clear();
        tree.adopt(static_cast<Typed *>(first.restore()));
        seen.comparisons = 0;
        return tree;
    }
    std::vector<Node> part(std::size_t begin, std::size_t end) const {
        return {first.order.begin() + static_cast<std::ptrdiff_t>(begin),
                first.order.begin() + static_cast<std::ptrdiff_t>(end)};
    }
    Host host;
    Sapling first;
    Tree tree;
};

// Calls visit(gap, where it lies in the order) with the two gaps around a key, or with gaps of all kinds.
template <class Visit> void for_all_gaps(const std::vector<Node> &order, int key, bool all_kinds, Visit visit) {
    const EqualRun run = run_of(order, key);
    visit(before(key), run.front);
    visit(after(key), run.back);
    if (all_kinds) {
        visit(partition_point([key](const Typed &x) { return x.key() < key; }), run.front);
        visit(start, std::size_t{0});
        visit(finish, order.size());
    }
}

} // namespace ovant::test
