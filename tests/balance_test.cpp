// The balance engine: rotations, the change of height carried up a path, the repair of any imbalance.
#include "balance/balance.hpp"
#include "support/check.hpp"
#include "support/shapes.hpp"

namespace ovant::test {
namespace {

// The height; expects true balances, however far a node leans.
int measure(Node node) {
    if (!node)
        return 0;
    const AVL_Link link = link_of(node);
    const int left = measure(link.Left), right = measure(link.Right);
    if (link.Balance != right - left)
        ADD_FAILURE() << "Balance " << int{link.Balance} << " above the heights " << left << " and " << right;
    return 1 + std::max(left, right);
}

Node over(Host &host, Side heavy_side, Node heavy, Node light, int lean) {
    const Node node = host.record(0);
    const bool right = heavy_side == Side::right;
    set_link(node, right ? light : heavy, right ? heavy : light, sign(heavy_side) * lean);
    return node;
}

TEST(Rotation, LeavesTrueBalancesUnderAnyLean) {
    for (const Side side : {Side::left, Side::right})
        for (int lean_a = 2; lean_a <= 6; lean_a++)
            for (int lean_b : {-1, 0, 1})
                for (int lean_d : {-1, 0, 1}) {
                    SCOPED_TRACE(::testing::Message() << "side " << sign(side) << ", A leans by " << lean_a << ", B by "
                                                      << lean_b << ", D by " << lean_d);
                    Host host;
                    const auto full = [&](int height) { return build(host, full_shape(height)).root; };
                    const int b_outer = lean_a - (lean_b < 0), tall_d = lean_a - (lean_b > 0);
                    if (tall_d == 1 && lean_d != 0)
                        continue;
                    const Node d_outer = full(tall_d - 1 - (lean_d < 0)), d_inner = full(tall_d - 1 - (lean_d > 0));
                    const Node d = over(host, side, d_outer, d_inner, lean_d);
                    const Node b = over(host, side, full(b_outer), d, lean_b);
                    const Node a = over(host, side, b, full(1), lean_a);
                    const std::vector<Node> order = inorder(a);
                    const int before = measure(a);

                    Node place = a, cursor = a;
                    const auto turn = side == Side::right ? AVL_TurnLeft : AVL_TurnRight;
                    const Change change = turn(host.tree, &place, &cursor);
                    EXPECT_EQ(measure(place), before + change);
                    EXPECT_TRUE(place == (lean_b < 0 ? d : b) && cursor == place);
                    EXPECT_EQ(inorder(place), order);
                }
}

// One node over two sound subtrees.
struct Repair {
    Host host;
    Node pivot = host.record(0);
    std::vector<Node> order;

    Change operator()(const Sapling &left, const Sapling &right, bool place_in_work_area) {
        const int lean = right.height - left.height, depth = std::abs(lean);
        set_link(pivot, left.restore(), right.restore(), lean);
        Node place = pivot, cursor = pivot;
        Node *const where = place_in_work_area ? &host.tree->Stack[0].Node : &place;
        const int entries = std::max<int>(depth <= 2 ? 0 : depth - 1, place_in_work_area);
        Change change;
        {
            const StackGuard guard(host.tree, entries - 1);
            *where = pivot;
            change = AVL_DeepBalance(host.tree, host.tree->Stack, where, &cursor);
        }
        EXPECT_TRUE(*where == cursor && (depth > 1 || cursor == pivot));
        EXPECT_TRUE(change == 0 || change == -1) << change;
        order.clear();
        EXPECT_EQ(check_below(cursor, order, 0), 1 + std::max(left.height, right.height) + change);
        const auto middle = order.begin() + static_cast<std::ptrdiff_t>(left.order.size());
        EXPECT_TRUE(order.size() == left.order.size() + 1 + right.order.size() && *middle == pivot &&
                    std::equal(left.order.begin(), left.order.end(), order.begin()) &&
                    std::equal(right.order.begin(), right.order.end(), middle + 1));
        return change;
    }
};

TEST(DeepBalance, JoinsAllPairsOfSmallSubtrees) {
    Repair repair;
    const std::vector<Sapling> lefts = saplings(repair.host, 4), rights = saplings(repair.host, 4);
    bool in_work_area = false;
    for (const Sapling &left : lefts)
        for (const Sapling &right : rights) {
            repair(left, right, in_work_area = !in_work_area);
            ASSERT_FALSE(HasFailure()) << "under shapes " << &left - lefts.data() << " and " << &right - rights.data();
        }
}

TEST(DeepBalance, BridgesGreatDifferences) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; round++) {
        const int low = round < 2 ? 0 : static_cast<int>(random() % 5);
        const int high = round < 2 ? 20 : (round < 9 ? 15 : 5) + static_cast<int>(random() % 11);
        SCOPED_TRACE(::testing::Message() << "round " << round << ", heights " << low << " and " << high);
        Repair repair;
        const Shape tall = high > 14 ? leaning_shape(high, round % 2 * 2 - 1) : random_shape(high, random);
        const Sapling small(repair.host, random_shape(low, random)), large(repair.host, tall);
        for (const Change change : {repair(small, large, round % 3 == 0), repair(large, small, round % 3 == 0)})
            EXPECT_TRUE(round >= 2 || change == -1); // a leaning tree above nothing keeps its height
        ASSERT_FALSE(HasFailure());
    }
}

constexpr Keys equal_keys = {1, 0, 0}; // a scion fits anywhere

Node child(Node node, int turn) { return turn == DIR_LEFT ? link_of(node).Left : link_of(node).Right; }

// Puts another subtree where the turns lead, and lets AVL_FixPfad carry the change of height up.
void graft(Host &host, const std::vector<int> &turns, const Shape &scion) {
    AVL_Tree *tree = host.tree;
    const Node root = build(host, scion, equal_keys).root;
    Entry *top = tree->Stack;
    *top = {tree->Root, DIR_HERE};
    for (int turn : turns) {
        top->Dir = turn;
        top[1] = {child(top->Node, turn), DIR_HERE};
        ++top;
    }
    const Change change = scion.height - measure(top->Node);
    const int tall = measure(tree->Root);

    // By hand, to see what should come out, and back again.
    const auto hang = [&](Node node) {
        if (turns.empty())
            tree->Root = node;
        else
            store(top[-1].Node, link_off + (turns.back() == DIR_LEFT ? 0 : sizeof(Node)), node);
    };
    const Node old = top->Node;
    hang(root);
    const std::vector<Node> expected = inorder(tree->Root);
    const std::deque<Record> with_one_link_written = host.bytes();
    hang(old);

    top->Node = root;
    const Change total = AVL_FixPfad(tree, tree->Stack, top, change);
    const Checked checked = check(tree, tree->Stack->Node);
    EXPECT_EQ(checked.order, expected);
    EXPECT_EQ(checked.height, tall + total);
    EXPECT_TRUE(change != 0 || host == with_one_link_written);
}

// Every change at every position below the node that the turns lead to, down to the empty links.
void graft_below(const Shape &shape, Node node, std::vector<int> &turns, std::mt19937 &random) {
    const int old = measure(node);
    for (int height = 0; height <= old + 1; height++) {
        Host host;
        plant(host, shape, equal_keys);
        // What has grown by an insertion leans.
        graft(host, turns, height > old ? leaning_shape(height, random() % 2 ? 1 : -1) : random_shape(height, random));
    }
    for (int turn : {DIR_LEFT, DIR_RIGHT})
        if (node) {
            turns.push_back(turn);
            graft_below(shape, child(node, turn), turns, random);
            turns.pop_back();
        }
}

TEST(FixPfad, CarriesEveryChangeFromEveryPositionOfSmallTrees) {
    std::mt19937 random(3);
    for_all_shapes(4, 1, [&](const Shape &shape, Keys) {
        Host host;
        plant(host, shape);
        std::vector<int> turns;
        graft_below(shape, host.tree->Root, turns, random);
    });
}

TEST(FixPfad, CarriesGreatLossesUpTallTrees) {
    std::mt19937 random(5);
    for (int round = 0; round < 150; round++) {
        SCOPED_TRACE(round);
        Host host;
        plant(host, round % 3 ? random_shape(10 + round % 4, random) : leaning_shape(16, round % 2 * 2 - 1),
              equal_keys);
        std::vector<int> turns;
        Node node = host.tree->Root;
        for (auto depth = random() % 6; depth > 0; depth--) {
            turns.push_back(random() % 2 ? DIR_RIGHT : DIR_LEFT);
            node = child(node, turns.back());
        }
        graft(host, turns, random_shape(round % 4 ? std::max(0, measure(node) - 9) : 0, random));
        ASSERT_FALSE(HasFailure());
    }
}

} // namespace
} // namespace ovant::test
