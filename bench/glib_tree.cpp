// GLib: an AVL tree that owns its nodes and points to key and value.
#include "pass.hpp"

#include <glib.h>

using namespace bench;

namespace {

int order(const void *a, const void *b) {
    const unsigned x = GPOINTER_TO_UINT(a), y = GPOINTER_TO_UINT(b);
    return (x > y) - (x < y);
}

class GlibTree {
public:
    struct Node {
        Key key = 0;
    };

    GlibTree() : tree_(g_tree_new(order)) {}
    ~GlibTree() { g_tree_unref(tree_); }
    GlibTree(const GlibTree &) = delete;
    GlibTree &operator=(const GlibTree &) = delete;

    void insert(Node &node) { g_tree_insert(tree_, GUINT_TO_POINTER(node.key), &node); }
    Key find(Key key) const { return key_of(g_tree_lookup_node(tree_, GUINT_TO_POINTER(key))); }
    Key lower_bound(Key key) const { return key_of(g_tree_lower_bound(tree_, GUINT_TO_POINTER(key))); }
    std::uint64_t walk() const {
        std::uint64_t sum = 0;
        for (GTreeNode *at = g_tree_node_first(tree_); at; at = g_tree_node_next(at))
            sum += key_of(at);
        return sum;
    }
    std::uint64_t for_each() const {
        const auto add = [](GTreeNode *at, void *sum) -> gboolean {
            *static_cast<std::uint64_t *>(sum) += key_of(at);
            return FALSE;
        };
        std::uint64_t sum = 0;
        g_tree_foreach_node(tree_, add, &sum);
        return sum;
    }
    bool erase(Key key) { return g_tree_remove(tree_, GUINT_TO_POINTER(key)); }
    void pop_first() { erase(key_of(g_tree_node_first(tree_))); }
    void erase_range(Key first, Key last) {
        each_between(first, last, [&](Key key, void *) { erase(key); });
    }
    void cut(Key first, Key last, GlibTree &other) {
        each_between(first, last, [&](Key key, void *node) {
            erase(key);
            other.insert(*static_cast<Node *>(node));
        });
    }
    void join(GlibTree &other) { other.cut(0, UINT32_MAX, *this); }
    void clear() { g_tree_remove_all(tree_); }

    static void reuse(Node &node, Key key) { node.key = key; }

private:
    static Key key_of(GTreeNode *node) { return node ? GPOINTER_TO_UINT(g_tree_node_key(node)) : 0; }
    template <class Visit> void each_between(Key first, Key last, Visit visit) {
        GTreeNode *at = g_tree_lower_bound(tree_, GUINT_TO_POINTER(first));
        while (at && key_of(at) <= last) {
            GTreeNode *const next = g_tree_node_next(at);
            visit(key_of(at), g_tree_node_value(at));
            at = next;
        }
    }

    GTree *tree_;
};

} // namespace

int main(int argc, char **argv) {
    Pass pass(argc, argv);
    pass.run<GlibTree>("GTree");
}
