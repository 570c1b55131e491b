// What the tests of the typed face share: the records of the C tests as it sees them, orders that count and throw, gaps
// of every kind.
#pragma once

#include "ovant.hpp"
#include "support/check.hpp"
#include "support/shapes.hpp"

#include <functional>

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

// Orders that count, and throw at the comparison, or copy, at which the fuse burns down.
struct Burnt {};
inline int fuse = 0;
inline void burn() {
    if (fuse && --fuse == 0)
        throw Burnt();
}
inline void asked() {
    seen.comparisons++;
    burn();
}
struct ThreeWay {
    ThreeWay() = default;
    ThreeWay(const ThreeWay &) { burn(); }
    ThreeWay &operator=(const ThreeWay &) = default;
    std::weak_ordering operator()(int a, int b) const {
        asked();
        return a <=> b;
    }
};
struct Predicate {
    bool operator()(int a, int b) const {
        asked();
        return a < b;
    }
};

template <class Compare> using Set = ovant::set<&Typed::link, &Typed::key, Compare>;
template <class Compare> using Multiset = ovant::multiset<&Typed::link, &Typed::key, Compare>;
#if OVANT_CHECKS // which must not be raised by right use
using Trees = ::testing::Types<Set<ThreeWay>, Multiset<Predicate>>;
#else
using Trees = ::testing::Types<Set<ThreeWay>, Multiset<ThreeWay>, Set<Predicate>, Multiset<Predicate>>;
#endif
template <class Tree> constexpr bool is_set = requires(Tree t, Typed x) { t.insert_or_replace(x); };
template <class Tree> constexpr bool is_predicate = std::is_same_v<typename Tree::key_compare, Predicate>;

template <class Tree> Node root_of(const Tree &tree) { return load<Node>(&tree); } // its first word

// The tree is sound, and holds these nodes in this order.
template <class Tree> void expect_nodes(const Tree &tree, const std::vector<Node> &order) {
    std::vector<Node> found;
    check_below(root_of(tree), found, 0);
    EXPECT_TRUE(found == order) << "instead of " << ::testing::PrintToString(keys_of(order)) << " there is "
                                << ::testing::PrintToString(keys_of(found));
}
// And it says so.
template <class Tree> void expect_order(Tree &tree, const std::vector<Node> &order) {
    expect_nodes(tree, order);
    const auto finding = tree.check();
    EXPECT_FALSE(finding) << finding.reason << " at " << finding.way;
}
template <class Range> std::vector<Node> nodes_of(const Range &range) {
    std::vector<Node> nodes;
    for (auto &x : range)
        nodes.push_back(const_cast<Typed *>(&x));
    return nodes;
}

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
