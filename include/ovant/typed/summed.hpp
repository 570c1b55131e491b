// What counts and summaries tell: for trees whose records carry a counted_link, or a summary_link.
//
// Summaries are right after every operation.  What is asked here takes O(H) and writes nothing but the caller's own
// positions; an insertion or removal goes up to the root for it.
#pragma once

#include "look_up.hpp"

namespace ovant::typed {

template <class Traits> class summed : public look_up<Traits> {
    using Base = look_up<Traits>;

protected:
    using Base::Base, Base::in_front, Base::locate, Base::nodes, Base::root_;
    using typename Base::Entry, typename Base::Node, typename Base::Side, typename Base::T, typename Base::Path;

public:
    using typename Base::const_iterator, typename Base::iterator, typename Base::size_type;
    using summary_type = typename Traits::summary;

    // ---- Counts

    // How many records there are: O(1).
    size_type size() const noexcept requires Traits::counted { return this->records(); }

    // The record with i others in front of it; end() if i is size().  Its path is there for a walk, and no comparison
    // is made.  Requires: i is not above size().
    iterator nth(size_type i) noexcept requires Traits::counted { return at_rank<false>(i); }
    const_iterator nth(size_type i) const noexcept requires Traits::counted { return at_rank<true>(i); }

    // How many records stand in front of a position (size() for the end), of a record of this tree, of a gap.
    template <bool Const, bool Backward>
    size_type rank(const typed::iterator<Traits, Const, Backward> &position) const requires Traits::counted {
        return position.at_ ? static_cast<size_type>(position.rank()) : this->records();
    }
    size_type rank(const T &x) const requires Traits::counted { return static_cast<size_type>(this->rank_of(x)); }
    template <gap G> size_type rank(const G &gap) const requires Traits::counted { return Base::rank(gap); }

    // ---- Summaries of the host's own

    // Of all records: O(1).  Of those between two gaps: at most three comparisons and two calls of of() a level.
    summary_type summary() const requires Traits::summarises { return nodes().summary(root_); }
    template <gap First, gap Last>
    summary_type fold(const First &first, const Last &last) const requires Traits::summarises {
        Path work;
        return engine::fold(nodes(), work.entries, root_, in_front(first), in_front(last));
    }

    // From a gap or a position on, the first record at which passes(the summary of all from there up to it) is true, so
    // passes must hold for all behind it too; end() if there is none.  Its path is there.  At most four calls a level.
    //
    //     first_passing(start, [](const Total &all) { return all.sum > 500; })   takes the sum past 500
    //     first_passing(position, [](const Latest &all) { return all.end > 9; }) is the next to end after 9
    template <gap G, class Passes>
    iterator first_passing(const G &from, const Passes &passes) requires Traits::summarises {
        return passing<false>(from, passes);
    }
    template <gap G, class Passes>
    const_iterator first_passing(const G &from, const Passes &passes) const requires Traits::summarises {
        return passing<true>(from, passes);
    }
    template <bool Const, class Passes>
    auto first_passing(typed::iterator<Traits, Const> from, const Passes &passes) const requires Traits::summarises {
        if (from.at_)
            pass(from, from.path(), passes);
        return from;
    }

    // The summary's share of x has changed, while its key is what it was.  One comparison a level.
    void refresh(T &x) requires Traits::summarises {
        Path path;
        Entry *const top = locate(path.entries, x);
        require(top, "the record is not in the tree");
        engine::uplift_all(nodes(), path.entries, top + 1, 0);
    }

private:
    template <bool Const> typed::iterator<Traits, Const> at_rank(size_type i) const noexcept {
        typed::iterator<Traits, Const> it(this, nullptr);
        require(i <= this->records(), "there is no record of this rank");
        if (i < this->records()) {
            it.path_[0].Node = root_;
            it.stand(engine::nth(nodes(), it.path_, i));
        }
        return it;
    }
    template <bool Const, class G, class Passes>
    typed::iterator<Traits, Const> passing(const G &from, const Passes &passes) const {
        typed::iterator<Traits, Const> it(this, nullptr);
        pass(it, this->path_behind(it.path_, in_front(from)), passes);
        return it;
    }
    template <class Position, class Passes> void pass(Position &it, Entry *from, const Passes &passes) const {
        Entry *const top = from ? engine::first_passing(nodes(), it.path_, from, passes) : nullptr;
        if (top)
            it.stand(top);
        else
            it.stand_behind(nullptr);
    }
};

} // namespace ovant::typed
