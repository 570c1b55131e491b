// The yardstick, built by both compilers.
#include "avl_set.hpp"
#include "registry.hpp"

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

void OVANT_BENCH_AVL_SET() {
    add<AvlSet>(OVANT_BENCH_LABEL, OVANT_BENCH_EFFORT);
    add_equal<AvlMultiset>(OVANT_BENCH_LABEL, OVANT_BENCH_EFFORT);
}

} // namespace bench
