// Trees of a chosen shape, built node by node without the library.
#pragma once

#include "host.hpp"

#include <random>

namespace ovant::test {

// An AVL shape: its height and the balances of its nodes in preorder.
struct Shape {
    int height = 0;
    std::vector<int> balances;
};

constexpr int left_height(int height, int balance) { return height - 1 - (balance > 0); }
constexpr int right_height(int height, int balance) { return height - 1 - (balance < 0); }

// A shape whose every node of height 2 and more takes the balance that choose(height) gives.
template <class Choose> void append_chosen(Shape &shape, int height, Choose &choose) {
    if (height <= 0)
        return;
    const int balance = height == 1 ? 0 : choose(height);
    shape.balances.push_back(balance);
    append_chosen(shape, left_height(height, balance), choose);
    append_chosen(shape, right_height(height, balance), choose);
}
template <class Choose> Shape chosen_shape(int height, Choose choose) {
    Shape shape{height, {}};
    append_chosen(shape, height, choose);
    return shape;
}
// The fewest nodes for the height, every node leaning to one side: -1 or +1.
inline Shape leaning_shape(int height, int balance) {
    return chosen_shape(height, [=](int) { return balance; });
}
inline Shape full_shape(int height) { return leaning_shape(height, 0); }
inline Shape random_shape(int height, std::mt19937 &random) {
    return chosen_shape(height, [&](int) { return static_cast<int>(random() % 3) - 1; });
}

// The keys in tree order: equal runs of one length, with room between neighbouring keys.
struct Keys {
    int run = 1, first = 10, step = 10;
    int at(std::size_t position) const { return first + step * (static_cast<int>(position) / run); }
};

// A subtree, built and then put back into its first shape as often as an operation takes it apart.
struct Sapling {
    Sapling(Host &host, const Shape &shape, Keys keys = {}) : height(shape.height) {
        auto balance = shape.balances.begin();
        root = grow(host, shape.height, balance, keys);
        for (Node node : order)
            links.push_back(link_of(node));
    }
    Node restore() const {
        for (std::size_t i = 0; i < order.size(); i++)
            store(order[i], link_off, links[i]);
        return root;
    }
    bool untouched() const {
        return std::equal(order.begin(), order.end(), links.begin(), [](Node node, const AVL_Link &link) {
            return std::memcmp(static_cast<char *>(node) + link_off, &link, sizeof link) == 0;
        });
    }
    int height;
    Node root;
    std::vector<Node> order; // the nodes in tree order
    std::vector<AVL_Link> links;

private:
    Node grow(Host &host, int tall, std::vector<int>::const_iterator &next, Keys keys) {
        if (tall == 0)
            return nullptr;
        const int balance = *next++;
        const Node left = grow(host, left_height(tall, balance), next, keys);
        const Node node = host.record(keys.at(order.size()));
        order.push_back(node);
        const Node right = grow(host, right_height(tall, balance), next, keys);
        set_link(node, left, right, balance);
        return node;
    }
};

// As the left child (1), the right one (2) or both (3).
inline void hang_below(Node node, Node below, int sides) {
    set_link(node, sides & 1 ? below : nullptr, sides & 2 ? below : nullptr, 0);
}
// Records of one key, each hung below the one before.  200 are deeper than any tree.
inline std::vector<Node> make_chain(Host &host, std::size_t length, int sides) {
    std::vector<Node> chain(length);
    for (std::size_t i = chain.size(); i-- > 0;)
        hang_below(chain[i] = host.record(1), i + 1 < chain.size() ? chain[i + 1] : nullptr, sides);
    return chain;
}

// Looks at the tree with each link of each node bent to each node and to nothing, and each balance set to every value;
// or, where that takes too long, with each balance set to some.
template <class Look> void damage_each_node(const Sapling &tree, bool in_every_way, Look look) {
    std::vector<Node> targets = tree.order;
    targets.push_back(nullptr);
    for (const Node node : tree.order) {
        const AVL_Link link = link_of(node);
        const auto look_with = [&](Node left, Node right, int balance) {
            SCOPED_TRACE(::testing::Message()
                         << "record " << id_of(node) << ' ' << left << ' ' << right << ' ' << balance);
            set_link(node, left, right, balance);
            look();
            tree.restore();
        };
        for (std::size_t i = 0; i < targets.size() && in_every_way; i++) {
            look_with(targets[i], link.Right, link.Balance);
            look_with(link.Left, targets[i], link.Balance);
        }
        for (int balance = -128; balance < 128; balance++)
            if (in_every_way || std::abs(balance) <= 2 || std::abs(balance) >= 127)
                look_with(link.Left, link.Right, balance);
    }
}

// A host whose tree every call finds in its first shape; the order of its keys goes with the length of the runs.
struct Bed : Host, Sapling {
    explicit Bed(const Shape &shape, Keys keys_ = {})
        : Host(orders[(keys_.run - 1) % 3]), Sapling(*this, shape, keys_), keys(keys_) {
        fresh();
    }
    AVL_Tree *fresh() {
        tree->Root = restore();
        seen = {};
        return tree;
    }
    bool is_fresh() const { return tree->Root == root && untouched(); }
    const Keys keys;
};

// Every shape up to a height, 1, 1, 3, 15, 315 for the heights 0 to 4, with equal runs of 1 to longest nodes:
// visit(shape, keys).
template <class Visit> void for_all_shapes(int up_to_height, int longest_run, Visit visit) {
    for (int height = 0; height <= up_to_height; height++) {
        std::vector<int> balances; // of the nodes that have a choice; the next shape changes the last one that can grow
        do {
            std::size_t used = 0;
            const Shape shape = chosen_shape(height, [&](int) {
                if (used == balances.size())
                    balances.push_back(-1);
                return balances[used++];
            });
            for (int run = 1; run <= longest_run; run++) {
                SCOPED_TRACE("shape " + ::testing::PrintToString(shape.balances) + ", run " + std::to_string(run));
                visit(shape, Keys{run});
                if (::testing::Test::HasFailure())
                    return; // the first broken shape tells enough
            }
            while (!balances.empty() && balances.back() == 1)
                balances.pop_back();
            if (!balances.empty())
                balances.back()++;
        } while (!balances.empty());
    }
}

} // namespace ovant::test
