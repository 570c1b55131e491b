// What the tests hold the library against: a recursive checker, a model of tree order, paths as text, stack canaries.
#pragma once

#include "host.hpp"

#include <algorithm>

namespace ovant::test {

inline int check_below(Node node, std::vector<Node> &order, int level) {
    if (!node)
        return 0;
    if (level > 60 || order.size() > 1'000'000) {
        ADD_FAILURE() << "the links run in a circle";
        return 0;
    }
    const AVL_Link link = link_of(node);
    const int left = check_below(link.Left, order, level + 1);
    order.push_back(node);
    const int right = check_below(link.Right, order, level + 1);
    if (link.Balance != right - left || std::abs(right - left) > 1) // a plain test: this runs millions of times
        ADD_FAILURE() << "Balance " << int{link.Balance} << " at record " << id_of(node) << " above the heights "
                      << left << " and " << right;
    return 1 + std::max(left, right);
}
struct Checked {
    int height = 0;
    std::vector<Node> order; // the nodes in tree order
};
// Fails the test where the subtree is no AVL tree in the order of the comparator.
inline Checked check(const AVL_Tree *tree, Node root) {
    Checked checked;
    checked.order.reserve(100); // growing costs most under a sanitizer
    checked.height = check_below(root, checked.order, 0);
    for (std::size_t i = 1; i < checked.order.size(); i++) {
        const char *before = static_cast<char *>(checked.order[i - 1]), *after = static_cast<char *>(checked.order[i]);
        if (tree->Cmp(before + tree->KeyOff, after + key_off) < 0)
            ADD_FAILURE() << "order at record " << id_of(after);
    }
    return checked;
}
inline Checked check(const AVL_Tree *tree) { return check(tree, tree->Root); }
// The subtree, or the whole tree, is sound and holds these nodes in this order; gives its height.
inline int expect_tree(const AVL_Tree *tree, Node root, const std::vector<Node> &order) {
    const Checked checked = check(tree, root);
    EXPECT_EQ(checked.order, order);
    return checked.height;
}
inline int expect_tree(const AVL_Tree *tree, const std::vector<Node> &order) {
    return expect_tree(tree, tree->Root, order);
}

// Where a key stands in a sequence in tree order: the two boundaries of its equal run, as positions.
struct EqualRun {
    std::size_t front, back;
};
inline EqualRun run_of(const std::vector<Node> &order, int key) {
    const auto boundary = [&](int least) {
        const auto at = std::partition_point(order.begin(), order.end(), [=](Node n) { return key_of(n) < least; });
        return static_cast<std::size_t>(at - order.begin());
    };
    return {boundary(key), boundary(key + 1)};
}

inline Node at(const std::vector<Node> &order, std::size_t position) { // position -1 wraps round to no node
    return position < order.size() ? order[position] : nullptr;
}
inline void put_in(std::vector<Node> &order, std::size_t position, Node node) {
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(position), node);
}
inline void take_out(std::vector<Node> &order, std::size_t position) {
    order.erase(order.begin() + static_cast<std::ptrdiff_t>(position));
}

// The three classic orders, by recursion, of a subtree that need not be sound.
enum class Visit { before, between, after };
inline std::vector<Node> traversal(Node node, Visit visit) {
    if (!node)
        return {};
    std::vector<Node> nodes = traversal(link_of(node).Left, visit);
    const std::vector<Node> right = traversal(link_of(node).Right, visit);
    const auto middle = nodes.insert(nodes.end(), right.begin(), right.end());
    nodes.insert(visit == Visit::before ? nodes.begin() : visit == Visit::between ? middle : nodes.end(), node);
    return nodes;
}

inline std::vector<int> keys_of(const std::vector<Node> &nodes) {
    std::vector<int> keys;
    for (Node node : nodes)
        keys.push_back(key_of(node));
    return keys;
}

// A comparator on every pair of these keys, which come in tree order, and on a tree of them.
template <class Key> void expect_order(AVL_CmpFunc cmp, const std::vector<Key> &keys, bool by_value = false) {
    Host host(cmp);
    std::vector<Node> nodes, built;
    const auto key_in = [](Node node) -> const void * { return static_cast<char *>(node) + key_off; };
    const auto sought = [=](Node node) {
        const auto value = load<std::uint32_t>(node, key_off);
        return by_value ? reinterpret_cast<const void *>(std::uintptr_t{value}) : key_in(node);
    };
    for (const Key &key : keys) {
        nodes.push_back(host.record_of(key));
        AVL_InsertUnique(host.tree, sought(nodes.back()), nodes.back());
    }
    check_below(host.tree->Root, built, 0);
    EXPECT_EQ(built, nodes);
    for (std::size_t i = 0; i < nodes.size(); i++) {
        EXPECT_EQ(AVL_SearchKey(host.tree, sought(nodes[i])), nodes[i]);
        for (std::size_t j = 0; j < nodes.size(); j++)
            EXPECT_EQ(cmp(key_in(nodes[i]), sought(nodes[j])), (i < j) - (i > j)) << i << " and " << j;
    }
}

// Paints the entries above a height, up to the 43 that every build has; the end of its life fails the test where one
// of them or the sentinel was written.
class StackGuard {
public:
    StackGuard(const AVL_Tree *tree, int height) : stack_(tree->Stack), first_(height + 1) {
        for (int i = first_; i < entries; i++)
            stack_[i] = {stack_, paint};
    }
    ~StackGuard() {
        for (int i = first_; i < entries; i++)
            if (stack_[i].Node != stack_ || stack_[i].Dir != paint)
                ADD_FAILURE() << "entry " << i << " was written";
        EXPECT_TRUE(stack_[-1].Node == nullptr && stack_[-1].Dir == DIR_NEW) << "the sentinel was written";
    }
    StackGuard(const StackGuard &) = delete;
    StackGuard &operator=(const StackGuard &) = delete;

private:
    static constexpr int entries = 43, paint = 77;
    Entry *stack_;
    int first_;
};

} // namespace ovant::test
