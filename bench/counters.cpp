// One operation of the side-by-side table on one tree, for callgrind to count: bench_counters CONTAINER OPERATION
// NODES.
#include <valgrind/callgrind.h>

#include "avl_set.hpp"
#include "operations.hpp"
#include "ovant_tree.hpp"

#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace bench;

namespace {

template <class C> bool count(std::string_view name, std::size_t n) {
    for (const Operation<C> &operation : operations<C>) {
        if (name != operation.name || operation.order != Order::random)
            continue;
        Round<C> round(1);
        round.renew(n, Order::random);
        if (operation.start == Start::filled)
            round.fill();
        operation.run(round);
        return true;
    }
    return false;
}

} // namespace

int main(int argc, char **argv) {
    const std::string_view container = argc == 4 ? argv[1] : "";
    const std::size_t n = argc == 4 ? std::strtoul(argv[3], nullptr, 10) : 0;
    if (n >= 16 && container == "avl_set" && count<AvlSet>(argv[2], n))
        return 0;
    if (n >= 16 && container == "ovant" && count<OvantTree<AVL_CMP_HandlePointer>>(argv[2], n))
        return 0;
    std::fputs("bench_counters: takes avl_set or ovant, an operation of the table, and 16 nodes or more\n", stderr);
    return 1;
}
