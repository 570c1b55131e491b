// Many at once: searches in flight together, records and keys that come in order.
#pragma once

#include "../engine/height.hpp"
#include "update.hpp"

namespace ovant::typed {

template <class Traits> class many : public update<Traits> {
    using Base = update<Traits>;

protected:
    using Base::Base, Base::node, Base::nodes, Base::order, Base::order_of, Base::record, Base::root_;
    using typename Base::Entry, typename Base::Node, typename Base::Side, typename Base::T, typename Base::Path;

public:
    using Base::begin;
    using typename Base::iterator, typename Base::size_type;

    // ---- Searches by the thousand, of keys in any order.  keys is a range that can be gone through twice; out takes a
    // pointer to a record for each key in turn, nullptr where find or lower_bound would give end().  Returns out behind
    // the last one.  In a tree beyond the caches each search waits for one node after the other: so several are under
    // way, and while the nodes of some are on their way the others go on.

    template <class Keys, class Out> Out find_many(const Keys &keys, Out out) { return search<true, T>(keys, out); }
    template <class Keys, class Out> Out find_many(const Keys &keys, Out out) const {
        return search<true, const T>(keys, out);
    }
    template <class Keys, class Out> Out lower_bound_many(const Keys &keys, Out out) {
        return search<false, T>(keys, out);
    }
    template <class Keys, class Out> Out lower_bound_many(const Keys &keys, Out out) const {
        return search<false, const T>(keys, out);
    }

    // ---- What comes in the tree's order: the way from one to the next is found from where the last one was.  About
    // two comparisons for each doubling of the distance between them, so k of n in O(k log(n/k + 1)).  If the
    // comparator throws, a first part of them has been dealt with.

    // Records, or pointers to them; equals come in behind their equals, and no position is invalidated.  A set hands
    // those whose keys it has to refused(T &).  Returns how many came in.
    template <class Range, class Refused> size_type insert_sorted(Range &&range, Refused refused) {
        size_type n = 0;
        iterator at = begin();
        [[maybe_unused]] T *last = nullptr;
        for (auto it = begin_of(range); it != end_of(range); ++it) {
            T &x = *record(node(*it));
            const auto ask = order_of(x);
            if constexpr (checks) {
                require(!last || !ask(last).left(), "insert_sorted was given records out of order");
                this->require_stranger(x);
                last = &x;
            }
            constexpr engine::Edge edge = Traits::unique ? engine::Edge::front : engine::Edge::back;
            Entry *const place = advance_to(at, engine::KeyGap<edge, decltype(ask)>(ask));
            if constexpr (Traits::unique) {
                Entry *const behind = engine::last_turn<Side::left>(at.path_, place);
                if (behind && !ask(behind->Node).left()) {
                    at.stand(engine::here(behind));
                    refused(x);
                    continue;
                }
            }
            this->link_at(at, place, x);
            ++n;
        }
        return n;
    }
    template <class Range> size_type insert_sorted(Range &&range) {
        return insert_sorted(range, [](T &) {});
    }

    // All records with these keys leave and go to the disposer, or to another one.  Returns how many.
    template <class Keys, class D> size_type erase_sorted(const Keys &keys, const D &dispose) {
        size_type n = 0;
        iterator at = begin();
        for (auto it = begin_of(keys); it != end_of(keys) && at.at_; ++it) {
            const auto &sought = *it;
            const auto ask = order(sought);
            Entry *const place = advance_to(at, engine::KeyGap<engine::Edge::front, decltype(ask)>(ask));
            Entry *const behind = engine::last_turn<Side::left>(at.path_, place);
            if (!behind)
                break;
            for (at.stand(engine::here(behind)); at.at_ && !ask(at.at_).left(); ++n)
                dispose(this->pop(at));
        }
        return n;
    }
    template <class Keys> size_type erase_sorted(const Keys &keys) { return erase_sorted(keys, this->dispose_); }

private:
    template <class InFront> Entry *advance_to(iterator &at, const InFront &gap) const {
        Entry *const top = at.path();
        return top ? engine::advance_to(nodes(), at.path_, top, gap) : at.path_;
    }

    // In lower trees the nodes are near, and the processor overlaps one search with the next by itself.
    static constexpr int in_flight = 32, flat = 22;

    template <class Key> struct Search {
        Key sought; // where it lies in the caller's range
        Node at, found;
    };
    // Takes each one level down.  Returns whether any is still under way.
    template <class Key> bool sink(Search<Key> *first, Search<Key> *last) const {
        bool flying = false;
        for (Search<Key> *s = first; s != last; ++s)
            if (const Node n = s->at) {
                const bool left = !order(*s->sought)(n).right();
                s->found = engine::select(left, n, s->found);
                s->at =
                    engine::select(left, nodes().template child<Side::left>(n), nodes().template child<Side::right>(n));
                __builtin_prefetch(s->at);
                flying = true;
            }
        return flying;
    }

    template <bool Match, class Record, class Keys, class Out> Out search(const Keys &keys, Out out) const {
        auto key = begin_of(keys);
        const auto end = end_of(keys);
        if (engine::height(nodes(), root_) < flat) {
            for (; key != end; ++key)
                *out++ = static_cast<Record *>(Match ? this->match(*key) : this->first_behind(before(*key)));
            return out;
        }
        Search<decltype(key)> searches[in_flight];
        while (key != end) {
            auto *last = searches;
            for (; key != end && last != searches + in_flight; ++key)
                *last++ = {key, root_, nullptr};
            while (sink(searches, last)) {
            }
            for (auto *s = searches; s != last; ++s) {
                const bool hit = s->found && (!Match || !order(*s->sought)(s->found).left());
                *out++ = static_cast<Record *>(hit ? record(s->found) : nullptr);
            }
        }
        return out;
    }
};

} // namespace ovant::typed
