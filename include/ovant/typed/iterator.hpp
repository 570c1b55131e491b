// Positions in a tree.
#pragma once

#include "../engine/follow.hpp"
#include "../engine/summary.hpp"
#include "checks.hpp"
#include "std.hpp"
#include "traits.hpp"

namespace ovant {
template <class, bool, auto, auto, class, class> class ordered;
}

namespace ovant::typed {

template <class Traits> class trunk;

// A position: a record, or the end behind the last one.  It models std::bidirectional_iterator.
//
// It stays good as long as its record is in the tree, whatever else comes and goes.  It belongs to the tree object that
// gave it: after a move, a swap, or when its record has moved to another tree, a new one is wanted.
//
// A position that was searched for is no more than an address.  With its first step it finds its path, by its key and
// along its run of equals, and keeps it; a step then costs O(1) on average and no comparison.  A path that the tree has
// outgrown is found again at the next step.  Copies take along as much of the path as is in use.
//
// In a counted tree it goes n places on, and tells the distance to another one, in O(log n).  That is all that it lacks
// of a random access iterator: it is none, since those take O(1), and as a std::sized_sentinel_for it is not exact
// about its cost.
//
// Backward says which way ++ goes.  Const positions come from a const tree, or from any other position.
template <class Traits, bool Const, bool Backward = false> class iterator {
    using T = typename Traits::value_type;
    using Tree = trunk<Traits>;
    using Entry = typename Traits::entry;

public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using reference = std::conditional_t<Const, const T &, T &>;
    using pointer = std::conditional_t<Const, const T *, T *>;

    iterator() noexcept {} // NOLINT(modernize-use-equals-default): a path that nobody has found is not written
    iterator(const iterator &other) noexcept { copy(other); }
    iterator(const iterator<Traits, false, Backward> &other) noexcept requires Const { copy(other); }
    iterator &operator=(const iterator &other) noexcept { // NOLINT(bugprone-unhandled-self-assignment)
        copy(other);
        return *this;
    }
    ~iterator() = default;

    reference operator*() const noexcept {
        require(at_, "there is no record at the end of a tree");
        return *at_;
    }
    pointer operator->() const noexcept { return &**this; }

    iterator &operator++() noexcept(Traits::quiet_for_record) { return go < Backward ? Left : Right > (); }
    iterator &operator--() noexcept(Traits::quiet_for_record) { return go < Backward ? Right : Left > (); }
    iterator operator++(int) noexcept(Traits::quiet_for_record) {
        iterator before = *this;
        ++*this;
        return before;
    }
    iterator operator--(int) noexcept(Traits::quiet_for_record) {
        iterator before = *this;
        --*this;
        return before;
    }

    // Requires: there is such a position.  As many steps as it takes to climb to a subtree that holds both, and down.
    iterator &operator+=(difference_type n) noexcept(Traits::quiet_for_record) requires Traits::counted {
        return go(Backward ? -n : n);
    }
    iterator &operator-=(difference_type n) noexcept(Traits::quiet_for_record) requires Traits::counted {
        return *this += -n;
    }
    friend iterator operator+(iterator it, difference_type n) requires Traits::counted { return it += n; }
    friend iterator operator+(difference_type n, iterator it) requires Traits::counted { return it += n; }
    friend iterator operator-(iterator it, difference_type n) requires Traits::counted { return it -= n; }
    friend difference_type operator-(const iterator &a, const iterator &b) requires Traits::counted {
        return Backward ? b.rank() - a.rank() : a.rank() - b.rank();
    }

    friend bool operator==(const iterator &a, const iterator &b) noexcept {
        require(a.tree_ == b.tree_ || !a.tree_ || !b.tree_, "positions of two trees are compared");
        return a.at_ == b.at_;
    }

    // Of a backward position: the forward one whose predecessor it stands at, as std::reverse_iterator has it.
    iterator<Traits, Const> base() const requires Backward {
        iterator<Traits, Const> forward(tree_, at_);
        return at_ ? ++forward : tree_->template first<Const>();
    }

private:
    template <class, bool, bool> friend class iterator;
    friend Tree;
    template <class> friend class look_up;
    template <class> friend class summed;
    template <class> friend class many;
    template <class> friend class update;
    template <class> friend class whole;
    template <class, bool> friend class interval;
    template <class, bool, auto, auto, class, class> friend class ovant::ordered;

    static constexpr engine::Side Left = engine::Side::left, Right = engine::Side::right;

    iterator(const Tree *tree, T *at) noexcept : tree_(tree), at_(at) {}

    template <bool C> void copy(const iterator<Traits, C, Backward> &other) noexcept {
        tree_ = other.tree_;
        at_ = other.at_;
        found_ = other.found_;
        if (!found_)
            return;
        Entry *to = path_;
        for (const Entry *e = other.path_; e <= other.top_; ++e)
            *to++ = *e;
        top_ = to - 1;
    }

    bool has_path() const noexcept { return found_ == tree_->changes_; }

    // At the record that the path leads to, which holds from now on.
    void stand(Entry *top) noexcept {
        at_ = static_cast<T *>(top->Node);
        top_ = top;
        found_ = tree_->changes_;
    }
    // At the end behind that record; 0 in an empty tree.
    void stand_behind(Entry *last) noexcept {
        if (last)
            stand(last);
        else
            found_ = 0;
        at_ = nullptr;
    }

    // The path to the record, or at the end to the last record.  0 in an empty tree.
    Entry *path() noexcept(Traits::quiet_for_record) { return has_path() ? top_ : find_path(); }
    [[gnu::noinline]] Entry *find_path() noexcept(Traits::quiet_for_record) {
        Entry *top;
        if (at_) {
            top = tree_->locate(path_, *at_);
            require(top, "the record of a position is not in its tree");
        } else {
            top = tree_->template extreme < Backward ? Left : Right > (path_);
        }
        if (top) {
            top_ = top;
            found_ = tree_->changes_;
        }
        return top;
    }

    template <engine::Side S> iterator &go() noexcept(Traits::quiet_for_record) {
        Entry *const top = path();
        if (!at_) { // from the end back in
            stand(top);
            return *this;
        }
        Entry *const next = engine::step<S>(Tree::nodes(), path_, top);
        if (next) {
            top_ = next;
            at_ = static_cast<T *>(next->Node);
        } else {
            at_ = nullptr;
        }
        return *this;
    }

    // In tree order: from the end it is 1 to the record that the path leads to.
    iterator &go(difference_type by) noexcept(Traits::quiet_for_record) {
        Entry *const top = path();
        if (!at_)
            by += Backward ? -1 : 1;
        Entry *const to = top ? engine::advance(Tree::nodes(), path_, top, by) : nullptr;
        if constexpr (checks)
            require(to || rank_from(top) + by == beyond(), "a position goes beyond the end of its tree");
        if (to)
            stand(to);
        else
            stand_behind(nullptr);
        return *this;
    }
    // How many records stand in front of it.
    difference_type rank() const noexcept(Traits::quiet_for_record) {
        return !at_ ? beyond() : has_path() ? rank_from(top_) : tree_->rank_of(*at_);
    }
    difference_type rank_from(const Entry *top) const noexcept {
        return top ? static_cast<difference_type>(engine::rank(Tree::nodes(), path_, top)) : Backward ? 0 : -1;
    }
    difference_type beyond() const noexcept { return Backward ? -1 : static_cast<difference_type>(tree_->records()); }

    const Tree *tree_ = nullptr;
    T *at_ = nullptr;
    std::size_t found_ = 0; // the tree's count of changes when the path was found, 0 for never
    Entry *top_ = nullptr;
    Entry path_[Traits::height + 2]; // NOLINT(cppcoreguidelines-pro-type-member-init)
};

} // namespace ovant::typed
