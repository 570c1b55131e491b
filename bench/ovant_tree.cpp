#include "ovant_tree.hpp"
#include "pass.hpp"

using namespace bench;

int main(int argc, char **argv) {
    Pass pass(argc, argv);
    pass.run<OvantTree<AVL_CMP_HandlePointer>>("ovant");
    pass.run_equal<OvantTree<AVL_CMP_HandlePointer, false>>("ovant");
    pass.run<OvantTree<host_order>>("ovant host");
    pass.run_equal<OvantTree<host_order, false>>("ovant host");
}
