// Trees against trees, held against the algorithms of the standard library.
#include "typed.hpp"

#include <cmath>

namespace ovant::test {
namespace {

using Tree = SummedSet<ThreeWay>;
enum Operation { unite, intersect, subtract, merge };

// One operation on the trees of two plots; gives its comparisons.  If it burns, a comparator has thrown before, at the
// first question, at the second one and so on, and no record was lost by that.
int expect_algebra(Plot<Tree> &one, Plot<Tree> &other, Operation operation, bool second_wins, bool burns = false) {
    const std::vector<Node> &first = one.first.order, &second = other.first.order;
    std::vector<Node> lost;
    for (const Node n : second) // the host chooses by what is in a record
        static_cast<Summed *>(n)->head[0] = 2;
    const auto wins = [=](Summed &a, Summed &b) -> Summed & { return (b.head[0] == 2) == second_wins ? b : a; };
    const auto lose = [&](Summed *x) {
        lost.push_back(x);
        spoil_link(x);
    };
    for (int n = burns, done = 0; !done; n++) {
        Tree &mine = one.fresh(), &theirs = other.fresh();
        lost.clear();
        fuse = n;
        try {
            operation == unite       ? mine.unite(std::move(theirs), wins, lose)
            : operation == intersect ? mine.intersect(theirs, wins, lose)
            : operation == subtract  ? mine.subtract(theirs, lose)
                                     : mine.merge(theirs);
            done = 1;
        } catch (Burnt) {
            expect_nodes(mine, nodes_of(mine));
            expect_nodes(theirs, nodes_of(theirs));
            EXPECT_FALSE(mine.check() || theirs.check());
            EXPECT_EQ(mine.size() + theirs.size() + lost.size(), first.size() + second.size());
        }
    }
    fuse = 0;
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
    expect_nodes(one.tree, expected[operation].mine);
    expect_nodes(other.tree, expected[operation].theirs);
    std::sort(lost.begin(), lost.end(), [](Node x, Node y) { return key_of(x) < key_of(y); });
    EXPECT_EQ(lost, expected[operation].lost);
    return comparisons;
}
// All shapes against all, interleaved in several ways, or one tree behind the other.
TEST(Algebra, AgreesWithTheStandardLibrary) {
    for_all_shapes(3, 1, [](const Shape &a, Keys) {
        Plot<Tree> first(a, {1, 40, 10});
        for_all_shapes(3, 1, [&](const Shape &b, Keys) {
            for (const Keys keys :
                 {Keys{1, 10, 10}, {1, 65, 10}, {1, 35, 5}, {1, 0, 20}, {1, 200, 10}, {1, -200, 10}}) {
                Plot<Tree> second(b, keys);
                for (const Operation operation : {unite, intersect, subtract, merge})
                    for (const bool second_wins : {false, operation < subtract})
                        expect_algebra(first, second, operation, second_wins, keys.step == 5);
            }
        });
        first.fresh().unite(std::move(first.tree));
        first.tree.intersect(first.tree);
        expect_nodes(first.tree, first.first.order);
        first.tree.subtract(first.tree);
        expect_nodes(first.tree, {});
    });
    std::mt19937 random(12);
    Plot<Tree> first(random_shape(8, random)), second(random_shape(6, random), {1, 0, 35});
    for (const Operation operation : {unite, intersect, subtract, merge})
        expect_algebra(first, second, operation, true, true);
}

// Twice what the possible outcomes ask for, whatever the sizes; every other record of the smaller tree is an equal.
TEST(Algebra, OfLargeTreesTakesFewComparisons) {
    Plot<Tree> large(leaning_shape(19, -1));
    for (int height = 1; height <= 13; height++) {
        Plot<Tree> small(full_shape(height), {1, 15, 5 + (10 << (13 - height))});
        const double m = std::ldexp(1, height), n = static_cast<double>(large.first.order.size());
        const double most = m * (2 * std::log2(n / m + 1) + 1);
        for (const Operation operation : {unite, intersect, subtract, merge}) {
            EXPECT_LE(expect_algebra(large, small, operation, false), most) << height;
            EXPECT_LE(expect_algebra(small, large, operation, false), most) << height;
        }
    }
}

} // namespace
} // namespace ovant::test
