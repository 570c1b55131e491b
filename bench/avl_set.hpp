// The adapter of Boost.Intrusive's AVL trees: over the host's records, as Ovant has them.
#pragma once

#include "set_like.hpp"

#include <boost/intrusive/avl_set.hpp>

namespace bench {

namespace bi = boost::intrusive;

struct AvlNode : bi::avl_set_base_hook<> {
    Key key = 0;
};
struct KeyOfNode {
    using type = Key;
    Key operator()(const AvlNode &node) const { return node.key; }
};

template <class Container> struct AvlKind {
    using Node = AvlNode;
    using Set = Container;

    static AvlNode &value(AvlNode &node) { return node; }
    static Key key(const AvlNode &node) { return node.key; }
    template <class At> static void move_range(Set &from, At first, At last, Set &to) {
        from.erase_and_dispose(first, last, [&](AvlNode *node) { to.push_back(*node); });
    }
    static void move_all(Set &from, Set &to) {
        while (AvlNode *node = from.unlink_leftmost_without_rebalance())
            to.push_back(*node);
    }
};

using AvlSet = SetLike<AvlKind<bi::avl_set<AvlNode, bi::key_of_value<KeyOfNode>>>>;
using AvlMultiset = SetLike<AvlKind<bi::avl_multiset<AvlNode, bi::key_of_value<KeyOfNode>>>>;

} // namespace bench
