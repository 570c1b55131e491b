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
    const std::vector<Sapling> lefts = saplings(host, 4), rights = saplings(host, 4);
    bool by_rotation = false;
    for (const Sapling &left : lefts)
        for (const Sapling &right : rights) {
            expect_repair(host, pivot, left, right, by_rotation = !by_rotation);
            ASSERT_FALSE(HasFailure()) << "under shapes " << &left - lefts.data() << " and " << &right - rights.data();
        }
}

constexpr Keys equal_keys = {1, 0, 0}; // a scion fits anywhere

// Puts another subtree where a path leads, from the position begin in tree order on, and lets AVL_FixPfad carry the
// change of height up.
void graft(Host &host, const Sapling &stock, const std::vector<Entry> &path, std::size_t begin, const Sapling &scion) {
    stock.restore();
    Entry *const bottom = host.tree->Stack, *const top = bottom + path.size() - 1;
    std::copy(path.begin(), path.end(), bottom);
    const Checked old = check(host.tree, top->Node);
    std::vector<Node> expected = stock.order;
    const auto place = expected.begin() + static_cast<std::ptrdiff_t>(begin);
    expected.insert(expected.erase(place, place + static_cast<std::ptrdiff_t>(old.order.size())), scion.order.begin(),
                    scion.order.end());
    top->Node = scion.root;
    const Change change = AVL_FixPfad(host.tree, bottom, top, scion.height - old.height);
    const Checked now = check(host.tree, bottom->Node);
    EXPECT_TRUE(now.order == expected);
    EXPECT_EQ(now.height, stock.height + change);
}

// Every change at every position on the uppermost levels below the end of the path, down to the empty links.
void graft_below(Host &host, const Sapling &stock, std::vector<Entry> path, std::size_t begin, std::size_t levels,
                 std::mt19937 &random) {
    const Node node = path.back().Node;
    const int old = check(host.tree, node).height;
    for (int height = 0; height <= old + 1 && !::testing::Test::HasFailure(); height++)
        graft(host, stock, path, begin, Sapling(host, random_shape(height, random), equal_keys));
    stock.restore();
    if (!node || path.size() == levels)
        return;
    path.back().Dir = DIR_LEFT;
    path.push_back({link_of(node).Left, DIR_HERE});
    graft_below(host, stock, path, begin, levels, random);
    begin += 1 + inorder(link_of(node).Left).size();
    path[path.size() - 2].Dir = DIR_RIGHT;
    path.back().Node = link_of(node).Right;
    graft_below(host, stock, path, begin, levels, random);
}

TEST(FixPfad, CarriesEveryChangeFromEveryPosition) {
    std::mt19937 random(3);
    const auto graft_all = [&](const Shape &shape, std::size_t levels) {
        Host host;
        const Sapling stock(host, shape, equal_keys);
        graft_below(host, stock, {{stock.root, DIR_HERE}}, 0, levels, random);
    };
    for_all_shapes(4, 1, [&](const Shape &shape, Keys) { graft_all(shape, 5); });
    for (int round = 0; round < 12; round++)
        graft_all(round < 2 ? leaning_shape(14, round * 2 - 1) : random_shape(9 + round % 4, random), 4);
}

} // namespace
} // namespace ovant::test
