// The balance engine: rotations, the change of height carried up a path, the repair of any imbalance.
#include "balance/balance.hpp"
#include "support/check.hpp"
#include "support/shapes.hpp"

namespace ovant::test {
namespace {

// A node over two sound subtrees, repaired; where it leans by just 2, a rotation is enough.
void expect_repair(Host &host, Node pivot, const Sapling &left, const Sapling &right, bool by_rotation) {
    const int lean = right.height - left.height, depth = std::abs(lean);
    set_link(pivot, left.restore(), right.restore(), lean);
    Entry *const work = host.tree->Stack;
    Node cursor = pivot;
    Change change;
    {
        const StackGuard guard(host.tree, std::max(0, depth - 2)); // depth - 1 entries, and the place is the first one
        work->Node = pivot;
        if (depth == 2 && by_rotation)
            change = (lean > 0 ? AVL_TurnLeft : AVL_TurnRight)(host.tree, &work->Node, &cursor);
        else
            change = AVL_DeepBalance(host.tree, work, &work->Node, &cursor);
    }
    EXPECT_TRUE(cursor == work->Node && (depth > 1 || cursor == pivot));
    std::vector<Node> order, expected = left.order;
    expected.push_back(pivot);
    expected.insert(expected.end(), right.order.begin(), right.order.end());
    EXPECT_EQ(check_below(cursor, order, 0), 1 + std::max(left.height, right.height) + change);
    EXPECT_TRUE(order == expected);
}

TEST(DeepBalance, JoinsAllPairsOfSmallSubtrees) {
    Host host;
    const Node pivot = host.record(0);
    std::vector<Sapling> lefts, rights;
    for_all_shapes(4, 1, [&](const Shape &shape, Keys) {
        lefts.emplace_back(host, shape);
        rights.emplace_back(host, shape);
    });
    bool by_rotation = false;
    for (const Sapling &left : lefts)
        for (const Sapling &right : rights) {
            expect_repair(host, pivot, left, right, by_rotation = !by_rotation);
            ASSERT_FALSE(HasFailure()) << "under shapes " << &left - lefts.data() << " and " << &right - rights.data();
        }
}

// Another subtree at the end of every path, up to one level higher; equal keys fit anywhere.
TEST(FixPfad, CarriesEveryChangeFromEveryPosition) {
    std::mt19937 random(3);
    for_all_shapes(4, 1, [&](const Shape &shape, Keys keys) {
        Bed bed(shape, keys);
        for (int key = 5, old = 0; key <= keys.at(bed.order.size()); key += 5)
            for (int height = 0; height <= old + 1; height++) {
                AVL_Tree *const tree = bed.fresh();
                Entry *const bottom = tree->Stack, *const top = AVL_MakeKey(tree, &key);
                old = check(tree, top->Node).height;
                const Sapling scion(bed, random_shape(height, random), {1, key, 0});
                if (top != bottom)
                    Nodes(tree).hang(side_of(top[-1].Dir), top[-1].Node, scion.root);
                const auto expected = traversal(top == bottom ? scion.root : tree->Root, Visit::between);
                bed.restore();

                top->Node = scion.root;
                const Change change = AVL_FixPfad(tree, bottom, top, height - old);
                EXPECT_EQ(expect_tree(tree, bottom->Node, expected), shape.height + change);
            }
    });
}

} // namespace
} // namespace ovant::test
