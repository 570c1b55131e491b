// A tree as a whole: made, ended, copied, handed over, verified, drawn.
#pragma once

#include "../engine/build.hpp"
#include "../engine/inspect.hpp"
#include "draw.hpp"
#include "many.hpp"

namespace ovant {

// What check() has found: nothing, or the first bad record, the way to it from the root, and what is wrong with it.
template <class T> class finding {
public:
    // True if something is wrong.
    explicit operator bool() const noexcept { return record != nullptr; }

    const T *record = nullptr;
    // "wrong order": it stands before its predecessor, or equals it in a set.  "wrong balance": its Balance is not the
    // difference of the heights below it, or lies deeper than any tree reaches.  "circle": it is its own descendant.
    // "shared": two links lead to it; way is the second one.  "wrong summary": it is not that of its record and its two
    // children, where summaries compare by ==.
    const char *reason = "sound";
    // "left, right, right", or "root".
    char way[7 * (engine::greatest_height(sizeof(T)) + 2)] = {};
};

namespace typed {

template <class Traits> class whole : public many<Traits> {
    using Base = many<Traits>;

protected:
    using Base::Base, Base::nodes, Base::node, Base::record, Base::root_, Base::set_root, Base::sweep_away;
    using typename Base::Entry, typename Base::Node, typename Base::Side, typename Base::T, typename Base::Path;

public:
    // ---- Emptied: all positions end

    // Every record goes to the disposer; without one, the tree just forgets them, in O(1).
    void clear() noexcept { sweep_away(this->dispose_); }
    // The same with another disposer, called with a pointer to each record, in no particular order; it may release it.
    template <class D> void clear_and_dispose(D dispose) { sweep_away(dispose); }

    // The same in steps, whenever the caller has time for one: the first few records, at most `most` of them, go to the
    // disposer, or to another one.  Returns whether any are left.  What is left is a tree in every respect.  O(most +
    // H), no comparison.
    bool dispose_some(std::size_t most) { return dispose_some(most, this->dispose_); }
    template <class D> bool dispose_some(std::size_t most, const D &dispose) {
        for (typename Base::iterator at = this->begin(); most != 0 && root_; --most)
            dispose(this->pop(at));
        return root_;
    }

    // ---- Filled: what was in the tree goes to the disposer; all positions end

    // Takes the records of a range whose order is already that of the tree: of references, or of pointers, to records.
    // The tree is as low as can be.  O(n), no comparison.  Requires: the range is sorted, and has a size or can be gone
    // through twice.
    template <class Range> void assign_sorted(Range &&range) {
        std::size_t n = 0;
        if constexpr (requires { range.size(); })
            n = static_cast<std::size_t>(range.size());
        else
            for (auto it = begin_of(range); it != end_of(range); ++it)
                ++n;
        clear();
        auto it = begin_of(range);
        set_root(engine::build(nodes(), n, [&]() -> Node { return node(*it++); }));
        require(sorted(), "assign_sorted was given records out of order");
    }

    // Takes a copy of each of other's records, in the same shape: clone(const T &) gives a pointer to it.  O(n), no
    // comparison.  If clone throws or gives nullptr, the copies made so far go to dispose, this tree stays as it was,
    // and the result is false.
    template <class Clone, class D> bool clone_from(const whole &other, Clone clone, D dispose) {
        struct Copies {
            Node root;
            const D &dispose;
            ~Copies() {
                if (root)
                    Base::dispose_of(root, dispose);
            }
        } copies{nullptr, dispose};
        Path from, to;
        const auto make = [&](Node n) -> Node { return clone(static_cast<const T &>(*record(n))); };
        if (!engine::clone(nodes(), from.entries, to.entries, other.root_, make, &copies.root))
            return false;
        engine::refresh_below(nodes(), to.entries, copies.root);
        clear_and_dispose(dispose);
        set_root(copies.root);
        copies.root = nullptr;
        return true;
    }
    template <class Clone> bool clone_from(const whole &other, Clone clone) {
        return clone_from(other, clone, this->dispose_);
    }

    // ---- Handed over: the bare root, as AVL_GetTree and AVL_ConcatLess of the C face have it

    // All records leave, linked as they are.  nullptr from an empty tree.
    [[nodiscard]] T *release() noexcept {
        T *const root = record(root_);
        set_root(nullptr);
        return root;
    }
    // They come in.  Requires: the tree is empty, and the records are linked in its order.  What is wrong with their
    // summaries is mended by refresh_all.
    void adopt(T *root) noexcept {
        require(!root_, "a tree that adopts a root must be empty");
        set_root(root);
    }

    // All summaries are made anew, in O(n).
    void refresh_all() noexcept requires Traits::summarises {
        Path path;
        engine::refresh_below(nodes(), path.entries, root_);
    }

    // ---- Verified

    // Order, balance, links and summaries, in O(n) and a comparison a record.  Ends on any damage, as long as links
    // lead to records.  Not const: while it runs it notes in the links which it has seen.
    finding<T> check() {
        Path path;
        int height[Traits::height + 2];
        auto found = engine::inspect_links(nodes(), path.entries, height, Traits::height, root_);
        if (found.flaw == engine::Flaw::none)
            found = engine::inspect_summaries(nodes(), path.entries, height, root_);
        if (found.flaw == engine::Flaw::none)
            found = engine::inspect_order(nodes(), path.entries, root_, follows());
        finding<T> result;
        if (found.flaw != engine::Flaw::none)
            tell(result, found, path.entries);
        return result;
    }

    // ---- Drawn: the tree lying on its side, the last record on top, by out << text.  print(out, record) writes a
    // record; without it the key is written by <<.

    template <class Out, class Print> void draw(Out &out, Print print) const {
        Path path;
        typed::draw<T>(nodes(), path.entries, root_, out, print);
    }
    template <class Out> void draw(Out &out) const {
        draw(out, [](Out &to, const T &x) { put_key(to, x, Traits::key); });
    }

protected:
    // Whether a record may stand behind another one.
    auto follows() const {
        return [this](Node first, Node second) {
            const auto ask = this->order_of(*record(second));
            const auto answer = ask(first);
            return Traits::unique ? answer.right() : !answer.left();
        };
    }

private:
    bool sorted() const {
        if constexpr (checks) {
            Path path;
            return engine::inspect_order(nodes(), path.entries, root_, follows()).flaw == engine::Flaw::none;
        }
        return true;
    }

    static void tell(finding<T> &result, const engine::Finding<Entry> &found, const Entry *bottom) {
        constexpr const char *reasons[] = {"sound",  "wrong order", "wrong balance",
                                           "circle", "shared",      "wrong summary"};
        result.record = record(found.top->Node);
        result.reason = reasons[static_cast<int>(found.flaw)];
        char *to = result.way;
        const auto put = [&to](const char *text) {
            while (*text)
                *to++ = *text++;
        };
        for (const Entry *e = bottom; e != found.top; ++e) {
            put(e == bottom ? "" : ", ");
            put(e->Dir < 0 ? "left" : "right");
        }
        if (to == result.way)
            put("root");
    }

    template <class Out, class Key> static void put_key(Out &out, const T &x, const Key &) {
        out << key_of<Traits::key>(x);
    }
    template <class Out, auto First, auto... Rest>
    static void put_key(Out &out, const T &x, const keys_of<First, Rest...> &) {
        out << key_of<First>(x);
        ((out << ' ' << key_of<Rest>(x)), ...);
    }
};

} // namespace typed
} // namespace ovant
