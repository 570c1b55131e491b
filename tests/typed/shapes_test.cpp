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
    plot.tree.erase(first, last, [](Typed *x) { spoil_link(x); });
    expect_nodes(plot.tree, outer);
}

template <class Tree> void cut_everywhere(int longest_run) {
    for_all_shapes(4, longest_run, [](const Shape &shape, Keys keys) {
        Plot<Tree> plot(shape, keys);
        // Gaps of all kinds around the keys and between them; in tall trees, around the keys, of all kinds at one.
        const int most = keys.at(plot.first.order.size()), step = shape.height < 4 ? 5 : 10;
        const auto all_kinds = [=](int key) { return step == 5 || key == keys.first; };
        for (int a = keys.first; a <= most; a += step)
            for_all_gaps(plot.first.order, a, all_kinds(a), [&](const auto &first, std::size_t begin) {
                for (int b = std::max(keys.first, a - 5); b <= most && !::testing::Test::HasFailure(); b += step)
                    for_all_gaps(plot.first.order, b, all_kinds(b), [&](const auto &last, std::size_t end) {
                        expect_cut(plot, first, begin, last, std::max(begin, end));
                    });
            });
    });
}
TEST(AllShapes, AreCutAtAllGaps) {
    cut_everywhere<Set<ThreeWay>>(1);
    cut_everywhere<Multiset<Predicate>>(3);
}

template <class Tree> struct Costs : ::testing::Test {};
TYPED_TEST_SUITE(Costs, Trees);
TYPED_TEST(Costs, AComparisonALevelAndNextToNoneBesideAPosition) {
    constexpr bool asks_twice = std::is_same_v<typename TypeParam::key_compare, Predicate>;
    for (const int lean : {-1, 0, +1}) {
        Plot<TypeParam> plot(leaning_shape(lean ? 12 : 9, lean));
        TypeParam &tree = plot.tree;
        for (int key = 5; key <= key_of(plot.first.order.back()); key += 5) {
            EXPECT_EQ(tree.contains(key), key % 10 == 0);
            EXPECT_LE(std::exchange(seen.comparisons, 0), plot.first.height + asks_twice);
            tree.upper_bound(key);
            EXPECT_LE(std::exchange(seen.comparisons, 0), plot.first.height);
        }
        tree.clear();
        auto hint = tree.end();
        for (const Node n : plot.first.order) {
            hint = tree.insert(hint, typed(n));
            EXPECT_LE(std::exchange(seen.comparisons, 0), 3);
        }
        expect_nodes(tree, plot.first.order);
    }
}

} // namespace
} // namespace ovant::test
