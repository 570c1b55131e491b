// Keys: where they lie in a record, and how they compare.
#pragma once

#include "../engine/order.hpp"

#include <compare>
#include <type_traits>

namespace ovant {

// The record is its own key.
struct itself {
    template <class T> constexpr const T &operator()(const T &record) const noexcept { return record; }
};

// Several members (or functions of the record) as one key, compared in turn.
template <auto... Parts> struct keys_of {};
template <auto... Parts> inline constexpr keys_of<Parts...> keys{};

// What is sought where the key is made of several parts: the values of the first few.  Records agree with it that agree
// in these.
template <class... Values> struct key_values {};
template <class First, class... Rest> struct key_values<First, Rest...> {
    First first;
    [[no_unique_address]] key_values<Rest...> rest;
};
template <class... Values> constexpr key_values<Values...> key(Values... values) {
    if constexpr (sizeof...(Values) == 0)
        return {};
    else
        return [](auto first, auto... rest) -> key_values<Values...> {
            return {first, ovant::key(rest...)};
        }(values...);
}

namespace typed {

template <class K> inline constexpr bool is_key_values = false;
template <class... Values> inline constexpr bool is_key_values<key_values<Values...>> = true;

// ---- From a record to its key

template <auto Key, class T>
constexpr decltype(auto) key_of(const T &record) noexcept(noexcept(Key(record))) requires requires {
    Key(record);
}
{ return Key(record); }
template <auto Key, class T>
constexpr const auto &key_of(const T &record) noexcept requires std::is_member_object_pointer_v<decltype(Key)> {
    return record.*Key;
}
template <auto Key, class T>
constexpr decltype(auto)
key_of(const T &record) noexcept(noexcept((record.*Key)())) requires std::is_member_function_pointer_v<decltype(Key)> {
    return (record.*Key)();
}

// ---- Two keys compared.  A comparator that answers with a bool is a predicate: whether the first stands before the
// second.  Any other answer is held against 0.

template <class Compare, class A, class B>
using answer_of = std::remove_cvref_t<std::invoke_result_t<const Compare &, const A &, const B &>>;

template <class Compare, class A, class B>
concept compares = std::is_invocable_v<const Compare &, const A &, const B &>;
template <class Compare, class A, class B>
concept compares_as_predicate = compares<Compare, A, B> && std::is_same_v < answer_of<Compare, A, B>,
bool > ;

// Values that the machine compares, by the comparator that everybody has: what is sought is copied, and answered
// without a call.
template <class K>
concept machine_value = std::is_arithmetic_v<K> || std::is_enum_v<K> || std::is_pointer_v<K>;
template <class Compare, class K>
concept compared_in_place = machine_value<K> && std::is_same_v<Compare, std::compare_three_way>;

// The type in which what is sought, an A, goes to a comparator beside a key B: the key's, where the machine compares
// it; its own, if that is taken; a pointer's, for an array such as a literal that is taken as one; or else the key's.
template <class Compare, class A, class B>
concept taken = compares<Compare, A, B> || compares<Compare, B, A>;
template <class Compare, class A, class B>
concept taken_as_pointer = std::is_array_v<A> && !taken<Compare, A, B> && taken<Compare, std::decay_t<const A>, B>;
template <class Compare, class A, class B>
concept converted = std::is_convertible_v<const A &, B> &&(compared_in_place<Compare, B> || !taken<Compare, A, B>);
template <class Compare, class A, class B>
using sought_as = std::conditional_t<taken_as_pointer<Compare, A, B>, std::decay_t<const A>,
                                     std::conditional_t<converted<Compare, A, B>, B, const A &>>;

struct direction {
    int dir;
    bool match() const noexcept { return dir == 0; }
    bool left() const noexcept { return dir < 0; }
    bool right() const noexcept { return dir > 0; }
};

// An unordered pair leads to the right.
template <class Ordering> struct three_way_answer {
    Ordering ordering;
    bool match() const noexcept { return ordering == 0; }
    bool left() const noexcept { return ordering < 0; }
    bool right() const noexcept { return !(ordering <= 0); }
};

// Asked later, so a key that was computed for it is kept.
template <class Compare, class A, class B> struct predicate_answer {
    const Compare &before;
    const A &sought;
    B key; // a reference to one that lies in a record
    bool left() const { return before(sought, key); }
    bool right() const { return before(key, sought); }
    bool match() const { return !left() && !right(); }
};

template <class Answer> inline constexpr bool is_predicate_answer = false;
template <class Compare, class A, class B>
inline constexpr bool is_predicate_answer<predicate_answer<Compare, A, B>> = true;

// The answer at a key to the question where something sought lies.
template <class Compare, class A, class B> constexpr auto ask(const Compare &compare, const A &sought, B &&key) {
    if constexpr (std::is_same_v<A, std::remove_cvref_t<B>> && compared_in_place<Compare, A>)
        return engine::ValueAnswer<A, engine::Direction::smallest_first>{key, sought};
    else if constexpr (compares_as_predicate<Compare, A, B>)
        return predicate_answer<Compare, A, B>{compare, sought, static_cast<B &&>(key)};
    else if constexpr (compares<Compare, A, B>)
        return three_way_answer<answer_of<Compare, A, B>>{compare(sought, key)};
    else {
        static_assert(compares<Compare, B, A>, "ovant: the comparator does not take what is sought beside a key");
        const auto ordering = 0 <=> compare(key, sought);
        return three_way_answer<std::remove_const_t<decltype(ordering)>>{ordering};
    }
}
template <class Compare, class A, class B> int direction_of(const Compare &compare, const A &sought, const B &key) {
    using As = sought_as<Compare, A, B>;
    if constexpr (!std::is_same_v<A, std::remove_cvref_t<As>>)
        return direction_of(compare, static_cast<As>(sought), key);
    else {
        const auto answer = ask(compare, sought, key);
        return answer.left() ? -1 : answer.right() ? +1 : 0;
    }
}

// Whether none of that can throw.
template <class Compare, class A, class B> constexpr bool asks_quietly() {
    using As = sought_as<Compare, A, B>;
    if constexpr (!std::is_same_v<A, std::remove_cvref_t<As>>)
        return std::is_nothrow_convertible_v<const A &, As> && asks_quietly<Compare, std::remove_cvref_t<As>, B>();
    else if constexpr (compares_as_predicate<Compare, A, B>)
        return std::is_nothrow_invocable_v<const Compare &, const A &, const B &> &&
               std::is_nothrow_invocable_v<const Compare &, const B &, const A &>;
    else if constexpr (compares<Compare, A, B>)
        return std::is_nothrow_invocable_v<const Compare &, const A &, const B &>;
    else
        return std::is_nothrow_invocable_v<const Compare &, const B &, const A &>;
}

// ---- The order that a descent is given.  Sought is a value or a const reference.

template <class Traits, class Sought> class key_order {
    using T = typename Traits::value_type;

public:
    key_order(const typename Traits::key_compare &compare, Sought sought)
        : compare_(compare), sought_(static_cast<Sought &&>(sought)) {}

    auto operator()(engine::Node n) const { return at(*static_cast<const T *>(n), Traits::key); }

private:
    template <class Key> auto at(const T &record, const Key &) const {
        using Sought_ = std::remove_cvref_t<Sought>;
        return ask<typename Traits::key_compare, Sought_>(compare_, sought_, key_of<Traits::key>(record));
    }
    // Part by part: all that are given, or all of another record.
    template <auto... Parts> direction at(const T &record, const keys_of<Parts...> &) const {
        if constexpr (std::is_same_v<std::remove_cvref_t<Sought>, T>) {
            int dir = 0;
            static_cast<void>(((dir = direction_of(compare_, key_of<Parts>(sought_), key_of<Parts>(record))) || ...));
            return {dir};
        } else {
            return {parts<Parts...>(record, sought_)};
        }
    }
    template <auto... Parts> int parts(const T &, const key_values<> &) const { return 0; }
    template <auto Part, auto... Parts, class First, class... Rest>
    int parts(const T &record, const key_values<First, Rest...> &sought) const {
        const int dir = direction_of(compare_, sought.first, key_of<Part>(record));
        return dir ? dir : parts<Parts...>(record, sought.rest);
    }

    const typename Traits::key_compare &compare_;
    Sought sought_;
};

} // namespace typed
} // namespace ovant
