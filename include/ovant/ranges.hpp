// Tells <ranges> what the intervals of a tree are: views, whose positions outlive them.  A header of its own, since
// <ranges> costs a compiler more than all of Ovant.
#pragma once

#include "../ovant.hpp"

#include <ranges>

template <class Traits, bool Const>
inline constexpr bool std::ranges::enable_view<ovant::typed::interval<Traits, Const>> = true;
template <class Traits, bool Const>
inline constexpr bool std::ranges::enable_borrowed_range<ovant::typed::interval<Traits, Const>> = true;
