// The standard library: red-black trees that own their nodes.
#include "registry.hpp"
#include "set_like.hpp"

namespace bench {
namespace {

template <class Container> struct StdKind : CopiedKey {
    using Set = Container;

    static Key key(Key key) { return key; }
    template <class At> static void move_range(Set &from, At first, At last, Set &to) {
        while (first != last)
            to.insert(to.end(), from.extract(first++));
    }
    static void move_all(Set &from, Set &to) { move_range(from, from.begin(), from.end(), to); }
};

} // namespace

void add_std_set() {
    add<SetLike<StdKind<std::set<Key>>>>("std::set", Effort::sparing);
    add_equal<SetLike<StdKind<std::multiset<Key>>>>("std::set", Effort::sparing);
}

} // namespace bench
