// What lies between two gaps, to walk over.
#pragma once

#include "trunk.hpp"

namespace ovant::typed {

// Two addresses and the tree: copied at the cost of three words.  auto [first, last] = interval gives its ends. Include
// <ovant/ranges.hpp> to have it counted among the std::ranges::view types.
template <class Traits, bool Const> class interval {
    using T = typename Traits::value_type;

public:
    using iterator = typed::iterator<Traits, Const>;

    interval() = default;

    iterator begin() const noexcept { return {tree_, first_}; }
    iterator end() const noexcept { return {tree_, last_}; }
    bool empty() const noexcept { return first_ == last_; }
    explicit operator bool() const noexcept { return !empty(); }
    template <std::size_t I> iterator get() const noexcept { return I == 0 ? begin() : end(); }
    // Requires: it is not empty.
    auto &front() const noexcept { return *begin(); }

private:
    template <class> friend class look_up;

    interval(const trunk<Traits> *tree, T *first, T *last) noexcept : tree_(tree), first_(first), last_(last) {}

    const trunk<Traits> *tree_ = nullptr;
    T *first_ = nullptr, *last_ = nullptr; // the first record in it, and the first one behind it
};

} // namespace ovant::typed

template <class Traits, bool Const> struct std::tuple_size<ovant::typed::interval<Traits, Const>> {
    static constexpr std::size_t value = 2;
};
template <std::size_t I, class Traits, bool Const> struct std::tuple_element<I, ovant::typed::interval<Traits, Const>> {
    using type = typename ovant::typed::interval<Traits, Const>::iterator;
};
