// Records come and go, one at a time.
//
// Every operation makes all its comparisons before its first change: if the comparator throws, the tree and all its
// records are as they were.  None allocates.  Positions of other records stay good; their paths are found again.
#pragma once

#include "summed.hpp"

namespace ovant::typed {

// Where an inserted record stands, and whether it was inserted; as with std::pair, and good for structured bindings.
template <class Iterator> struct insertion {
    Iterator first;
    bool second;
};

template <class Traits> class update : public summed<Traits> {
    using Base = summed<Traits>;

protected:
    using Base::Base, Base::extreme, Base::locate, Base::node, Base::nodes, Base::order, Base::order_of, Base::record,
        Base::root_, Base::set_root;
    using typename Base::Entry, typename Base::Node, typename Base::Side, typename Base::T, typename Base::Path,
        typename Base::Trail;

public:
    using Base::contains, Base::end;
    using typename Base::const_iterator, typename Base::iterator, typename Base::key_type, typename Base::size_type;

    // ---- In: the link of x is written, whatever it held.  Requires: x is in no tree by this link.  A tree with a
    // disposer owns x from then on.  One comparison a level, then O(1) on average; no position is invalidated.

    // Refuses a key that is there: the position of x and true, or of the record that is there and false.
    insertion<iterator> insert(T &x) noexcept(Traits::quiet_for_record) requires Traits::unique {
        require_stranger(x);
        Path path;
        Entry *const top = find_place(path.entries, order_of(x), root_);
        if (top->Node)
            return {{this, record(top->Node)}, false};
        return {hang(path, top, x), true};
    }
    // Behind, or in front of, its equals.
    iterator insert(T &x) noexcept(Traits::quiet_for_record) requires(!Traits::unique) {
        return insert_by<engine::rule::back>(x);
    }
    iterator insert_front(T &x) requires(!Traits::unique) { return insert_by<engine::rule::front>(x); }
    void insert_front(T &) requires Traits::unique OVANT_DELETED("ovant: insert_front is for multisets");
    void insert(const T &) OVANT_DELETED("ovant: a record is linked where it is: no constant, and nothing temporary");

    // Takes the place of the record with its key.  Returns that record, which is the caller's from then on, or nullptr
    // if there was none.
    T *insert_or_replace(T &x) requires Traits::unique {
        require_stranger(x);
        Path path;
        Entry *const at = find_place(path.entries, order_of(x), root_);
        if (!at->Node) {
            hang(path, at, x);
            return nullptr;
        }
        T *const old = record(at->Node);
        engine::write_links(nodes(), &x, engine::read_links(nodes(), old));
        if (at == path.entries)
            root_ = &x;
        else
            nodes().hang(engine::side_of(at[-1].Dir), at[-1].Node, &x);
        engine::uplift_all(nodes(), path.entries, at, 0);
        set_root(root_);
        return old;
    }
    void insert_or_replace(T &) requires(!Traits::unique) OVANT_DELETED("ovant: insert_or_replace is for sets");

    // The record with the key; only if there is none make() is called, and what it points to is inserted, which must
    // have the key.  {position, false} of a record that was there, {position, true} of a new one, {end(), false} if
    // make gave nullptr.
    template <class K, class Make> insertion<iterator> find_or_insert(const K &k, Make make) requires Traits::unique {
        Path path;
        Entry *const top = find_place(path.entries, order(k), root_);
        if (top->Node)
            return {{this, record(top->Node)}, false};
        T *const x = make();
        if (!x)
            return {end(), false};
        if constexpr (checks) {
            require_stranger(*x);
            require(order(k)(x).match(), "the record that was made has another key than the one asked for");
        }
        return {hang(path, top, *x), true};
    }
    template <class K, class Make>
    void find_or_insert(const K &, Make) requires(!Traits::unique) OVANT_DELETED("ovant: find_or_insert is for sets");

    // The same with a guess where x belongs: next to hint, in front of it or behind it.  If it does, two or three
    // comparisons and O(1) on average, and the position that comes back holds its path: sorted records come in one
    // after the other by hint = insert(hint, x).  If it does not, x is inserted as without a hint.  No hint changes
    // where it stands among its equals.
    iterator insert(const const_iterator &hint, T &x) noexcept(Traits::quiet_for_record) {
        iterator at(this, nullptr);
        at.copy(hint);
        push(at, x);
        return at;
    }
    // The same at a position in hand, which goes on to x, or to the record of a set that is there: no path is copied.
    // The fastest way to put sorted records in.  Returns whether x was inserted.
    bool push(iterator &at, T &x) noexcept(Traits::quiet_for_record) {
        require_own(at);
        if (Entry *const place = fitting_place(at, x)) {
            require_stranger(x);
            link_at(at, place, x);
            return true;
        }
        if constexpr (Traits::unique) {
            const auto [position, inserted] = insert(x);
            at.copy(position);
            return inserted;
        } else {
            at.copy(insert(x));
            return true;
        }
    }
    // In front of a position, at the end, at the start, without a comparison.  Requires: x belongs there.
    iterator insert_before(const const_iterator &position, T &x) {
        require_own(position);
        iterator at(this, nullptr);
        at.copy(position);
        if constexpr (checks) {
            require_stranger(x);
            require(fits_before(at, x), "the record does not belong in front of the position");
        }
        link_at(at, free_place<Side::left>(at), x);
        return at;
    }
    iterator push_back(T &x) { return insert_before(end(), x); }
    iterator push_front(T &x) { return insert_before(this->begin(), x); }

    // ---- Out: a record that goes is handed to the disposer, if the tree has one, after it has left

    // The record of a position.  Returns the next position, with its path: a walk that erases as it goes makes no
    // comparison, and costs O(1) a record on average.
    template <bool Const>
    iterator
    erase(const typed::iterator<Traits, Const> &position) noexcept(Traits::quiet_for_record &&Traits::quiet_disposal) {
        iterator at(this, nullptr);
        at.copy(position);
        this->dispose_(pop(at));
        return at;
    }
    // This very record.  Requires: it is in the tree.  Returns the next position.
    iterator erase(T &x) noexcept(Traits::quiet_for_record &&Traits::quiet_disposal) {
        return erase(iterator(this, &x));
    }

    // The same without the disposer: the record is the caller's from then on.  nullptr where there is none.
    template <bool Const>
    T *extract(const typed::iterator<Traits, Const> &position) noexcept(Traits::quiet_for_record) {
        iterator at(this, nullptr);
        at.copy(position);
        return pop(at);
    }
    T *extract(T &x) noexcept(Traits::quiet_for_record) { return extract(iterator(this, &x)); }
    template <class K> T *extract(const K &k) requires(!std::is_convertible_v<const K &, const_iterator> && !gap<K>) {
        return extract_match(k);
    }
    // The record of a position, which goes on to the next one: the fastest way to empty a tree from a position on.
    T *pop(iterator &at) noexcept(Traits::quiet_for_record) {
        require_own(at);
        require(at.at_, "there is no record at the end of a tree");
        Entry *const top = at.path();
        T *const x = record(top->Node);
        const auto removed = engine::remove_at(nodes(), at.path_, top);
        set_root(removed.root);
        if (removed.next)
            at.stand(removed.next);
        else
            at.stand_behind(removed.last);
        return x;
    }
    // The first, the last record.  nullptr from an empty tree.  At most H steps, no comparison.
    T *pop_front() noexcept { return pop<Side::left>(); }
    T *pop_back() noexcept { return pop<Side::right>(); }

protected:
    template <bool C> void require_own([[maybe_unused]] const typed::iterator<Traits, C> &position) const {
        require(position.tree_ == this, "the position belongs to another tree");
    }
    // Among the first hundred of its equals, so that an insertion stays at O(H).
    void require_stranger([[maybe_unused]] const T &x) const {
        if constexpr (checks) {
            Path path;
            require(!locate(path.entries, x, 100), "the record is in the tree already");
        }
    }

    // Down to a match or to the free position.  A predicate is asked once a level on the way to the gap, and then
    // whether the record behind it is a match.
    template <class Order> static Entry *find_place(Entry *path, const Order &ask, Node root) {
        if constexpr (is_predicate_answer<decltype(ask(root))>) {
            Entry *const top = engine::descend<engine::rule::front>(nodes(), root, ask, Trail{path}).top;
            Entry *const candidate = engine::last_turn<Side::left>(path, top);
            return candidate && !ask(candidate->Node).left() ? candidate : top;
        } else {
            return engine::descend<engine::rule::key>(nodes(), root, ask, Trail{path}).top;
        }
    }
    // x comes in at a free position, and the iterator that has the path there stands at it.
    void link_at(iterator &at, Entry *place, T &x) {
        set_root(engine::insert_at(nodes(), at.path_, place, &x));
        at.stand(place);
    }

private:
    iterator hang(Path &path, Entry *top, T &x) {
        top->Node = engine::write_links(nodes(), &x, {nullptr, nullptr, 0});
        engine::grow(nodes(), path.entries, top);
        set_root(path.entries->Node);
        return {this, &x};
    }
    template <engine::Rule R> iterator insert_by(T &x) {
        require_stranger(x);
        Path path;
        return hang(path, engine::descend<R>(nodes(), root_, order_of(x), Trail{path.entries}).top, x);
    }
    // The free position next to a position, on its side S: at the end the one behind the last record.
    template <Side S> Entry *free_place(iterator &at) {
        Entry *const top = at.path();
        if (!top)
            return at.path_;
        return at.at_ ? engine::beside<S>(nodes(), top) : engine::beside<Side::right>(nodes(), top);
    }
    // The free position next to a position where x belongs; 0 if it does not.
    Entry *fitting_place(iterator &at, const T &x) {
        Entry *const top = at.path();
        if (!top)
            return free_place<Side::left>(at);
        const auto ask = order_of(x);
        const auto answer = ask(top->Node);
        if (at.at_ && goes_before(answer)) {
            const Entry *const other = neighbour<Side::left>(at.path_, top);
            return !other || goes_behind(ask(other->Node)) ? engine::beside<Side::left>(nodes(), top) : nullptr;
        }
        if (!goes_behind(answer))
            return nullptr;
        const Entry *const other = at.at_ ? neighbour<Side::right>(at.path_, top) : nullptr;
        return !other || goes_before(ask(other->Node)) ? engine::beside<Side::right>(nodes(), top) : nullptr;
    }
    // Whether x may stand in front of a position.
    bool fits_before(iterator &at, const T &x) {
        const auto ask = order_of(x);
        Entry *const top = at.path(), *const before = at.at_ ? neighbour<Side::left>(at.path_, top) : top;
        if (before && !goes_behind(ask(before->Node)))
            return false;
        return !at.at_ || (Traits::unique ? ask(top->Node).left() : !ask(top->Node).right());
    }
    // Where equals may stand, the place is the one behind them.
    template <class Answer> static bool goes_before(const Answer &answer) { return answer.left(); }
    template <class Answer> static bool goes_behind(const Answer &answer) {
        return Traits::unique ? answer.right() : !answer.left();
    }
    // The neighbour's entry on side S if it is an ancestor, or the node alone in an entry above the path.
    template <Side S> Entry *neighbour(Entry *path, Entry *top) {
        if (const Node near = nodes().template child<S>(top->Node)) {
            top[1].Node = engine::end_of_spine<!S>(nodes(), near);
            return top + 1;
        }
        return engine::last_turn<!S>(path, top);
    }

    template <class K> T *extract_match(const K &k) {
        Path path;
        Entry *const top = find_place(path.entries, order(k), root_);
        const Node x = top->Node;
        if (x)
            set_root(engine::remove(nodes(), path.entries, top));
        return record(x);
    }
    template <Side S> T *pop() noexcept {
        Path work;
        engine::Change change;
        Node root = root_;
        const Node x = engine::cut<S>(nodes(), work.entries, &root, &change, engine::nothing_stays);
        set_root(root);
        return record(x);
    }
};

} // namespace ovant::typed
