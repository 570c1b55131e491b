// All small shapes crossed with all intervals; what operations cost in comparisons.
#include "typed.hpp"

namespace ovant::test {
namespace {

// A tree that every operation finds in its first shape.
template <class Tree> struct Plot {
    Plot(const Shape &shape, Keys keys) : first(host, shape, keys) {}
    Tree &fresh() {
        tree.clear();
        tree.adopt(static_cast<Typed *>(first.restore()));
        seen.comparisons = 0;
        return tree;
    }

    Host host;
    Sapling first;
    Tree tree;
};

template <class Tree, class First, class Last>
void expect_cut(Plot<Tree> &plot, const First &first, std::size_t begin, const Last &last, std::size_t end) {
    const auto position = [&](std::size_t i) { return plot.first.order.begin() + static_cast<std::ptrdiff_t>(i); };
    const std::vector<Node> inner(position(begin), position(end));
    std::vector<Node> outer(plot.first.order.begin(), position(begin));
    outer.insert(outer.end(), position(end), plot.first.order.end());

    Tree part = plot.fresh().extract(first, last);
    EXPECT_LE(seen.comparisons, 2 * plot.first.height);
    expect_nodes(part, inner);
    expect_nodes(plot.tree, outer);
    EXPECT_TRUE(!inner.empty() || plot.first.untouched());
    if (begin == 0)
        plot.tree.prepend(std::move(part));
    else if (end == plot.first.order.size())
        plot.tree.append(std::move(part));
    else
        plot.tree.merge(part);
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
TYPED_TEST(Costs, AComparisonALevelAndNoneForANeighbour) {
    for (const int lean : {-1, 0, +1}) {
        Plot<TypeParam> plot(leaning_shape(lean ? 12 : 9, lean), {});
        TypeParam &tree = plot.fresh();
        for (const Node n : plot.first.order) {
            for (const int key : {key_of(n), key_of(n) + 5}) {
                EXPECT_EQ(tree.contains(key), key == key_of(n));
                EXPECT_LE(std::exchange(seen.comparisons, 0), plot.first.height + is_predicate<TypeParam>);
                tree.upper_bound(key);
                EXPECT_LE(std::exchange(seen.comparisons, 0), plot.first.height);
            }
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
