#include "avl_set.hpp"
#include "pass.hpp"

int main(int argc, char **argv) {
    bench::Pass pass(argc, argv);
    pass.run<bench::AvlSet>("avl_set");
    pass.run_equal<bench::AvlMultiset>("avl_set");
}
