// The vocabulary of every algorithm: sides, typed link access, entries of the path stack, saved links.
#pragma once

#include "ovant.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ovant {

using Node = void *;
using Entry = AVL_PfadEntry;
using Change = int; // new height of a subtree minus its old height

enum class Side : int { left = DIR_LEFT, right = DIR_RIGHT };
constexpr Side operator!(Side s) { return s == Side::left ? Side::right : Side::left; }
constexpr int sign(Side s) { return static_cast<int>(s); }
constexpr Side side_of(int dir) { return dir < 0 ? Side::left : Side::right; }

// Plain loads and stores of any type at any address: an aligned type would be undefined behaviour there.
template <class T> T load(const void *base, std::size_t offset = 0) {
    T value;
    std::memcpy(&value, static_cast<const char *>(base) + offset, sizeof value);
    return value;
}
template <class T> void store(void *base, std::size_t offset, T value) {
    std::memcpy(static_cast<char *>(base) + offset, &value, sizeof value);
}

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

// The only place that turns a node into a link.  Copied out of the descriptor when an operation starts: a link store
// may alias the descriptor, and a copy keeps the offset in a register.  One offset is enough, as the header has no
// gaps.
class Nodes {
public:
    explicit Nodes(const AVL_Tree *tree) : link_(tree->LeftOff) {}

    template <Side S> Node child(Node n) const { return load<Node>(n, link_ + place(S)); }
    template <Side S> void hang(Node n, Node child) const { store(n, link_ + place(S), child); }
    Node child(Side s, Node n) const { return load<Node>(n, link_ + place(s)); }
    void hang(Side s, Node n, Node child) const { store(n, link_ + place(s), child); }

    int balance(Node n) const { return load<signed char>(n, link_ + offsetof(AVL_Link, Balance)); }
    void set_balance(Node n, int balance) const {
        store(n, link_ + offsetof(AVL_Link, Balance), static_cast<signed char>(balance));
    }

    // Lean: the balance seen from one side, positive when that side is the higher one.
    template <Side S> int lean(Node n) const { return sign(S) * balance(n); }
    template <Side S> void set_lean(Node n, int lean) const { set_balance(n, sign(S) * lean); }

private:
    static constexpr std::size_t place(Side s) {
        return s == Side::left ? offsetof(AVL_Link, Left) : offsetof(AVL_Link, Right);
    }

    std::size_t link_;
};

// A link header outside any node: what is left of a node that goes, until its successor at the place takes it over.
struct SavedLink {
    Node left, right;
    int balance;

    template <Side S> Node &child() { return S == Side::left ? left : right; }
    template <Side S> void add_lean(Change c) { balance += sign(S) * c; }
};

} // namespace ovant
