// Abseil: B-trees, many keys to a block.
#include "pass.hpp"
#include "set_like.hpp"

#include <absl/container/btree_set.h>

using namespace bench;

namespace {

template <class Container> struct BtreeKind : CopiedKey {
    using Set = Container;

    static Key key(Key key) { return key; }
    template <class At> static void move_range(Set &from, At first, At last, Set &to) {
        to.insert(first, last);
        from.erase(first, last);
    }
    static void move_all(Set &from, Set &to) {
        to.insert(from.begin(), from.end());
        from.clear();
    }
};

} // namespace

int main(int argc, char **argv) {
    Pass pass(argc, argv);
    pass.run<SetLike<BtreeKind<absl::btree_set<Key>>>>("btree_set");
    pass.run_equal<SetLike<BtreeKind<absl::btree_multiset<Key>>>>("btree_set");
}
