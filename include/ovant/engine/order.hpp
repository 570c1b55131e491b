// How an operation asks the way.
//
// An order is called with a node and gives an answer: match() says that the node matches, left() and right() that the
// way goes on there.  Questions rather than one value of three: such a value would be built in branches, and a descent
// takes none that depends on a key.
//
// A gap is a place between two neighbours in tree order, or an end of it.  It is called with a node and says whether
// the node stands in front of it.  Equal nodes all stand on the same side of a gap.
#pragma once

#include "links.hpp"

namespace ovant::engine {

// Which key comes first, that is, stands on the left.
enum class Direction { smallest_first, largest_first };

template <Direction D, class T> constexpr bool is_left(T node_key, T key) {
    return D == Direction::smallest_first ? node_key > key : node_key < key;
}

// The answer of two values that compare by < and ==.  An unordered pair (a NaN) neither matches nor leads to the left.
template <class T, Direction D> struct ValueAnswer {
    T node_key, key;

    bool match() const { return node_key == key; }
    bool left() const { return is_left<D>(node_key, key); }
    bool right() const { return !left() && !match(); }
};

// Which of the two gaps around a key's equal run.
enum class Edge { front, back };

template <Edge E, class Order> class KeyGap {
public:
    explicit KeyGap(Order order) : order_(order) {}
    bool operator()(Node n) const { return E == Edge::front ? order_(n).right() : !order_(n).left(); }

private:
    Order order_;
};

// The way to a gap: no node matches.
template <class Gap> class ToGap {
public:
    explicit ToGap(const Gap &gap) : gap_(gap) {}
    struct Answer {
        bool in_front;
        bool match() const { return false; }
        bool left() const { return !in_front; }
        bool right() const { return in_front; }
    };
    Answer operator()(Node n) const { return {gap_(n)}; }

private:
    const Gap &gap_;
};

// The way to the nodes between two gaps: these match.  The second gap is asked only of a node behind the first one.
template <class First, class Second> class Between {
public:
    Between(const First &first, const Second &second) : first_(first), second_(second) {}
    struct Answer {
        int dir;
        bool match() const { return dir == 0; }
        bool left() const { return dir < 0; }
        bool right() const { return dir > 0; }
    };
    Answer operator()(Node n) const { return {first_(n) ? +1 : second_(n) ? 0 : -1}; }

private:
    const First &first_;
    const Second &second_;
};

} // namespace ovant::engine
