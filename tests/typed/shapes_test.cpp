// All small shapes crossed with all intervals; what operations cost in comparisons.
#include "typed.hpp"

namespace ovant::test {
namespace {

template <class Tree, class First, class Last>
void expect_cut(Plot<Tree> &plot, const First &first, std::size_t begin, const Last &last, std::size_t end) {
    const std::size_t size = plot.first.order.size();
    const std::vector<Node> inner = plot.part(begin, end), behind = plot.part(end, size);
    std::vector<Node> outer = plot.part(0, begin);
    outer.insert(outer.end(), behind.begin(), behind.end());

    Tree part = plot.fresh().extract(first, last);
    EXPECT_LE(seen.comparisons, 2 * plot.first.height);
    expect_nodes(part, inner);
    expect_nodes(plot.tree, outer);
    EXPECT_TRUE(!inner.empty() || plot.first.untouched());
    begin == 0    ? plot.tree.prepend(std::move(part))
    : end == size ? plot.tree.append(std::move(part))
                  : plot.tree.merge(part);
    expect_nodes(plot.tree, plot.first.order);

    plot.fresh();
    EXPECT_TRUE(nodes_of(plot.tree.between(first, last)) == inner);
    if constexpr (is_summed<Tree>) {
        EXPECT_EQ(plot.tree.count(first, last), inner.size());
        EXPECT_EQ(plot.tree.rank(first), begin);
        EXPECT_EQ(plot.tree.fold(first, last), digest_of(inner));
        const auto all = [&](const Digest &sum) { // of as many as are between, from the first one on
            EXPECT_EQ(sum, digest_of(plot.part(begin, begin + std::size_t{sum})));
            return sum >= inner.size();
        };
        const auto never = [](const Digest &) { return false; };
        EXPECT_TRUE(plot.tree.first_passing(first, never) == plot.tree.end());
        EXPECT_TRUE(plot.tree.first_passing(plot.tree.begin(), never) == plot.tree.end());
        EXPECT_TRUE(inner.empty() || &*plot.tree.first_passing(first, all) == inner.back());
    }
    plot.tree.erase(first, last, [](void *x) { spoil_link(x); });
    expect_nodes(plot.tree, outer);
}

template <class Tree> void cut_everywhere(int longest_run) {
    for_all_shapes(4, longest_run, [](const Shape &shape, Keys keys) {
        Plot<Tree> plot(shape, keys);
        // Gaps of all kinds around the keys and between them; in tall trees, around the keys, of all kinds at one.
        const int most = keys.at(plot.first.order.size()), step = shape.height < 4 ? 5 : 10;
        const auto kinds = [=](int key) { return step == 5 || key == keys.first ? gap_kinds : 2; };
        for (int a = keys.first; a <= most; a += step)
            for (int kind = 0; kind < kinds(a); kind++)
                with_gap(kind, plot.first.order, a, [&](const auto &first, std::size_t begin) {
                    for (int b = std::max(keys.first, a - 5); b <= most && !::testing::Test::HasFailure(); b += step)
                        for (int other_kind = 0; other_kind < kinds(b); other_kind++)
                            with_gap(other_kind, plot.first.order, b, [&](const auto &last, std::size_t end) {
                                expect_cut(plot, first, begin, last, std::max(begin, end));
                            });
                });
    });
}
TEST(AllShapes, AreCutAtAllGaps) {
    cut_everywhere<SummedSet<ThreeWay>>(1);
    cut_everywhere<Multiset<Predicate>>(3);
}

template <class Tree> struct Costs : ::testing::Test {};
TYPED_TEST_SUITE(Costs, Trees);
TYPED_TEST(Costs, AComparisonALevelAndNextToNoneBesideAPosition) {
    constexpr bool asks_twice = std::is_same_v<typename TypeParam::key_compare, Predicate>;
    using Record = typename TypeParam::value_type;
    // On both sides of the height from which on many searches go together.
    for (const Shape &shape : {full_shape(0), full_shape(9), leaning_shape(12, -1), leaning_shape(23, +1)}) {
        Plot<TypeParam> plot(shape, {is_set<TypeParam> ? 1 : 2});
        TypeParam &tree = plot.tree;
        std::vector<int> keys;
        std::vector<const Record *> bounds;
        const int last = plot.first.order.empty() ? 0 : key_of(plot.first.order.back());
        for (int key = 5; key <= last + 5; key += shape.height < 20 ? 5 : 35) {
            EXPECT_EQ(tree.contains(key), key % 10 == 0);
            EXPECT_LE(std::exchange(seen.comparisons, 0), plot.first.height + asks_twice);
            tree.upper_bound(key);
            EXPECT_LE(std::exchange(seen.comparisons, 0), plot.first.height);
            const auto bound = tree.lower_bound(key);
            EXPECT_LE(std::exchange(seen.comparisons, 0), plot.first.height);
            keys.push_back(key);
            bounds.push_back(bound == tree.end() ? nullptr : &*bound);
            const TypeParam &fixed = tree;
            EXPECT_TRUE(fixed.find(key) == tree.find(key) && fixed.lower_bound(key) == bound &&
                        fixed.upper_bound(key) == tree.upper_bound(key) && fixed.first_after(before(key)) == bound);
            seen.comparisons = 0;
        }
        keys.push_back(last + 5); // behind them all
        bounds.push_back(nullptr);
        const auto search_many = [&](auto &any) {
            std::vector<const Record *> found(keys.size()), many;
            EXPECT_EQ(any.find_many(keys, found.data()), found.data() + found.size());
            any.lower_bound_many(keys, std::back_inserter(many));
            EXPECT_EQ(many, bounds);
            for (std::size_t i = 0; i < keys.size(); i++)
                EXPECT_TRUE(keys[i] % 10 ? !found[i] : found[i] && found[i]->key() == keys[i]);
        };
        search_many(tree);
        search_many(std::as_const(tree));
        seen.comparisons = 0;
        for (auto it = tree.lower_bound(0); it != tree.end() && shape.height < 20; ++it) { // it finds its path once
        }
        EXPECT_LE(std::exchange(seen.comparisons, 0), 3 * plot.first.height + 3);
        tree.clear();
        auto hint = tree.end();
        for (const Node n : plot.first.order) {
            hint = tree.insert(hint, *static_cast<typename TypeParam::value_type *>(n));
            EXPECT_LE(std::exchange(seen.comparisons, 0), 3);
        }
        expect_nodes(tree, plot.first.order);
    }
}

} // namespace
} // namespace ovant::test

// A record of the same name as one in types_test.cpp and local to its file, as that one is: nothing is shared.
namespace {
struct Event {
    char elsewhere[40];
    ovant::link link;
    int time;
};
TEST(LocalRecords, OfOneNameInTwoFilesAreTwo) {
    Event late{{}, {}, 2}, early{{}, {}, 1};
    ovant::multiset<&Event::link, &Event::time> day;
    day.insert(late);
    day.insert(early);
    EXPECT_TRUE(&day.front() == &early && &day.back() == &late);
}
} // namespace
