// What searches and hints cost in comparisons, and that they find.
#include "typed.hpp"

namespace ovant::test {
namespace {

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
