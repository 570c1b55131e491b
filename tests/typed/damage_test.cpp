// check() on damaged trees, held against a recursive checker that knows where it has been.
#include "typed.hpp"

#include <set>

namespace ovant::test {
namespace {

// The height of what hangs at a node, -1 if anything is wrong with it.
int sound_height(Node n, std::set<Node> &visited, std::vector<Node> &order) {
    if (!n)
        return 0;
    if (!visited.insert(n).second)
        return -1;
    const AVL_Link link = link_of(n);
    const int left = sound_height(link.Left, visited, order);
    order.push_back(n);
    const int right = left < 0 ? -1 : sound_height(link.Right, visited, order);
    return right < 0 || link.Balance != right - left || std::abs(right - left) > 1 ? -1 : 1 + std::max(left, right);
}
template <class Tree> bool is_sound(const Tree &tree) {
    std::set<Node> visited;
    std::vector<Node> order;
    return sound_height(root_of(tree), visited, order) >= 0 &&
           std::adjacent_find(order.begin(), order.end(), [](Node a, Node b) {
               return is_set<Tree> ? key_of(a) >= key_of(b) : key_of(a) > key_of(b);
           }) == order.end();
}

// The verdict is right, the way leads to the record, the reason fits the way, and no byte has changed.
template <class Tree> finding<Typed> expect_verdict(const Host &host, Tree &tree) {
    const auto bytes = host.bytes();
    const finding<Typed> found = tree.check();
    EXPECT_TRUE(host == bytes);
    EXPECT_EQ(!found, is_sound(tree));
    if (!found)
        return found;
    std::vector<Node> on_the_way{root_of(tree)};
    const std::string way = found.way;
    for (std::size_t at = 0; way != "root" && at < way.size(); at += way[at] == 'l' ? 6 : 7) {
        const AVL_Link link = link_of(on_the_way.back());
        on_the_way.push_back(way[at] == 'l' ? link.Left : link.Right);
    }
    EXPECT_EQ(on_the_way.back(), found.record) << way;
    const bool circle = std::count(on_the_way.begin(), on_the_way.end(), found.record) > 1;
    EXPECT_EQ(std::string(found.reason) == "circle", circle) << way;
    return found;
}

// Each link of each node bent to each node and to nothing, and each balance set to each value.
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
            const auto found = expect_verdict(host, tree);
            EXPECT_TRUE(found ? found.record == n && std::string(found.reason) == "wrong balance"
                              : balance == link.Balance);
        }
        set_link(n, link.Left, link.Right, link.Balance);
    }
    for (const Node n : sapling.order) { // out of place: found at itself, or at the next record
        const int key = key_of(n);
        const std::size_t i = static_cast<std::size_t>(std::find(sapling.order.begin(), sapling.order.end(), n) - sapling.order.begin());
        for (const int wrong : {keys.first - 1, keys.at(sapling.order.size()) + 1}) {
            store(n, key_off, wrong);
            const auto found = expect_verdict(host, tree);
            const std::size_t bad = i + (wrong > key);
            EXPECT_TRUE()
        }
        store(n, key_off, key);
    }
}
