// Boost.Intrusive: AVL trees over the host's records, as Ovant has them.  Built by both compilers.
#include "registry.hpp"
#include "set_like.hpp"

#include <boost/intrusive/avl_set.hpp>

#ifdef __clang__
#define OVANT_BENCH_AVL_SET add_avl_set_clang
#define OVANT_BENCH_LABEL "avl_set clang"
#define OVANT_BENCH_EFFORT Effort::sparing
#else
#define OVANT_BENCH_AVL_SET add_avl_set
#define OVANT_BENCH_LABEL "avl_set"
#define OVANT_BENCH_EFFORT Effort::full
#endif

namespace bench {
namespace {

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

} // namespace

void OVANT_BENCH_AVL_SET() {
    add<SetLike<AvlKind<bi::avl_set<AvlNode, bi::key_of_value<KeyOfNode>>>>>(OVANT_BENCH_LABEL, OVANT_BENCH_EFFORT);
    add_equal<SetLike<AvlKind<bi::avl_multiset<AvlNode, bi::key_of_value<KeyOfNode>>>>>(OVANT_BENCH_LABEL,
                                                                                        OVANT_BENCH_EFFORT);
}

} // namespace bench
