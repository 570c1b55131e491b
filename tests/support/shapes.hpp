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

// All shapes of one height: 1, 1, 3, 15, 315 for the heights 0 to 4.
constexpr unsigned count_shapes(int height) {
    if (height < 2)
        return 1;
    const unsigned high = count_shapes(height - 1), low = count_shapes(height - 2);
    return high * high + 2 * high * low;
}
inline void append_shape(Shape &shape, int height, unsigned index) {
    if (height == 0)
        return;
    int balance = 0;
    for (int next : {-1, 1, 2}) {
        const unsigned size = count_shapes(left_height(height, balance)) * count_shapes(right_height(height, balance));
        if (index < size || height == 1)
            break;
        index -= size;
        balance = next;
    }
    shape.balances.push_back(balance);
    const unsigned rights = count_shapes(right_height(height, balance));
    append_shape(shape, left_height(height, balance), index / rights);
    append_shape(shape, right_height(height, balance), index % rights);
}
inline Shape nth_shape(int height, unsigned index) {
    Shape shape{height, {}};
    append_shape(shape, height, index);
    return shape;
}

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

struct Built {
    Node root = nullptr;
    std::vector<Node> order; // the nodes in tree order
};
inline Node build_below(Host &host, const Shape &shape, int height, std::size_t &next, Keys keys, Built &built) {
    if (height == 0)
        return nullptr;
    const int balance = shape.balances[next++];
    const Node left = build_below(host, shape, left_height(height, balance), next, keys, built);
    const Node node = host.record(keys.at(built.order.size()));
    built.order.push_back(node);
    const Node right = build_below(host, shape, right_height(height, balance), next, keys, built);
    set_link(node, left, right, balance);
    return node;
}
inline Built build(Host &host, const Shape &shape, Keys keys = {}) {
    Built built;
    std::size_t next = 0;
    built.root = build_below(host, shape, shape.height, next, keys, built);
    return built;
}
// Makes the shape the host's tree and gives its nodes in tree order.
inline std::vector<Node> plant(Host &host, const Shape &shape, Keys keys = {}) {
    Built built = build(host, shape, keys);
    host.tree->Root = built.root;
    return built.order;
}

// A subtree that can be put back into its first shape, however often an operation takes it apart.
struct Sapling {
    Sapling(Host &host, const Shape &shape, Keys keys = {}) : Sapling(shape.height, build(host, shape, keys)) {}
    Node restore() const {
        for (std::size_t i = 0; i < order.size(); i++)
            store(order[i], link_off, links[i]);
        return root;
    }
    bool untouched() const {
        for (std::size_t i = 0; i < order.size(); i++)
            if (std::memcmp(static_cast<char *>(order[i]) + link_off, &links[i], sizeof(AVL_Link)) != 0)
                return false;
        return true;
    }
    int height;
    Node root;
    std::vector<Node> order;
    std::vector<AVL_Link> links;

private:
    Sapling(int tall, const Built &built) : height(tall), root(built.root), order(built.order) {
        for (Node node : order)
            links.push_back(link_of(node));
    }
};
// One of each shape up to a height.
inline std::vector<Sapling> saplings(Host &host, int up_to_height) {
    std::vector<Sapling> all;
    for (int height = 0; height <= up_to_height; height++)
        for (unsigned index = 0; index < count_shapes(height); index++)
            all.emplace_back(host, nth_shape(height, index));
    return all;
}

// A tree from its picture, "60(40(,50),70)"; the balances are the true ones, however far a node leans.
inline Node parse_below(Host &host, const char *&text, int &height) {
    height = 0;
    if (*text < '0' || *text > '9')
        return nullptr;
    int key = 0, left_tall = 0, right_tall = 0;
    for (; *text >= '0' && *text <= '9'; text++)
        key = 10 * key + (*text - '0');
    const Node node = host.record(key);
    Node left = nullptr, right = nullptr;
    if (*text == '(') {
        left = parse_below(host, ++text, left_tall);
        right = parse_below(host, ++text, right_tall);
        ++text;
    }
    set_link(node, left, right, right_tall - left_tall);
    height = 1 + std::max(left_tall, right_tall);
    return node;
}
inline void plant(Host &host, const char *picture) {
    int height;
    host.tree->Root = parse_below(host, picture, height);
}

// Every shape up to a height, with equal runs of 1 to longest nodes: visit(shape, keys).
template <class Visit> void for_all_shapes(int up_to_height, int longest_run, Visit visit) {
    for (int height = 0; height <= up_to_height; height++)
        for (unsigned index = 0; index < count_shapes(height); index++)
            for (int run = 1; run <= longest_run; run++) {
                SCOPED_TRACE(::testing::Message() << "height " << height << ", shape " << index << ", run " << run);
                visit(nth_shape(height, index), Keys{run});
                if (::testing::Test::HasFailure())
                    return; // the first broken shape tells enough
            }
}

} // namespace ovant::test
