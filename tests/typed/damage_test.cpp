// check() on damaged trees, held against a recursive checker that knows where it has been.
#include "typed.hpp"

#include <set>

namespace ovant::test {
namespace {

// Goes down and back up like the check, the left side first, and blames the first record that cannot be right.
template <class Tree> class Judge {
public:
    explicit Judge(Node root) {
        height(root);
        const auto at = std::adjacent_find(order_.begin(), order_.end(), [](Node a, Node b) {
            return is_set<Tree> ? key_of(a) >= key_of(b) : key_of(a) > key_of(b);
        });
        if (!bad && at != order_.end())
            blame(at[1], "wrong order");
    }
    Node bad = nullptr;
    std::string reason = "sound";

private:
    void blame(Node n, const char *why) {
        bad = n;
        reason = why;
    }
    int height(Node n) {
        if (!n || bad)
            return 0;
        const AVL_Link link = link_of(n);
        if (!visited_.insert(n).second)
            blame(n, std::count(open_.begin(), open_.end(), n) ? "circle" : "shared");
        else if (std::abs(link.Balance) > 1)
            blame(n, "wrong balance");
        open_.push_back(n);
        const int left = height(link.Left);
        order_.push_back(n);
        const int right = height(link.Right);
        open_.pop_back();
        if (!bad && link.Balance != right - left)
            blame(n, "wrong balance");
        return 1 + std::max(left, right);
    }
    std::set<Node> visited_;
    std::vector<Node> open_, order_;
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
}

// Each link of each node bent to each node and to nothing, each balance set to each value, each key out of its place.
template <class Tree> void damage_everywhere(const Shape &shape, Keys keys) {
    Host host;
    const Sapling sapling(host, shape, keys);
    Tree tree;
    tree.adopt(static_cast<Typed *>(sapling.root));
    expect_verdict(host, tree);
    std::vector<Node> targets = sapling.order;
    targets.push_back(nullptr);
    for (const Node n : sapling.order) {
        const AVL_Link link = link_of(n);
        for (const Node target : targets) {
            set_link(n, target, link.Right, link.Balance);
            expect_verdict(host, tree);
            set_link(n, link.Left, target, link.Balance);
            expect_verdict(host, tree);
        }
        for (int balance = -128; balance < 128; balance++) {
            set_link(n, link.Left, link.Right, balance);
            expect_verdict(host, tree);
        }
        set_link(n, link.Left, link.Right, link.Balance);
        const int key = key_of(n);
        for (const int wrong : {keys.first - 1, key - keys.step, key + keys.step, keys.at(sapling.order.size())}) {
            store(n, key_off, wrong);
            expect_verdict(host, tree);
        }
        store(n, key_off, key);
    }
}

TEST(Damage, IsFoundWhereverItIs) {
    std::mt19937 random(3);
    for_all_shapes(3, 3, [](const Shape &shape, Keys keys) {
        if (keys.run == 1)
            damage_everywhere<Set<ThreeWay>>(shape, keys);
        damage_everywhere<Multiset<Predicate>>(shape, keys);
    });
    damage_everywhere<Multiset<ThreeWay>>(random_shape(6, random), {2});
}

TEST(Damage, DeeperThanAnyTreeEndsTheCheck) {
    Host host;
    Multiset<ThreeWay> tree;
    Node chain = nullptr;
    for (int i = 0; i < 300; i++) {
        const Node n = host.record(1);
        set_link(n, nullptr, chain, 0);
        chain = n;
    }
    tree.adopt(static_cast<Typed *>(chain));
    EXPECT_TRUE(tree.check());
}

} // namespace
} // namespace ovant::test
