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
    unsigned char tail[sizeof(Record) - link_off - sizeof(ovant::link)];

    int key() const { return load<int>(this, key_off); }
};
static_assert(sizeof(Typed) == sizeof(Record) && offsetof(Typed, link) == link_off);
inline Typed &typed(Node n) { return *static_cast<Typed *>(n); }

// What stands in a row of records, told so that no two rows look alike: their number, and their ids as digits.
struct [[gnu::packed]] Digest : record_count {
    std::uint32_t ids = 0, shift = 1;

    static Digest of_one(int id) { return {record_count(1), static_cast<std::uint32_t>(id) + 1, 0x9e3779b1u}; }
    friend Digest operator+(const Digest &a, const Digest &b) {
        return {record_count(std::size_t{a} + std::size_t{b}), a.ids * b.shift + b.ids, a.shift * b.shift};
    }
    static Digest of(const Digest &left, const auto &x, const Digest &right) {
        return left + of_one(id_of(&x)) + right;
    }
    bool operator==(const Digest &other) const { return std::size_t{*this} == std::size_t{other} && ids == other.ids; }
};
// The same bytes again, with that, or a count alone, kept behind the link.
template <class Summary> struct SummedBy {
    unsigned char head[link_off];
    summary_link<Summary> link;
    unsigned char tail[sizeof(Record) - link_off - sizeof(summary_link<Summary>)];

    int key() const { return load<int>(this, key_off); }
};
using Summed = SummedBy<Digest>;
using Counted = SummedBy<record_count>;
static_assert(sizeof(Summed) == sizeof(Record) && link_off + sizeof(Summed::link) <= key_off);
inline Digest digest_of(const std::vector<Node> &nodes) {
    Digest all;
    for (const Node n : nodes)
        all = all + Digest::of_one(id_of(n));
    return all;
}

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
template <class Compare> using SummedSet = ovant::set<&Summed::link, &Summed::key, Compare>;
template <class Compare> using CountedSet = ovant::set<&Counted::link, &Counted::key, Compare>;
template <class Compare> using CountedMultiset = ovant::multiset<&Counted::link, &Counted::key, Compare>;
#if OVANT_CHECKS // which must not be raised by right use
using Trees = ::testing::Types<Set<ThreeWay>, CountedSet<ThreeWay>, CountedMultiset<Predicate>>;
#else
using Trees = ::testing::Types<Set<ThreeWay>, Multiset<Predicate>, SummedSet<Predicate>, CountedMultiset<ThreeWay>>;
#endif
template <class Tree> constexpr bool is_set = requires(Tree t, typename Tree::value_type x) { t.insert_or_replace(x); };
template <class Tree> constexpr bool is_summed = requires(Tree t) { t.summary(); };

template <class Tree> Node root_of(const Tree &tree) { return load<Node>(&tree); } // its first word
template <class Range> std::vector<Node> nodes_of(const Range &range) {
    std::vector<Node> nodes;
    for (auto &x : range)
        nodes.push_back(const_cast<std::remove_cvref_t<decltype(x)> *>(&x));
    return nodes;
}
template <class T> std::vector<T *> records(const std::vector<Node> &nodes) {
    std::vector<T *> all;
    for (const Node n : nodes)
        all.push_back(static_cast<T *>(n));
    return all;
}

// The tree is sound, summaries included, and holds these nodes in this order; gives its height.
template <class Tree> int expect_nodes(Tree &tree, const std::vector<Node> &order) {
    std::vector<Node> found;
    const int height = check_below(root_of(tree), found, 0);
    EXPECT_TRUE(found == order) << ::testing::PrintToString(keys_of(order)) << " is "
                                << ::testing::PrintToString(keys_of(found));
    if constexpr (is_summed<Tree>) { // below the root by check(), which damage_test.cpp holds to it
        using Summary = decltype(tree.summary());
        EXPECT_STREQ(tree.check().reason, "sound");
        EXPECT_TRUE(tree.summary() == static_cast<Summary>(digest_of(order)));
    }
    return height;
}

// A tree that every operation finds in its first shape.
template <class Tree> struct Plot {
    explicit Plot(const Shape &shape, Keys keys = {}) : first(host, shape, keys) { fresh(); }
    Tree &fresh() {
        tree.clear();
        tree.adopt(static_cast<typename Tree::value_type *>(first.restore()));
        if constexpr (is_summed<Tree>)
            tree.refresh_all();
        seen.comparisons = 0;
        return tree;
    }
    Host host;
    Sapling first;
    Tree tree;
};

// Calls visit(gap, where it lies in the order) with a gap of one kind, the first two of them around a key.
constexpr int gap_kinds = 5;
template <class Visit> void with_gap(int kind, const std::vector<Node> &order, int key, Visit visit) {
    const EqualRun run = run_of(order, key);
    kind == 0   ? visit(before(key), run.front)
    : kind == 1 ? visit(after(key), run.back)
    : kind == 2 ? visit(partition_point([key](const auto &x) { return x.key() < key; }), run.front)
    : kind == 3 ? visit(start, std::size_t{0})
                : visit(finish, order.size());
}

} // namespace ovant::test
