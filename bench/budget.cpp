// Ten fixed runs whose instructions are counted: bench_budget NAME, or no name for a list of them.
#include "operations.hpp"
#include "ovant_tree.hpp"

#include <cstdio>
#include <cstring>

#include <valgrind/callgrind.h>

using namespace bench;

namespace {

using Ready = OvantTree<AVL_CMP_HandlePointer>;
using Own = OvantTree<host_order>;
using Equal = OvantTree<AVL_CMP_HandlePointer, false>;

enum class From { empty, empty_repeated, filled };

// Counts what one operation does on a tree of 20,000 nodes, the same in every run; the tree is filled uncounted.
template <class C> void count(From from, double (*run)(Round<C> &)) {
    Round<C> round(1);
    round.renew(20000, from == From::empty_repeated ? Order::repeated : Order::random);
    if (from == From::filled)
        round.fill();
    CALLGRIND_TOGGLE_COLLECT;
    run(round);
    CALLGRIND_TOGGLE_COLLECT;
}

// Cuts a quarter of the key space out in many places and joins it in again.
double cut_and_join(Round<Ready> &round) {
    AVL_Tree *const tree = round.container.tree();
    for (int i = 0; i < 1000; ++i) {
        const Key first = static_cast<Key>(round.random.word()) / 2, last = first + UINT32_MAX / 4;
        void *const middle = AVL_GetBetweenEqualEqual(tree, &first, &last);
        void *const behind = AVL_GetGreater(tree, &last);
        AVL_ConcatLess(tree, middle);
        AVL_ConcatLess(tree, behind);
    }
    return 0;
}

constexpr struct {
    const char *name;
    void (*run)();
} runs[] = {
    {"insert", [] { count<Ready>(From::empty, insert<Ready>); }},
    {"insert_host", [] { count<Own>(From::empty, insert<Own>); }},
    {"insert_equal", [] { count<Equal>(From::empty_repeated, insert<Equal>); }},
    {"find", [] { count<Ready>(From::filled, find_hit<Ready, Order::random>); }},
    {"lower_bound", [] { count<Ready>(From::filled, lower_bound<Ready>); }},
    {"walk", [] { count<Ready>(From::filled, walk<Ready>); }},
    {"erase", [] { count<Ready>(From::filled, erase<Ready, Order::random>); }},
    {"pop_first", [] { count<Ready>(From::filled, pop_first<Ready>); }},
    {"delete_half", [] { count<Own>(From::filled, delete_range<Own, 50>); }},
    {"cut_and_join", [] { count<Ready>(From::filled, cut_and_join); }},
};

} // namespace

int main(int argc, char **argv) {
    bool found = argc < 2;
    for (const auto &[name, run] : runs)
        if (argc < 2)
            std::puts(name);
        else if (std::strcmp(argv[1], name) == 0) {
            run();
            found = true;
        }
    if (!found)
        std::fprintf(stderr, "bench_budget: no run %s\n", argv[1]);
    return found ? 0 : 1;
}
