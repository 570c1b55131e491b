// What a tree is asked: nothing here changes it or writes anything but the caller's own positions, so that readers in
// several threads may search and walk side by side while nobody writes.
//
// H is the height of the tree, at most about 1.44 log2(records).  K is whatever the comparator takes beside a key.  An
// operation throws what the comparator throws, and nothing else.
#pragma once

#include "interval.hpp"

namespace ovant::typed {

template <class Traits> class look_up : public trunk<Traits> {
    using Base = trunk<Traits>;

protected:
    using Base::Base, Base::behind, Base::extreme, Base::in_front, Base::locate, Base::nodes, Base::order, Base::record,
        Base::root_;
    using typename Base::Entry, typename Base::Node, typename Base::Side, typename Base::T;

public:
    using key_type = typename Traits::key_type;
    using value_type = T;
    using reference = T &;
    using const_reference = const T &;
    using pointer = T *;
    using const_pointer = const T *;
    using size_type = std::size_t;
    using difference_type = std::ptrdiff_t;
    using key_compare = typename Traits::key_compare;
    using disposer_type = typename Traits::disposer_type;
    using iterator = typed::iterator<Traits, false>;
    using const_iterator = typed::iterator<Traits, true>;
    using reverse_iterator = typed::iterator<Traits, false, true>;
    using const_reverse_iterator = typed::iterator<Traits, true, true>;

    template <class K> static constexpr bool quiet = Traits::template quiet_for<K>; // no throw

    // ---- Ends

    bool empty() const noexcept { return !root_; }

    // The first record, and the end behind the last one.  begin: H steps down, and the path is there for the walk.
    iterator begin() noexcept { return Base::template first<false>(); }
    const_iterator begin() const noexcept { return Base::template first<true>(); }
    const_iterator cbegin() const noexcept { return begin(); }
    iterator end() noexcept { return {this, nullptr}; }
    const_iterator end() const noexcept { return {this, nullptr}; }
    const_iterator cend() const noexcept { return end(); }

    // The same from the last record backward.  These positions go back without a detour: std::make_reverse_iterator of
    // an iterator would copy a path each time that it is looked at.
    reverse_iterator rbegin() noexcept { return Base::template first<false, Side::right, true>(); }
    const_reverse_iterator rbegin() const noexcept { return Base::template first<true, Side::right, true>(); }
    const_reverse_iterator crbegin() const noexcept { return rbegin(); }
    reverse_iterator rend() noexcept { return {this, nullptr}; }
    const_reverse_iterator rend() const noexcept { return {this, nullptr}; }
    const_reverse_iterator crend() const noexcept { return rend(); }

    // The first and the last record.  Requires: the tree is not empty.  H steps, no comparison.
    T &front() noexcept { return end_record<Side::left>(); }
    const T &front() const noexcept { return end_record<Side::left>(); }
    T &back() noexcept { return end_record<Side::right>(); }
    const T &back() const noexcept { return end_record<Side::right>(); }

    // ---- By key: at most one comparison a level, two where the comparator is a predicate and a match is asked for

    // A record with the key, whichever of its equals; end() if there is none.
    template <class K> iterator find(const K &k) noexcept(quiet<K>) { return {this, match(k)}; }
    template <class K> const_iterator find(const K &k) const noexcept(quiet<K>) { return {this, match(k)}; }
    template <class K> bool contains(const K &k) const noexcept(quiet<K>) { return match(k) != nullptr; }

    // The first record that is not less than k; the first that is greater; both.  end() if there is none.
    template <class K> iterator lower_bound(const K &k) noexcept(quiet<K>) { return {this, first_behind(before(k))}; }
    template <class K> const_iterator lower_bound(const K &k) const noexcept(quiet<K>) {
        return {this, first_behind(before(k))};
    }
    template <class K> iterator upper_bound(const K &k) noexcept(quiet<K>) { return {this, first_behind(after(k))}; }
    template <class K> const_iterator upper_bound(const K &k) const noexcept(quiet<K>) {
        return {this, first_behind(after(k))};
    }
    template <class K> interval<Traits, false> equal_range(const K &k) { return between(before(k), after(k)); }
    template <class K> interval<Traits, true> equal_range(const K &k) const { return between(before(k), after(k)); }

    // ---- By gap

    // The first record behind a gap; end() if there is none.  One comparison, or call of the predicate, a level.
    template <gap G> iterator first_after(const G &gap) { return {this, first_behind(gap)}; }
    template <gap G> const_iterator first_after(const G &gap) const { return {this, first_behind(gap)}; }

    // What lies between two gaps, as a view that holds no more than its two ends: it is good as long as the record
    // behind the last one, and the first one, are in the tree.  Two searches.
    template <gap First, gap Last> interval<Traits, false> between(const First &first, const Last &last) {
        return bounds<false>(first, last);
    }
    template <gap First, gap Last> interval<Traits, true> between(const First &first, const Last &last) const {
        return bounds<true>(first, last);
    }

    // How many records there are between two gaps, or with a key: one step for each of them; in a counted tree a search
    // for each gap.
    template <gap First, gap Last> size_type count(const First &first, const Last &last) const {
        if constexpr (Traits::counted) {
            const size_type to_first = rank(first), to_last = rank(last);
            return to_first < to_last ? to_last - to_first : 0;
        } else {
            size_type n = 0;
            const auto range = between(first, last);
            const auto end = range.end();
            for (auto it = range.begin(); it != end; ++it)
                ++n;
            return n;
        }
    }
    template <class K> size_type count(const K &k) const {
        if constexpr (Traits::unique && !Traits::composite)
            return contains(k);
        else
            return count(before(k), after(k));
    }

    // ---- By record: found by its key and, among equals, along its run, at a comparison each

    // Whether this very record is in the tree.  Where the record is its own key, contains(x) asks for an equal one.
    bool holds(const T &x) const noexcept(Traits::quiet_for_record) {
        typename Base::Path path;
        return locate(path.entries, x);
    }
    template <class X> bool contains(const X &x) const requires(std::is_same_v<X, T> && !std::is_same_v<X, key_type>) {
        return holds(x);
    }

    // Its position.  Requires: it is in the tree.  O(1): the path comes with the first step.
    iterator iterator_to(T &x) noexcept { return {this, &x}; }
    const_iterator iterator_to(const T &x) const noexcept { return {this, static_cast<T *>(Base::node(x))}; }

    // ---- All of them

    // Calls f with each record in order.  f must not change the tree.  Faster than a walk by positions, as nothing is
    // kept but the records that are still open.
    template <class F> void for_each(F f) {
        visit([&](T &x) { f(x); });
    }
    template <class F> void for_each(F f) const {
        visit([&](const T &x) { f(x); });
    }

    key_compare key_comp() const { return this->compare_; }
    const disposer_type &disposer() const noexcept { return this->dispose_; }

protected:
    // A predicate is asked once a level on the way to the first candidate, and then whether that is a match.
    template <class K> T *match(const K &k) const {
        const auto ask = order(k);
        using Answer = decltype(ask(root_));
        if constexpr (is_predicate_answer<Answer>) {
            const Node at =
                engine::descend<engine::rule::greater_equal>(nodes(), root_, ask, engine::NodeTrail{}).marked;
            return at && !ask(at).left() ? record(at) : nullptr;
        } else {
            return record(engine::descend<engine::rule::key>(nodes(), root_, ask, engine::NodeTrail{}).at);
        }
    }
    template <class G> T *first_behind(const G &gap) const { return record(behind(in_front(gap))); }
    template <class G> size_type rank(const G &gap) const {
        if constexpr (std::is_same_v<G, start_gap>)
            return 0;
        else if constexpr (std::is_same_v<G, finish_gap>)
            return this->records();
        else
            return engine::rank(nodes(), root_, in_front(gap));
    }

private:
    template <bool Const, class First, class Last>
    interval<Traits, Const> bounds(const First &first, const Last &last) const {
        const auto in_front_of_last = in_front(last);
        T *const begin = first_behind(first);
        if (!begin || !in_front_of_last(begin))
            return {this, nullptr, nullptr};
        return {this, begin, record(behind(in_front_of_last))};
    }
    template <Side S> T &end_record() const noexcept {
        require(root_, "there is no record in an empty tree");
        return *record(engine::end_of_spine<S>(nodes(), root_));
    }
    template <class F> void visit(F f) const {
        Node open[Traits::height + 1]; // the ancestors that the way has left to the left
        int depth = 0;
        for (Node n = root_; n || depth;) {
            for (; n; n = nodes().template child<Side::left>(n))
                open[depth++] = n;
            n = open[--depth];
            const Node right = nodes().template child<Side::right>(n);
            f(*record(n));
            n = right;
        }
    }
};

} // namespace ovant::typed
