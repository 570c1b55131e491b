// The state of a tree, and what every operation of it stands on.
#pragma once

#include "../engine/descend.hpp"
#include "../engine/sweep.hpp"
#include "iterator.hpp"

namespace ovant::typed {

template <class V> void exchange(V &a, V &b) noexcept {
    V c(static_cast<V &&>(a));
    a = static_cast<V &&>(b);
    b = static_cast<V &&>(c);
}

// Ranges of the host's, arrays among them.
template <class Range> auto begin_of(Range &range) { return range.begin(); }
template <class Range> auto end_of(Range &range) { return range.end(); }
template <class X, std::size_t N> X *begin_of(X (&array)[N]) { return array; }
template <class X, std::size_t N> X *end_of(X (&array)[N]) { return array + N; }

template <class Traits> class trunk {
protected:
    using T = typename Traits::value_type;
    using Node = engine::Node;
    using Side = engine::Side;
    using Entry = typename Traits::entry;
    using Nodes = typename Traits::nodes;
    using Trail = engine::PathTrail<Entry>;
    using Compare = typename Traits::key_compare;
    using Dispose = typename Traits::disposer_type;
    // The stack of a function in progress: written before it is read.
    struct Path {
        Entry entries[Traits::height + 2];
        Path() noexcept {} // NOLINT
    };

    trunk() noexcept(noexcept(Compare(), Dispose())) requires(
        std::is_default_constructible_v<Compare> &&std::is_default_constructible_v<Dispose>)
        : compare_(), dispose_() {}
    trunk(const Compare &compare, const Dispose &dispose) : compare_(compare), dispose_(dispose) {}
    trunk(const trunk &) = delete;
    trunk &operator=(const trunk &) = delete;
    trunk(trunk &&other) noexcept
        : root_(other.root_), compare_(static_cast<Compare &&>(other.compare_)),
          dispose_(static_cast<Dispose &&>(other.dispose_)) {
        other.set_root(nullptr);
    }
    ~trunk() { sweep_away(dispose_); }

    static Nodes nodes() noexcept { return Nodes(); }
    static T *record(Node n) noexcept { return static_cast<T *>(n); }
    static Node node(const T &x) noexcept { return const_cast<T *>(&x); }
    static Node node(const T *x) noexcept { return const_cast<T *>(x); }

    void set_root(Node root) noexcept {
        root_ = root;
        ++changes_;
    }

    // Hands every record to the disposer; the tree forgets them first.
    template <class D> void sweep_away(const D &dispose) {
        const Node root = root_;
        set_root(nullptr);
        dispose_of(root, dispose);
    }
    template <class D> static void dispose_of(Node root, const D &dispose) {
        if constexpr (!std::is_same_v<D, unowned>) {
            Path work;
            engine::sweep(nodes(), work.entries, work.entries + Traits::height + 1, root, [&](Node n) {
                dispose(record(n));
                return true;
            });
        }
    }

    // ---- Asking the way

    template <class K> auto order(const K &sought) const {
        if constexpr (!Traits::composite) {
            using As = sought_as<Compare, K, typename Traits::key_type>;
            return key_order<Traits, As>(compare_, static_cast<As>(sought));
        } else if constexpr (is_key_values<K>)
            return key_order<Traits, const K &>(compare_, sought);
        else
            return key_order<Traits, key_values<const K &>>(compare_, {sought, {}}); // the first part alone
    }
    // The same for the key of a record.
    auto order_of(const T &x) const {
        if constexpr (Traits::composite)
            return key_order<Traits, const T &>(compare_, x);
        else if constexpr (compared_in_place<Compare, typename Traits::key_type>)
            return key_order<Traits, typename Traits::key_type>(compare_, key_of<Traits::key>(x));
        else
            return key_order<Traits, decltype(key_of<Traits::key>(x))>(compare_, key_of<Traits::key>(x));
    }

    template <class K, engine::Edge E> auto in_front(const key_gap<K, E> &gap) const {
        return engine::KeyGap<E, decltype(order(gap.key))>(order(gap.key));
    }
    template <class Pred> static auto in_front(const partition_gap<Pred> &gap) {
        return [&gap](Node n) -> bool { return gap.in_front(*static_cast<const T *>(n)); };
    }
    static auto in_front(start_gap) {
        return [](Node) { return false; };
    }
    static auto in_front(finish_gap) {
        return [](Node) { return true; };
    }

    // The first record behind a gap, 0 if there is none.
    template <class InFront> Node behind(const InFront &gap) const {
        return engine::descend<engine::rule::succ>(nodes(), root_, engine::ToGap(gap), engine::NodeTrail{}).marked;
    }

    // The path to the first record behind a gap, 0 if there is none.
    template <class InFront> Entry *path_behind(Entry *path, const InFront &gap) const {
        Entry *const free = engine::descend<engine::rule::key>(nodes(), root_, engine::ToGap(gap), Trail{path}).top;
        Entry *const behind = engine::last_turn<Side::left>(path, free);
        return behind ? engine::here(behind) : nullptr;
    }
    // The path to this very record, along its run of equals or the first few of them; 0 if it is not there.
    Entry *locate(Entry *path, const T &x, std::size_t most = ~std::size_t{0}) const {
        const auto order = order_of(x);
        const engine::KeyGap<engine::Edge::front, decltype(order)> in_front(order);
        for (Entry *at = path_behind(path, in_front); at; at = engine::step<Side::right>(nodes(), path, at)) {
            if (at->Node == node(x))
                return at;
            if (Traits::unique || --most == 0 || !order(at->Node).match())
                break;
        }
        return nullptr;
    }
    // The path to the last record on a side; 0 in an empty tree.
    template <Side S> Entry *extreme(Entry *path) const {
        return root_ ? engine::here(engine::push_spine<S>(nodes(), path, root_)) : nullptr;
    }
    template <bool Const, Side S = Side::left, bool Backward = false> iterator<Traits, Const, Backward> first() const {
        iterator<Traits, Const, Backward> it(this, nullptr);
        if (Entry *const top = extreme<S>(it.path_))
            it.stand(top);
        return it;
    }

    std::size_t records() const noexcept { return engine::count(nodes(), root_); }
    std::ptrdiff_t rank_of(const T &x) const {
        Path path;
        const Entry *const top = locate(path.entries, x);
        require(top, "the record of a position is not in its tree");
        return static_cast<std::ptrdiff_t>(engine::rank(nodes(), path.entries, top));
    }

    Node root_ = nullptr;
    std::size_t changes_ = 1; // so that a position knows whether its path still holds
    [[no_unique_address]] Compare compare_;
    [[no_unique_address]] Dispose dispose_;

    template <class, bool, bool> friend class iterator;
};

} // namespace ovant::typed
