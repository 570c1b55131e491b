// The tree itself: moved, cut, joined.
#pragma once

#include "../engine/algebra.hpp"
#include "../engine/between.hpp"
#include "whole.hpp"

namespace ovant {

// Which of two records with one key stays where two trees become one.
struct first_wins {
    template <class T> T &operator()(T &first, T &) const noexcept { return first; }
};
struct second_wins {
    template <class T> T &operator()(T &, T &second) const noexcept { return second; }
};

// An ordered container of records that carry their own links; ovant.hpp says more.
template <class Record, bool Unique, auto Link, auto Key, class Compare, class Dispose>
class ordered : public typed::whole<typed::traits<Record, Unique, Link, Key, Compare, Dispose>> {
    using Traits = typed::traits<Record, Unique, Link, Key, Compare, Dispose>;
    using Base = typed::whole<Traits>;
    using Base::in_front, Base::nodes, Base::record, Base::root_, Base::set_root;
    using typename Base::Entry, typename Base::Node, typename Base::Side, typename Base::T, typename Base::Path;

public:
    using Base::erase, Base::extract, Base::end;
    using typename Base::const_iterator, typename Base::iterator, typename Base::size_type;

    // An empty tree.
    ordered() = default;
    explicit ordered(const Compare &compare, const Dispose &dispose = Dispose()) : Base(compare, dispose) {}

    // Trees are moved, not copied: records belong to one tree.  The other one is empty afterwards.  What was in this
    // one goes to its disposer.  Positions of both end.
    ordered(ordered &&) noexcept = default;
    ordered &operator=(ordered &&other) noexcept {
        ordered moved(static_cast<ordered &&>(other));
        swap(moved);
        return *this;
    }
    void swap(ordered &other) noexcept {
        typed::exchange(this->compare_, other.compare_);
        typed::exchange(this->dispose_, other.dispose_);
        const Node root = root_;
        set_root(other.root_);
        other.set_root(root);
    }
    friend void swap(ordered &a, ordered &b) noexcept { a.swap(b); }

    // ---- Cut: O(H), at most one comparison a level for each gap, all of them before the first change.  Positions of
    // records that leave end, the others stay good.

    // What lies between two gaps leaves as a tree of its own, with copies of comparator and disposer.
    template <typed::gap First, typed::gap Last> ordered extract(const First &first, const Last &last) {
        constexpr bool from_start = std::is_same_v<First, start_gap>, to_finish = std::is_same_v<Last, finish_gap>;
        ordered result = sibling();
        if constexpr (from_start && to_finish) {
            part(result, nullptr, root_);
        } else if constexpr (from_start || to_finish) {
            Path path;
            Entry *const top = to_gap(path, in_front_of<from_start>(first, last));
            const engine::Halves halves = engine::split(nodes(), path.entries, top == path.entries ? top : top - 1);
            if constexpr (from_start)
                part(result, halves.after.root, halves.before.root);
            else
                part(result, halves.before.root, halves.after.root);
        } else {
            Path from, to;
            Entry *const begins = to_gap(from, in_front(first)), *const ends = to_gap(to, in_front(last));
            cut_out(result, from.entries, begins, to.entries, ends);
        }
        return result;
    }
    // The same for two positions, without a comparison where they have their paths.  Requires: last can be reached from
    // first.
    ordered extract(const_iterator first, const_iterator last) {
        this->require_own(first);
        this->require_own(last);
        ordered result = sibling();
        if (first == last)
            return result;
        Entry *const begins = engine::beside<Side::left>(nodes(), first.path());
        Entry *const at = last.path();
        Entry *const ends =
            last == end() ? engine::beside<Side::right>(nodes(), at) : engine::beside<Side::left>(nodes(), at);
        cut_out(result, first.path_, begins, last.path_, ends);
        return result;
    }
    // What lies behind a gap leaves.
    template <typed::gap G> ordered split(const G &gap) { return extract(gap, finish); }

    // All records with the key leave and go to the disposer; k may be the key of one of them.  Returns how many.
    template <class K> size_type erase(const K &k) requires(!std::is_convertible_v<const K &, const_iterator>) {
        size_type n = 0;
        const auto dispose = [&](T *x) {
            this->dispose_(x);
            ++n;
        };
        if constexpr (Traits::unique && !Traits::composite) {
            if (T *const x = extract(k))
                dispose(x);
        } else {
            extract(before(k), after(k)).clear_and_dispose(dispose);
        }
        return n;
    }
    // What lies between two gaps leaves and goes to the disposer, or to another one: O(H) and a call for each record.
    template <typed::gap First, typed::gap Last> void erase(const First &first, const Last &last) {
        extract(first, last);
    }
    template <typed::gap First, typed::gap Last, class D> void erase(const First &first, const Last &last, D dispose) {
        extract(first, last).clear_and_dispose(dispose);
    }
    // The same for two positions.  Returns last.
    iterator erase(const_iterator first, const_iterator last) {
        extract(first, last);
        return iterator(this, last.at_);
    }
    iterator erase(iterator first, iterator last) { return erase(const_iterator(first), const_iterator(last)); }

    // ---- Joined: the other tree is empty afterwards.  Positions of its records end.

    // Other's records stand behind, or in front of, all of this tree's.  O(H), no comparison.  Requires: they belong
    // there.
    void append(ordered &&other) noexcept(!typed::checks || Traits::quiet_for_record) { join<Side::right>(other); }
    void prepend(ordered &&other) noexcept(!typed::checks || Traits::quiet_for_record) { join<Side::left>(other); }

    // ---- Against another tree, with a comparator of the same order.  For m records in the smaller tree and n in the
    // other one O(m log(n/m + 1)) comparisons and steps, O(H) where one tree stands behind the other.  Positions of
    // records that stay in their tree stay good.  If the comparator throws, each record is in one tree or the other, or
    // has gone.

    // Other's records come in: behind their equals, where equals may stand; a set leaves them in the other tree.
    void merge(ordered &&other) { against<engine::fates::merge>(other, first_wins(), this->dispose_); }
    void merge(ordered &other) { merge(static_cast<ordered &&>(other)); }

    // All come in, and other is empty afterwards.  Of two with one key wins(mine, theirs) gives the one that stays,
    // which may take over what it likes from the other one; that one goes to dispose.
    template <class Wins, class D> void unite(ordered &&other, const Wins &wins, const D &dispose) requires Unique {
        against<engine::fates::unite>(other, wins, dispose);
    }
    template <class Wins = first_wins> void unite(ordered &&other, const Wins &wins = {}) requires Unique {
        unite(static_cast<ordered &&>(other), wins, this->dispose_);
    }

    // Those stay whose keys are in the other tree too, all others go to dispose.  The other tree keeps its keys: where
    // wins gives theirs, the two change places.
    template <class Wins, class D> void intersect(ordered &other, const Wins &wins, const D &dispose) requires Unique {
        against<engine::fates::intersect>(other, wins, dispose);
    }
    template <class Wins = first_wins> void intersect(ordered &other, const Wins &wins = {}) requires Unique {
        intersect(other, wins, this->dispose_);
    }

    // Those whose keys are in the other tree too go to dispose.  The other tree keeps its records.
    template <class D> void subtract(ordered &other, const D &dispose) requires Unique {
        against<engine::fates::subtract>(other, first_wins(), dispose);
    }
    void subtract(ordered &other) requires Unique { subtract(other, this->dispose_); }

private:
    // For what is cut out: empty, and made before anything changes, since copying a comparator may throw.
    ordered sibling() const { return ordered(this->compare_, this->dispose_); }
    void part(ordered &result, Node stays, Node leaves) {
        result.set_root(leaves);
        set_root(stays);
    }

    template <bool FromStart, class First, class Last> auto in_front_of(const First &first, const Last &last) const {
        if constexpr (FromStart)
            return in_front(last);
        else
            return in_front(first);
    }
    // The path to the empty link at a gap.
    template <class InFront> Entry *to_gap(Path &path, const InFront &gap) const {
        return engine::descend<engine::rule::key>(nodes(), root_, engine::ToGap(gap),
                                                  typename Base::Trail{path.entries})
            .top;
    }

    // Two paths to empty links, so that neither begins the other.  Where they part, the first to the left and the
    // second to the right, stands the pivot; if they part the other way, or not at all, nothing lies between them.
    void cut_out(ordered &result, Entry *from, Entry *begins, Entry *to, Entry *ends) {
        Entry *e = from, *f = to;
        for (; e != begins && e->Dir == f->Dir; ++e, ++f) {
        }
        if (e == begins || e->Dir > f->Dir)
            return;
        const auto boundary = [](Entry *bottom, Entry *top) {
            return [=](Node) { return engine::Boundary<Entry>{bottom, top == bottom ? bottom : top - 1}; };
        };
        const engine::Parts parts =
            engine::cut_between(nodes(), from, e, e->Node, boundary(e + 1, begins), boundary(f + 1, ends));
        part(result, parts.outer, parts.inner);
    }

    template <class Wins, class D> struct Against {
        ordered &mine, &theirs;
        const Wins &wins;
        const D &dispose;

        // In a multiset to the gap behind, or in front of, what equals the pivot: mine come first.
        Entry *seek(Entry *path, Node root, Node pivot, [[maybe_unused]] bool pivot_is_mine) const {
            const auto order = mine.order_of(*record(pivot));
            using Trail = typename Base::Trail;
            if constexpr (Unique)
                return mine.find_place(path, order, root);
            else if (pivot_is_mine)
                return engine::descend<engine::rule::front>(nodes(), root, order, Trail{path}).top;
            else
                return engine::descend<engine::rule::back>(nodes(), root, order, Trail{path}).top;
        }
        bool theirs_wins(Node first, Node second) const {
            return &wins(*record(first), *record(second)) == record(second);
        }
        void lose(Node n) const { dispose(record(n)); }
        void lose_all(Node root) const { Base::dispose_of(root, dispose); }
        void deliver(Node first, Node second) const {
            mine.set_root(first);
            theirs.set_root(second);
        }
    };
    template <engine::Fates F, class Wins, class D> void against(ordered &other, const Wins &wins, const D &dispose) {
        if (&other == this)
            return F.winner == engine::To::lost ? this->clear_and_dispose(dispose) : void();
        constexpr bool joins = F.only_mine == F.only_theirs;
        if (joins && (other.empty() || !root_ || this->follows()(&this->back(), &other.front())))
            return append(static_cast<ordered &&>(other));
        if (joins && this->order_of(other.back())(&this->front()).left())
            return prepend(static_cast<ordered &&>(other));
        engine::Algebra<typename Traits::nodes, Entry, Traits::height, F, Against<Wins, D>> work(
            nodes(), {*this, other, wins, dispose}, {root_, engine::height(nodes(), root_)},
            {other.root_, engine::height(nodes(), other.root_)});
        work.run();
    }

    template <Side S> void join(ordered &other) noexcept(!typed::checks || Traits::quiet_for_record) {
        if constexpr (typed::checks)
            if (root_ && other.root_)
                require_behind<S>(other);
        Path work;
        const Node theirs = other.root_;
        other.set_root(nullptr);
        set_root(engine::concat<S>(nodes(), work.entries, root_, theirs));
    }
    template <Side S> void require_behind(ordered &other) {
        ordered &first = S == Side::right ? *this : other, &second = S == Side::right ? other : *this;
        typed::require(this->follows()(&first.back(), &second.front()), "trees are joined out of order");
    }
};

} // namespace ovant
