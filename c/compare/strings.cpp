// The ready-made comparators for strings.  An absent search string counts as larger than every string.
#include "frame/nodes.hpp"
#include "platform/runtime.hpp"

#include <cstring>

using ovant::c::load;

namespace {

using Text = const char *;

// The two strings that a Ptr comparator is given by reference; the node's is read only when there is one to search.
template <class Compare> int by_reference(const void *node_key, const void *key, Compare compare) {
    const auto search = key ? load<Text>(key) : nullptr;
    return search ? AVL_CMP_String_to_Norm(compare(search, load<Text>(node_key))) : DIR_RIGHT;
}

} // namespace

int AVL_CMP_String_to_Norm(int value) { return (value > 0) - (value < 0); }

int AVL_CMP_String(const void *node_key, const void *key) {
    return key ? AVL_CMP_String_to_Norm(std::strcmp(static_cast<Text>(key), static_cast<Text>(node_key))) : DIR_RIGHT;
}
int AVL_CMP_StringRevers(const void *node_key, const void *key) { return -AVL_CMP_String(node_key, key); }

int AVL_CMP_String_Upper(const void *node_key, const void *key) {
    return key ? AVL_CMP_String_to_Norm(ovant::c::compare_folded(static_cast<Text>(key), static_cast<Text>(node_key)))
               : DIR_RIGHT;
}
int AVL_CMP_PtrString(const void *node_key, const void *key) {
    return by_reference(node_key, key, [](Text search, Text node) { return std::strcmp(search, node); });
}
int AVL_CMP_PtrTString(const void *node_key, const void *key) {
    return by_reference(node_key, key, ovant::c::compare_multibyte);
}
int AVL_CMP_PtrUString(const void *node_key, const void *key) {
    return by_reference(node_key, key, [](Text search, Text node) { return ovant::c::compare_units(search, node); });
}
