// What the arguments of a tree mean, and whether they fit together.
#pragma once

#include "../engine/depth.hpp"
#include "../engine/path.hpp"
#include "gaps.hpp"
#include "link.hpp"

namespace ovant {

// The disposer of trees that own nothing.
struct unowned {
    template <class T> constexpr void operator()(T *) const noexcept {}
};

namespace typed {

// The class that a member belongs to; void for what is no member, or a key of several parts: of its first one.
template <class M> struct class_of { using type = void; };
template <class C, class M> struct class_of<M C::*> { using type = C; };
template <auto First, auto... Parts> struct class_of<keys_of<First, Parts...>> : class_of<decltype(First)> {};

template <class M> inline constexpr bool is_link_member = false;
template <class C> inline constexpr bool is_link_member<link C::*> = true;
template <class C, class Summary> inline constexpr bool is_link_member<summary_link<Summary> C::*> = true;

// What a link tells of the records below it, void for nothing; and the accessor to such links.
template <class T, auto Link, class M = std::remove_cv_t<decltype(Link)>> struct summary_of {
    using type = void;
    using access = at_member<T, Link>;
};
template <class T, auto Link, class C, class Summary> struct summary_of<T, Link, summary_link<Summary> C::*> {
    using type = Summary;
    using access = summed_at_member<T, Link, Summary>;
    static_assert(
        requires(const Summary &side, const T &x) {
            requires std::is_same_v<decltype(Summary::of(side, x, side)), Summary>;
        },
        "ovant: a summary has a static function of(left, record, right) that gives the summary of all three");
};

// The record is the class of the link or that of the key, whichever is derived from the other: a link may stand in a
// base of the record, and so may the key.
template <class OfLink, class OfKey> struct record {
    static constexpr bool related = std::is_base_of_v<OfLink, OfKey> || std::is_base_of_v<OfKey, OfLink>;
    using type = std::conditional_t<std::is_base_of_v<OfLink, OfKey>, OfKey, OfLink>;
};
template <class OfLink> struct record<OfLink, void> {
    static constexpr bool related = true;
    using type = OfLink;
};

// What kind of key the records have, and whether the comparator takes two of them.
template <auto Key, class T, class Compare, class = void, class = std::remove_cv_t<decltype(Key)>> struct key_facts {
    static constexpr bool exists = false, comparable = true, composite = false;
    using type = void;
};
template <auto Key, class T, class Compare, class K>
struct key_facts<Key, T, Compare, std::void_t<decltype(key_of<Key>(std::declval<const T &>()))>, K> {
    using type = std::remove_cvref_t<decltype(key_of<Key>(std::declval<const T &>()))>;
    static constexpr bool exists = true, comparable = compares<Compare, type, type>, composite = false;
};
template <auto Key, class T, class Compare, auto... Parts> struct key_facts<Key, T, Compare, void, keys_of<Parts...>> {
    using type = key_values<typename key_facts<Parts, T, Compare>::type...>;
    static constexpr bool composite = true;
    static constexpr bool exists = (key_facts<Parts, T, Compare>::exists && ...);
    static constexpr bool comparable = (key_facts<Parts, T, Compare>::comparable && ...);
};

// Whether the key of a record is found, and compared with something sought, without a throw.
template <class T, class Compare, auto Key, class = std::remove_cv_t<decltype(Key)>> struct quiet {
    template <class K>
    static constexpr bool with = noexcept(key_of<Key>(std::declval<const T &>())) &&
                                 asks_quietly<Compare, K, typename key_facts<Key, T, Compare>::type>();
    static constexpr bool itself = with<typename key_facts<Key, T, Compare>::type>;
};
template <class T, class Compare, auto Key, auto First, auto... Rest>
struct quiet<T, Compare, Key, keys_of<First, Rest...>> {
    static constexpr bool itself = quiet<T, Compare, First>::itself && (quiet<T, Compare, Rest>::itself && ...);
    template <class K> struct part { static constexpr bool value = quiet<T, Compare, First>::template with<K>; };
    template <class V, class... Values> struct part<key_values<V, Values...>> {
        static constexpr bool value = quiet<T, Compare, First>::template with<V> && [] {
            if constexpr (sizeof...(Values) == 0)
                return true;
            else
                return quiet<T, Compare, keys<Rest...>>::template with<key_values<Values...>>;
        }();
    };
    template <class K> static constexpr bool with = part<K>::value;
};

template <auto Link, auto Key>
using record_of =
    record<typename class_of<decltype(Link)>::type, typename class_of<std::remove_cv_t<decltype(Key)>>::type>;

// Record is record_of<Link, Key>, named again: g++ takes a class for local to a file by its type arguments, not by the
// class of a member, and would have two records of one name in unnamed namespaces share one code.
template <class Record, bool Unique, auto Link, auto Key, class Compare, class Dispose> struct traits {
    static_assert(
        is_link_member<decltype(Link)>,
        "ovant: the first argument is a pointer to a member of type ovant::link (or of one with a summary), as "
        "in &Event::link");
    static_assert(Record::related, "ovant: the link and the key are members of unrelated classes");
    using value_type = typename Record::type;
    using facts = key_facts<Key, value_type, Compare>;
    static_assert(facts::exists, "ovant: the key is a member of the record, a const member function without arguments, "
                                 "a function that takes a record, or ovant::keys of such");
    static_assert(facts::comparable, "ovant: the comparator does not take two keys; std::compare_three_way, which "
                                     "stands for none given, wants keys that have <=> and ==");

    using key_type = typename facts::type;
    using key_compare = Compare;
    using disposer_type = Dispose;
    static constexpr bool unique = Unique;
    static constexpr auto key = Key;
    static constexpr bool composite = facts::composite; // a key of several parts

    // Whether a search for K cannot throw, nor one for a record's own key, nor one for a gap.
    template <class K> static constexpr bool quiet_for = quiet<value_type, Compare, Key>::template with<K>;
    static constexpr bool quiet_for_record = quiet<value_type, Compare, Key>::itself;
    static constexpr bool quiet_disposal = std::is_nothrow_invocable_v<const Dispose &, value_type *>;

    using summary = typename summary_of<value_type, Link>::type;
    static constexpr bool summarises = !std::is_void_v<summary>;
    static constexpr bool counted = std::is_base_of_v<record_count, summary>;

    using nodes = engine::Links<typename summary_of<value_type, Link>::access>;
    struct entry {
        engine::Node Node;
        int Dir;
    };
    static constexpr int height = engine::greatest_height(sizeof(value_type));
};

} // namespace typed
} // namespace ovant
