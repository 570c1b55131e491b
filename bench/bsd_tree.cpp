// BSD: red-black trees over the host's records, as macros.
#include "pass.hpp"

#include <bsd/sys/tree.h>

using namespace bench;

namespace {

struct BsdNode {
    RB_ENTRY(BsdNode) link = {};
    Key key = 0;
};

int order(const BsdNode *a, const BsdNode *b) { return (a->key > b->key) - (a->key < b->key); }

RB_HEAD(Tree, BsdNode);
RB_GENERATE_INTERNAL(Tree, BsdNode, link, order, [[maybe_unused]] static)

class BsdTree {
public:
    using Node = BsdNode;

    void insert(Node &node) { RB_INSERT(Tree, &head_, &node); }
    Key find(Key key) { return key_of(RB_FIND(Tree, &head_, probe(key))); }
    Key lower_bound(Key key) { return key_of(RB_NFIND(Tree, &head_, probe(key))); }
    std::uint64_t walk() {
        std::uint64_t sum = 0;
        Node *node;
        RB_FOREACH(node, Tree, &head_) sum += node->key;
        return sum;
    }
    bool erase(Key key) {
        Node *const node = RB_FIND(Tree, &head_, probe(key));
        return node && RB_REMOVE(Tree, &head_, node);
    }
    void pop_first() { RB_REMOVE(Tree, &head_, RB_MIN(Tree, &head_)); }
    void erase_range(Key first, Key last) {
        each_between(first, last, [](Node *) {});
    }
    void cut(Key first, Key last, BsdTree &other) {
        each_between(first, last, [&](Node *node) { other.insert(*node); });
    }
    void join(BsdTree &other) { other.cut(0, UINT32_MAX, *this); }
    void clear() { RB_INIT(&head_); }

    static void reuse(Node &node, Key key) { node.key = key; }

private:
    static Key key_of(const Node *node) { return node ? node->key : 0; }
    Node *probe(Key key) {
        probe_.key = key;
        return &probe_;
    }
    template <class Visit> void each_between(Key first, Key last, Visit visit) {
        Node *node = RB_NFIND(Tree, &head_, probe(first));
        while (node && node->key <= last) {
            Node *const next = RB_NEXT(Tree, &head_, node);
            RB_REMOVE(Tree, &head_, node);
            visit(node);
            node = next;
        }
    }

    Tree head_ = RB_INITIALIZER(&head_);
    Node probe_;
};

} // namespace

int main(int argc, char **argv) {
    Pass pass(argc, argv);
    pass.run<BsdTree>("RB_tree");
}
