// The numeric comparators' bodies, as templates that a descent can inline.
#pragma once

#include "frame/nodes.hpp"
#include "ovant/engine/order.hpp"

#include <cstdint>

namespace ovant::c {

// An unordered pair (a NaN) neither matches nor leads to the left.
template <Direction D, class T> constexpr int compare_numbers(T node_key, T key) {
    if (node_key == key)
        return DIR_HERE;
    return is_left<D>(node_key, key) ? DIR_LEFT : DIR_RIGHT;
}

// A key word that is the value itself: its low 32 bits.
inline std::uint32_t direct_key(const void *key) {
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(key));
}

} // namespace ovant::c
