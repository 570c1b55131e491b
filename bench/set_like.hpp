// The adapter of all containers with the interface of std::set.  Kind tells the container, its node and how nodes move;
// an adapter made from this one hides what its container does better.
#pragma once

#include "keys.hpp"

namespace bench {

template <class Kind> class SetLike {
public:
    using Node = typename Kind::Node;

    void insert(Node &node) { set_.insert(Kind::value(node)); }
    void append(Node &node) { set_.insert(set_.end(), Kind::value(node)); }
    Key find(Key key) const { return key_at(set_.find(key)); }
    Key lower_bound(Key key) const { return key_at(set_.lower_bound(key)); }
    std::uint64_t walk() const {
        std::uint64_t sum = 0;
        for (const auto &value : set_)
            sum += Kind::key(value);
        return sum;
    }
    bool erase(Key key) {
        const auto at = set_.find(key);
        if (at == set_.end())
            return false;
        set_.erase(at);
        return true;
    }
    void pop_first() { set_.erase(set_.begin()); }
    void drain() {
        for (auto at = set_.begin(); at != set_.end();)
            at = set_.erase(at);
    }
    void erase_range(Key first, Key last) { set_.erase(set_.lower_bound(first), set_.upper_bound(last)); }
    void cut(Key first, Key last, SetLike &other) {
        Kind::move_range(set_, set_.lower_bound(first), set_.upper_bound(last), other.set_);
    }
    void join(SetLike &other) { Kind::move_all(other.set_, set_); }
    void clear() { set_.clear(); }

    static void reuse(Node &node, Key key) { node.key = key; }

protected:
    typename Kind::Set set_;

private:
    template <class At> Key key_at(At at) const { return at == set_.end() ? 0 : Kind::key(*at); }
};

// What containers that keep copies of the keys have in common.
struct CopiedKey {
    Key key = 0;

    using Node = CopiedKey;
    static Key value(const Node &node) { return node.key; }
};

} // namespace bench
