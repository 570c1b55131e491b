// The least that a C++20 host does: link its records, take the first one out.
#include <ovant.h>

#include <array>
#include <compare>
#include <cstddef>
#include <memory>

namespace {

struct Record {
    double weight;
    AVL_Link link{};
};

} // namespace

extern "C" int compare_weights(const void *node_key, const void *key) {
    const auto order = *static_cast<const double *>(key) <=> *static_cast<const double *>(node_key);
    return order > 0 ? 1 : order < 0 ? -1 : 0;
}

int main() {
    std::array<Record, 3> records{{{2.5}, {0.5}, {1.5}}};
    const std::unique_ptr<AVL_Tree, decltype(&AVL_Destruktor)> tree{
        AVL_Konstruktor(offsetof(Record, link), AVL_GetNodeFuncPtrRetNULL(), offsetof(Record, weight), compare_weights,
                        nullptr),
        AVL_Destruktor};
    for (Record &record : records)
        AVL_Insert(tree.get(), &record.weight, &record);
    return AVL_SearchMin(tree.get()) == &records[1] && AVL_CountNode(tree.get()) == 3 ? 0 : 1;
}
