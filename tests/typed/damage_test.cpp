// check() on damaged trees, held against a recursion that knows where it has been.
#include "typed.hpp"

#include <map>

namespace ovant::test {
namespace {

// Goes down and back up, the left side first, and blames the first record that cannot be right.
template <class Tree> struct Judge {
    explicit Judge(Node root) {
        height(root);
        for (std::size_t i = 1; i < order.size(); i++)
            if (key_of(order[i - 1]) >= key_of(order[i]) + !is_set<Tree>)
                blame(order[i], "wrong order");
    }
    void blame(Node n, const char *why) {
        if (!bad)
            bad = n, reason = why;
    }
    int height(Node n) {
        if (!n || bad)
            return 0;
        const AVL_Link link = link_of(n);
        const auto [at, fresh] = open.emplace(n, true);
        if (!fresh)
            blame(n, at->second ? "circle" : "shared");
        else if (std::abs(link.Balance) > 1)
            blame(n, "wrong balance");
        const int left = height(link.Left);
        order.push_back(n);
        const int right = height(link.Right);
        at->second = false;
        if (link.Balance != right - left)
            blame(n, "wrong balance");
        return 1 + std::max(left, right);
    }
    Node bad = nullptr;
    std::string reason = "sound";
    std::map<Node, bool> open; // those that have been visited
    std::vector<Node> order;
};

// The verdict is right, the way leads to the record, and no byte has changed.
template <class Tree> void expect_verdict(const Host &host, Tree &tree) {
    const auto bytes = host.bytes();
    const finding<Typed> found = tree.check();
    const Judge<Tree> judge(root_of(tree));
    EXPECT_TRUE(host == bytes);
    EXPECT_EQ(found.record, judge.bad);
    EXPECT_EQ(found.reason, judge.reason);
    Node at = found ? root_of(tree) : nullptr;
    const std::string way = found.way;
    for (std::size_t i = 0; way != "root" && i < way.size(); i += way[i] == 'l' ? 6 : 7) // "left, right"
        at = way[i] == 'l' ? link_of(at).Left : link_of(at).Right;
    EXPECT_EQ(at, found.record) << way;
    EXPECT_EQ(way.empty(), !found);
}

template <class Tree> void judge_damage(const Shape &shape, Keys keys) {
    Plot<Tree> plot(shape, keys);
    const auto judge = [&plot] { expect_verdict(plot.host, plot.tree); };
    judge();
    damage_each_node(plot.first, true, judge);
    for (const Node n : plot.first.order) {
        const int key = key_of(n);
        for (const int wrong : {keys.first - 1, key - keys.step, key + keys.step, keys.at(plot.first.order.size())}) {
            store(n, key_off, wrong);
            judge();
        }
        store(n, key_off, key);
    }
}
TEST(Damage, IsFoundWhereverItIs) {
    std::mt19937 random(3);
    for_all_shapes(3, 3, [](const Shape &shape, Keys keys) {
        if (keys.run == 1)
            judge_damage<Set<ThreeWay>>(shape, keys);
        judge_damage<Multiset<Predicate>>(shape, keys);
    });
    judge_damage<Multiset<ThreeWay>>(random_shape(6, random), {2});
}

TEST(Damage, OfASummaryIsFoundAtItsRecord) {
    for_all_shapes(3, 1, [](const Shape &shape, Keys keys) {
        Plot<SummedSet<ThreeWay>> plot(shape, keys);
        EXPECT_FALSE(plot.tree.check());
        for (const Node n : plot.first.order) {
            store(n, id_off, id_of(n) + 1);
            const auto found = plot.tree.check();
            EXPECT_TRUE(found.record == n && std::string(found.reason) == "wrong summary") << found.reason;
            plot.tree.refresh(*static_cast<Summed *>(n));
            EXPECT_FALSE(plot.tree.check());
            store(n, id_off, id_of(n) - 1);
            plot.tree.refresh(*static_cast<Summed *>(n));
        }
        Plot<CountedMultiset<ThreeWay>> counted(shape, keys);
        for (const Node n : counted.first.order)
            counted.tree.refresh(*static_cast<Counted *>(n));
        expect_nodes(counted.tree, counted.first.order);
    });
}

TEST(Damage, ATrueBalanceMayBeWrong) {
    for (const int side : {-1, +1}) {
        Plot<Multiset<ThreeWay>> plot(leaning_shape(3, side));
        const AVL_Link link = link_of(plot.first.root); // two levels on one side, none on the other, and it says so
        set_link(plot.first.root, side < 0 ? link.Left : nullptr, side < 0 ? nullptr : link.Right, 2 * side);
        expect_verdict(plot.host, plot.tree);
    }
}

TEST(Damage, DeeperThanAnyTreeEndsTheCheck) {
    Host host;
    Multiset<ThreeWay> tree;
    const std::vector<Node> chain = make_chain(host, 200, 2);
    tree.adopt(static_cast<Typed *>(chain[0]));
    const auto found = tree.check();
    EXPECT_STREQ(found.reason, "wrong balance");
    EXPECT_EQ(found.record, chain[engine::greatest_height(sizeof(Typed))]);
}

} // namespace
} // namespace ovant::test
