// The ready-made comparators for numbers.  They do not agree on a direction; that is part of each one's contract.
#include "compare/numbers.hpp"

using ovant::c::compare_numbers;
using ovant::c::Direction;
using ovant::c::load;

namespace {

template <class T, Direction D> int by_pointer(const void *node_key, const void *key) {
    return compare_numbers<D>(load<T>(node_key), load<T>(key));
}

} // namespace

int AVL_CMP_SignedChar(const void *node_key, const void *key) {
    return by_pointer<std::int8_t, Direction::largest_first>(node_key, key);
}
int AVL_CMP_UnsignedChar(const void *node_key, const void *key) {
    return by_pointer<std::uint8_t, Direction::largest_first>(node_key, key);
}
int AVL_CMP_SignedShort(const void *node_key, const void *key) {
    return by_pointer<std::int16_t, Direction::largest_first>(node_key, key);
}
int AVL_CMP_UnsignedShort(const void *node_key, const void *key) {
    return by_pointer<std::uint16_t, Direction::largest_first>(node_key, key);
}
int AVL_CMP_SignedLong(const void *node_key, const void *key) {
    return by_pointer<std::int32_t, Direction::largest_first>(node_key, key);
}
extern "C" OVANT_API __attribute__((alias("AVL_CMP_SignedLong"))) int AVL_CMP_Time(const void *, const void *);

int AVL_CMP_HandleDirekt(const void *node_key, const void *key) {
    return compare_numbers<Direction::largest_first>(load<std::uint32_t>(node_key), ovant::c::direct_key(key));
}
int AVL_CMP_HandlePointer(const void *node_key, const void *key) {
    return by_pointer<std::uint32_t, Direction::smallest_first>(node_key, key);
}
int AVL_CMP_Float(const void *node_key, const void *key) {
    return by_pointer<float, Direction::smallest_first>(node_key, key);
}
int AVL_CMP_Double(const void *node_key, const void *key) {
    return by_pointer<double, Direction::smallest_first>(node_key, key);
}
