// Trees against trees, held against the algorithms of the standard library.
#include "typed.hpp"

#include <cmath>
#include <numeric>

namespace ovant::test {
namespace {

using Tree = SummedSet<ThreeWay>;
enum Operation { unite, intersect, subtract, merge };

// One operation on two trees of these nodes; returns its comparisons.
int expect_algebra(const std::vector<Node> &first, const std::vector<Node> &second, Operation operation,
                   bool second_wins, Tree &mine, Tree &theirs) {
    std::vector<Node> lost;
    for (const Node n : second) // the host chooses by what is in a record
        static_cast<Summed *>(n)->head[0] = 2;
    const auto wins = [=](Summed &a, Summed &b) -> Summed & { return (b.head[0] == 2) == second_wins ? b : a; };
    const auto lose = [&](Summed *x) {
        lost.push_back(x);
        spoil_link(x);
    };
    seen.comparisons = 0;
    operation == unite       ? mine.unite(std::move(theirs), wins, lose)
    : operation == intersect ? mine.intersect(theirs, wins, lose)
    : operation == subtract  ? mine.subtract(theirs, lose)
                             : mine.merge(theirs);
    const int comparisons = seen.comparisons;

    const auto by_key = [](const auto &algorithm) {
        return [&algorithm](const std::vector<Node> &a, const std::vector<Node> &b) {
            std::vector<Node> result;
            algorithm(a, b, std::back_inserter(result), std::less(), key_of, key_of);
            return result;
        };
    };
    const auto all = by_key(std::ranges::set_union);
    const auto both = by_key(std::ranges::set_intersection);
    const auto without = by_key(std::ranges::set_difference);
    const std::vector<Node> &winner = second_wins ? second : first, &loser = second_wins ? first : second;
    const struct {
        std::vector<Node> mine, theirs, lost;
    } expected[] = {{all(winner, loser), {}, both(loser, winner)},
                    {both(winner, loser), all(both(loser, winner), without(second, first)), without(first, second)},
                    {without(first, second), second, both(first, second)},
                    {all(first, second), both(second, first), {}}};
    expect_nodes(mine, expected[operation].mine);
    expect_nodes(theirs, expected[operation].theirs);
    std::sort(lost.begin(), lost.end(), [](Node x, Node y) { return key_of(x) < key_of(y); });
    EXPECT_EQ(lost, expected[operation].lost);
    return comparisons;
}
// All shapes against all, interleaved in several ways.
TEST(Algebra, AgreesWithTheStandardLibraryOnAllSmallShapes) {
    for_all_shapes(3, 1, [](const Shape &a, Keys) {
        Plot<Tree> first(a, {1, 40, 10});
        for_all_shapes(3, 1, [&](const Shape &b, Keys) {
            for (const Keys keys : {Keys{1, 10, 10}, {1, 65, 10}, {1, 35, 5}, {1, 0, 20}}) {
                Plot<Tree> second(b, keys);
                for (const Operation operation : {unite, intersect, subtract, merge})
                    for (const bool second_wins : {false, operation < subtract})
                        expect_algebra(first.first.order, second.first.order, operation, second_wins, first.fresh(),
                                       second.fresh());
            }
        });
        first.fresh().unite(std::move(first.tree));
        first.tree.intersect(first.tree);
        expect_nodes(first.tree, first.first.order);
        first.tree.subtract(first.tree);
        expect_nodes(first.tree, {});
    });
}

// Nodes with different random keys, in order, and a tree that they came into in random order.
struct Grown {
    Grown(std::size_t size, int most, std::mt19937 &random) {
        std::vector<int> keys(static_cast<std::size_t>(most));
        std::iota(keys.begin(), keys.end(), 0);
        std::shuffle(keys.begin(), keys.end(), random);
        for (std::size_t i = 0; i < size; i++)
            nodes.push_back(host.record(keys[i]));
        renew();
        std::sort(nodes.begin(), nodes.end(), [](Node a, Node b) { return key_of(a) < key_of(b); });
    }
    Tree &renew() {
        tree.clear();
        for (Summed *x : records<Summed>(nodes))
            tree.insert(*x);
        return tree;
    }
    Host host;
    Tree tree;
    std::vector<Node> nodes;
};

// Twice what the possible outcomes ask for, whatever the sizes.
TEST(Algebra, OfLargeTreesTakesFewComparisons) {
    std::mt19937 random(12);
    for (const std::size_t n : {3000u, 20'000u})
        for (std::size_t m = 1; m <= n; m *= m < n / 4 ? 4 : 2) {
            Grown large(n, 25'000, random), small(m, 25'000, random);
            const auto size = static_cast<double>(m);
            const double most = 2 * size * std::log2(static_cast<double>(n) / size + 1) + size;
            const auto operation = static_cast<Operation>(random() % 4);
            EXPECT_LE(expect_algebra(large.nodes, small.nodes, operation, false, large.tree, small.tree), most)
                << n << ' ' << m;
            EXPECT_LE(expect_algebra(small.nodes, large.nodes, operation, false, small.renew(), large.renew()), most)
                << n << ' ' << m;
        }
}

TEST(Algebra, LosesNothingWhereAComparatorThrows) {
    std::mt19937 random(13);
    for (int round = 0; round < 200; round++) {
        Grown first(1 + random() % 60, 100, random), second(1 + random() % 60, 100, random);
        std::size_t lost = 0;
        const auto lose = [&](Summed *) { lost++; };
        fuse = 1 + static_cast<int>(random() % 80);
        try {
            round % 3 == 0   ? first.tree.unite(std::move(second.tree), first_wins(), lose)
            : round % 3 == 1 ? first.tree.intersect(second.tree, second_wins(), lose)
                             : first.tree.subtract(second.tree, lose);
        } catch (Burnt) {
        }
        fuse = 0;
        expect_nodes(first.tree, nodes_of(first.tree));
        expect_nodes(second.tree, nodes_of(second.tree));
        EXPECT_FALSE(first.tree.check() || second.tree.check());
        EXPECT_FALSE(first.tree.dispose_some(200, lose));
        EXPECT_EQ(second.tree.size() + lost, first.nodes.size() + second.nodes.size());
    }
}

} // namespace
} // namespace ovant::test
