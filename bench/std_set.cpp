// The standard library: red-black trees that own their nodes.
#include "pass.hpp"
#include "set_like.hpp"

#include <set>

using namespace bench;

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

int main(int argc, char **argv) {
    Pass pass(argc, argv);
    pass.run<SetLike<StdKind<std::set<Key>>>>("std::set");
    pass.run_equal<SetLike<StdKind<std::multiset<Key>>>>("std::set");
}
