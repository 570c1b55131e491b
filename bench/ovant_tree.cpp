#include "ovant_tree.hpp"

#include "registry.hpp"

namespace bench {

void add_ovant() {
    add<OvantTree<AVL_CMP_HandlePointer>>("ovant");
    add<OvantTree<host_order>>("ovant host");
    add_equal<OvantTree<AVL_CMP_HandlePointer, false>>("ovant");
    add_equal<OvantTree<host_order, false>>("ovant host");
}

} // namespace bench
