// Gaps: the places between neighbours, which bound every interval.
//
// Wherever two gaps are asked for, they name what lies between them; if the second stands in front of the first, that
// is nothing.  Equal keys stand on the same side of a gap.  A gap keeps a reference to a key that is a variable of the
// caller's, and a copy of any other.
#pragma once

#include "keys.hpp"

namespace ovant {

namespace typed {

template <class K, engine::Edge E> struct key_gap { K key; };
template <class Pred> struct partition_gap { Pred in_front; };

template <class K> struct kept { using type = K; };
template <class K> struct kept<K &> { using type = const K &; };

template <class G> inline constexpr bool is_gap = false;
template <class K, engine::Edge E> inline constexpr bool is_gap<key_gap<K, E>> = true;
template <class Pred> inline constexpr bool is_gap<partition_gap<Pred>> = true;

} // namespace typed

// In front of the first record whose key is not less than k; behind the last one whose key is not greater.
template <class K> constexpr auto before(K &&k) {
    return typed::key_gap<typename typed::kept<K>::type, engine::Edge::front>{static_cast<K &&>(k)};
}
template <class K> constexpr auto after(K &&k) {
    return typed::key_gap<typename typed::kept<K>::type, engine::Edge::back>{static_cast<K &&>(k)};
}

// Behind all records for which the predicate is true; it must be true for a first part of the tree and false for the
// rest: records that begin with a prefix or stand before it, another member that grows with the key.
template <class Pred> constexpr auto partition_point(Pred pred) { return typed::partition_gap<Pred>{pred}; }

// The two ends of a tree.
struct start_gap {};
struct finish_gap {};
inline constexpr start_gap start{};
inline constexpr finish_gap finish{};

namespace typed {

template <> inline constexpr bool is_gap<start_gap> = true;
template <> inline constexpr bool is_gap<finish_gap> = true;

template <class G>
concept gap = is_gap<std::remove_cvref_t<G>>;

} // namespace typed
} // namespace ovant
