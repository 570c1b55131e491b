// What the tests hold the library against: a recursive checker, a model of tree order, paths as text, stack canaries.
#pragma once

#include "host.hpp"

#include <algorithm>
#include <string>

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
    checked.height = check_below(root, checked.order, 0);
    for (std::size_t i = 1; i < checked.order.size(); i++) {
        const char *before = static_cast<char *>(checked.order[i - 1]), *after = static_cast<char *>(checked.order[i]);
        if (tree->Cmp(before + tree->KeyOff, after + key_off) < 0)
            ADD_FAILURE() << "order at record " << id_of(after);
    }
    return checked;
}
inline Checked check(const AVL_Tree *tree) { return check(tree, tree->Root); }
// The whole tree is sound and holds these nodes in this order.
inline void expect_tree(const AVL_Tree *tree, const std::vector<Node> &order) { EXPECT_EQ(check(tree).order, order); }

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

// The three classic orders, by recursion, of a subtree that need not be sound.
enum class Visit { before, between, after };
inline void traverse(Node node, Visit visit, std::vector<Node> &nodes) {
    if (!node)
        return;
    if (visit == Visit::before)
        nodes.push_back(node);
    traverse(link_of(node).Left, visit, nodes);
    if (visit == Visit::between)
        nodes.push_back(node);
    traverse(link_of(node).Right, visit, nodes);
    if (visit == Visit::after)
        nodes.push_back(node);
}
inline std::vector<Node> traversal(Node root, Visit visit) {
    std::vector<Node> nodes;
    traverse(root, visit, nodes);
    return nodes;
}
inline std::vector<Node> inorder(Node root) { return traversal(root, Visit::between); }
template <class Read> std::vector<int> read_all(const std::vector<Node> &nodes, Read read) {
    std::vector<int> values;
    for (Node node : nodes)
        values.push_back(read(node));
    return values;
}
inline std::vector<int> keys_of(const std::vector<Node> &nodes) { return read_all(nodes, key_of<int>); }
inline std::vector<int> ids_of(const std::vector<Node> &nodes) { return read_all(nodes, id_of); }

// A tree as text, "60-(40+(,50),70)": keys with the sign of their Balance, then the children.
inline std::string picture_of(Node node) {
    if (!node)
        return "";
    const AVL_Link link = link_of(node);
    std::string text = std::to_string(key_of(node));
    if (link.Balance != 0)
        text += std::abs(link.Balance) > 1 ? "?" : link.Balance < 0 ? "-" : "+";
    return link.Left || link.Right ? text + "(" + picture_of(link.Left) + "," + picture_of(link.Right) + ")" : text;
}

// A path as text, "50L 30R 40H": keys and directions up to the entry; a "-" stands for Node 0, with no direction.
inline std::string text_of(const AVL_Tree *tree, const Entry *top) {
    std::string text;
    for (const Entry *entry = tree->Stack; entry <= top; entry++) {
        text += entry == tree->Stack ? "" : " ";
        text += entry->Node ? std::to_string(key_of(entry->Node)) + "NLHR?"[std::clamp(entry->Dir + 2, 0, 4)] : "-";
    }
    return text;
}
// Paints the entries above a height, up to the 43 that every build has, and the sentinel; the end of its life fails
// the test where one was written.
class StackGuard {
public:
    StackGuard(AVL_Tree *tree, int height) : stack_(tree->Stack), sentinel_(stack_[-1]), first_(height + 1) {
        for (int i = first_; i < entries; i++)
            stack_[i] = {paint(), 77};
        stack_[-1] = {paint(), 77};
    }
    ~StackGuard() {
        for (int i = first_; i < entries; i++)
            if (stack_[i].Node != paint() || stack_[i].Dir != 77)
                ADD_FAILURE() << "entry " << i << " was written";
        EXPECT_TRUE(stack_[-1].Node == paint() && stack_[-1].Dir == 77) << "the sentinel was written";
        stack_[-1] = sentinel_;
    }
    StackGuard(const StackGuard &) = delete;
    StackGuard &operator=(const StackGuard &) = delete;

private:
    static constexpr int entries = 43;
    Node paint() const { return stack_; } // any address that is no node
    Entry *stack_;
    Entry sentinel_;
    int first_;
};

} // namespace ovant::test
