// The vocabulary of every algorithm: sides, typed link access, saved links.
#pragma once

#include <cstddef>

namespace ovant::engine {

using Node = void *; // the address of a record, 0 for none
using Change = int;  // new height of a subtree minus its old height

enum class Side : int { left = -1, right = +1 };
constexpr Side operator!(Side s) { return s == Side::left ? Side::right : Side::left; }
constexpr int sign(Side s) { return static_cast<int>(s); }
constexpr Side side_of(int dir) { return dir < 0 ? Side::left : Side::right; }

// Plain loads and stores of any type at any address: an aligned type would be undefined behaviour there.
template <class T> T load(const void *base, std::size_t offset = 0) {
    T value;
    __builtin_memcpy(&value, static_cast<const char *>(base) + offset, sizeof value);
    return value;
}
template <class T> void store(void *base, std::size_t offset, T value) {
    __builtin_memcpy(static_cast<char *>(base) + offset, &value, sizeof value);
}
template <class T> void store(void *to, T value) { store(to, 0, value); }

// One of two values by a condition that no processor can predict, without a branch.  The barriers hold a compiler to
// it: both values are in registers before the choice, and what follows knows nothing of how it fell.
template <class T> T select(bool condition, T yes, T no) {
    asm("" : "+r"(yes), "+r"(no));
#if defined(__clang__)
    T chosen = __builtin_unpredictable(condition) ? yes : no;
#else
    T chosen = condition ? yes : no;
#endif
    asm("" : "+r"(chosen));
    return chosen;
}

// A condition cut off from where it came from, so that a second choice by it does not make a branch of the first one.
inline int opaque(bool condition) {
    int hidden = condition;
    asm("" : "+r"(hidden));
    return hidden;
}

// The link header inside a node: two children and a balance without a gap, at any address.
inline constexpr std::size_t left_at = 0, right_at = sizeof(Node), balance_at = 2 * sizeof(Node);
inline constexpr std::size_t link_size = balance_at + 1;

// Where a node's header lies is the one thing that the faces of the library do differently; Where answers it with
// field(n, place), the address of what lies at a place in the header.  Everything below the faces sees links through
// this class alone.
//
// An accessor may keep a summary of each subtree (a count, a sum): its Where then has a type Summary, below(n), where
// that of n's subtree is kept, and of(left, n, right), which computes it.  Every algorithm calls refresh(n) at the
// nodes whose subtrees it has changed, children before parents, and climbs to the top even where no height changes any
// more.
template <class Where> class Links : Where {
public:
    using Where::Where;

    template <Side S> Node child(Node n) const { return load<Node>(this->field(n, place(S))); }
    template <Side S> void hang(Node n, Node child) const { store(this->field(n, place(S)), child); }
    Node child(Side s, Node n) const { return load<Node>(this->field(n, place(s))); }
    void hang(Side s, Node n, Node child) const { store(this->field(n, place(s)), child); }

    int balance(Node n) const { return load<signed char>(this->field(n, balance_at)); }
    void set_balance(Node n, int balance) const {
        store(this->field(n, balance_at), static_cast<signed char>(balance));
    }

    // Lean: the balance seen from one side, positive when that side is the higher one.
    template <Side S> int lean(Node n) const { return lean(S, n); }
    template <Side S> void set_lean(Node n, int lean) const { set_lean(S, n, lean); }
    int lean(Side s, Node n) const { return sign(s) * balance(n); }
    void set_lean(Side s, Node n, int lean) const { set_balance(n, sign(s) * lean); }

    static constexpr bool summarises = requires { typename Where::Summary; };
    auto summary(Node n) const requires summarises { return n ? this->below(n) : typename Where::Summary(); }
    // The summary is a count and no more.
    static constexpr bool counts_alone = requires(const Where &where, Node n) { where.add(n, std::ptrdiff_t{1}); };
    void add(Node n, std::ptrdiff_t added) const { Where::add(n, added); }
    template <class Summary> Summary of(const Summary &left, Node n, const Summary &right) const {
        return Where::of(left, n, right);
    }
    void refresh(Node n) const {
        if constexpr (summarises)
            this->below(n) = of(summary(child<Side::left>(n)), n, summary(child<Side::right>(n)));
    }

private:
    static constexpr std::size_t place(Side s) { return s == Side::left ? left_at : right_at; }
};

// A link header outside any node: what is left of a node that goes, until its successor at the place takes it over.
struct SavedLink {
    Node left, right;
    int balance;

    template <Side S> Node &child() { return S == Side::left ? left : right; }
    template <Side S> void add_lean(Change c) { balance += sign(S) * c; }
};

template <class Nodes> SavedLink read_links(Nodes nodes, Node n) {
    return {nodes.template child<Side::left>(n), nodes.template child<Side::right>(n), nodes.balance(n)};
}

template <class Nodes> Node write_links(Nodes nodes, Node n, const SavedLink &saved) {
    nodes.template hang<Side::left>(n, saved.left);
    nodes.template hang<Side::right>(n, saved.right);
    nodes.set_balance(n, saved.balance);
    nodes.refresh(n);
    return n;
}

} // namespace ovant::engine
